// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "RawCamera.h"
#include "Viewer.h"

#include "featurebrowser/ZQImageView.h"
#include "images/ImageFile.h"
#include "log/EventLog.h"
#include "opening/OpeningWindow.h"
#include "opening/RecentCameras.h"
#include "opening/StartPage.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QTemporaryDir>

#include <csignal>
#include <cstdlib>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

using namespace std::chrono_literals;
using zqviewer::OpeningWindow;

namespace {

class Story : public testing::Test {
protected:
    /// From the next packet on.
    void harm(const Faults& faults)
    {
        m_proxy.set(faults);
        std::this_thread::sleep_for(100ms);
    }

    FakeCamera m_fake { ZQ_SIMULATED_CAMERA_XML };
    FaultProxy m_proxy { 4 };
};

/// The window on the way to a camera.
class Opening : public OpeningWindow {
public:
    Opening()
        : OpeningWindow({ {}, QString::fromUtf8(FaultProxy::address) })
    {
        start();
        show();
    }
    std::string texts() const
    {
        std::string texts;
        for (const QLabel* label : findChildren<QLabel*>()) {
            texts += label->isVisible() ? label->text().toStdString() + "\n" : "";
        }
        return texts;
    }
    bool says(const std::string& text) const
    {
        return waitFor([&] { return texts().find(text) != std::string::npos; });
    }

    /// Presses the visible button of this text.
    void press(const char* text)
    {
        for (QPushButton* button : findChildren<QPushButton*>()) {
            if (button->isVisible()
                && button->text().remove(QLatin1Char('&')) == QLatin1String(text)) {
                return button->click();
            }
        }
        FAIL() << "no button " << text;
    }
};

TEST_F(Story, OpeningTellsHowFarItIsAndWhyItFailsAndCanBeTriedAgain)
{
    harm(Faults::requestsLost());
    Opening opening;
    EXPECT_TRUE(opening.says("Connecting"));
    EXPECT_TRUE(opening.says("127.0.0.2: no camera answers there")) << opening.texts();

    harm(Faults::slow(8ms));
    opening.press("Try again");
    EXPECT_TRUE(opening.says("Reading the camera's description"));
    EXPECT_TRUE(opening.says("Reading the features"));
    EXPECT_TRUE(waitFor([&] { return opening.result() == QDialog::Accepted; }, 30000));
    const auto camera = opening.takeCamera();
    ASSERT_TRUE(camera);
    EXPECT_TRUE(camera->repository().isLoaded());
}

TEST_F(Story, OpeningIsCancelledAtOnceWhateverTheCameraDoes)
{
    harm(Faults::slow(8ms));
    Opening opening;
    EXPECT_TRUE(opening.says("Reading"));
    opening.press("Cancel");
    EXPECT_FALSE(opening.isVisible());
    EXPECT_FALSE(opening.takeCamera());
}

TEST_F(Story, AReadingThatIsCancelledIsNotBegunAgainAndTheWindowIsOfUseMeanwhile)
{
    Viewer viewer;
    harm(Faults::slow(8ms));
    viewer.pressF5();
    EXPECT_TRUE(viewer.isBusy());
    viewer.edit("Width", "128");
    EXPECT_EQ(viewer.rows().at("Width"), (Row { "128", true }));
    EXPECT_EQ(readRegister(place::width), 128U);
    EXPECT_TRUE(viewer.isBusy());
    viewer.pressCancel();
    EXPECT_FALSE(waitFor([&] { return viewer.isBusy(); }, 1500));
    EXPECT_NE(viewer.words().find("cancelled"), std::string::npos) << viewer.words();
}

TEST_F(Story, AValueThatIsConfirmedTooLateIsMarkedUntilItIsRead)
{
    Viewer viewer;
    harm(Faults::slow(225ms));
    viewer.edit("Width", "128");
    EXPECT_FALSE(viewer.rows().at("Width").looksCurrent);
    harm({});
    EXPECT_TRUE(waitFor([&] { return viewer.hasAllRows(true); }));
    EXPECT_EQ(viewer.rows().at("Width").value, std::to_string(readRegister(place::width)));
    EXPECT_EQ(viewer.words().find("\u26A0"), std::string::npos) << viewer.words();
}

TEST_F(Story, ACameraThatAnswersAgainByItselfIsReadByItself)
{
    Viewer viewer;
    m_fake.stall();
    EXPECT_TRUE(waitFor([&] { return viewer.hasAllRows(false); }));
    EXPECT_TRUE(viewer.offersReconnect());
    m_fake.resume();
    EXPECT_TRUE(waitFor([&] { return viewer.hasAllRows(true); }));
    EXPECT_FALSE(viewer.offersReconnect());
    EXPECT_EQ(viewer.words().find("\u26A0"), std::string::npos) << viewer.words();
}

TEST_F(Story, AnotherCameraInThePlaceReplacesAllRows)
{
    Viewer viewer;
    viewer.edit("Width", "64");
    EXPECT_EQ(viewer.rows().count("Gamma"), 1U);
    m_fake.kill();
    const std::unique_ptr<FakeCamera> other = otherModel();
    m_proxy.switchTo("127.0.0.4");
    viewer.pressReconnect();
    EXPECT_TRUE(waitFor([&] {
        const Rows rows = viewer.rows();
        const auto width = rows.find("Width");
        // At no time the old width as if it were the new one's.
        EXPECT_TRUE(
            width == rows.end() || !width->second.looksCurrent || width->second.value != "64");
        return !viewer.isBusy();
    }));
    EXPECT_TRUE(viewer.hasAllRows(true));
    EXPECT_EQ(viewer.rows().count("Gamma"), 0U);
    EXPECT_NE(viewer.title().find("Another"), std::string::npos) << viewer.title();
    EXPECT_NE(viewer.words().find("Another camera is here now"), std::string::npos);
}

TEST_F(Story, ALostCameraIsFoundByItselfAndNothingIsEditedMeanwhile)
{
    Viewer viewer;
    viewer.edit("Width", "64");
    viewer.child<QAction>("reconnectByItself")->setChecked(true);
    auto* view = viewer.child<featurebrowser::ZQImageView>("imageView");
    const std::uint8_t pixel = 0;
    featurebrowser::ZQImage image;
    image.data = &pixel;
    image.size = 1;
    image.width = image.height = 1;
    image.pixelFormat = 0x01080001;
    view->setImage(image);
    EXPECT_EQ(view->outdated(), QString());
    m_fake.kill();
    const auto* banner = viewer.child<QWidget>("lostBanner");
    EXPECT_FALSE(banner->isVisible());
    EXPECT_TRUE(waitFor([&] { return banner->isVisible(); }));
    EXPECT_NE(view->outdated(), QString());
    view->setImage(image); // which was on its way
    EXPECT_NE(view->outdated(), QString());
    viewer.open("Width");
    EXPECT_FALSE(viewer.isEditing());
    EXPECT_EQ(viewer.rows().at("Width").value, "64") << "what it held last is still to be seen";
    m_fake.start();
    EXPECT_TRUE(waitFor([&] { return !banner->isVisible() && viewer.hasAllRows(true); }, 40000));
    EXPECT_NE(view->outdated(), QString()) << "none has come since";
    view->setImage(image);
    EXPECT_EQ(view->outdated(), QString());
    EXPECT_EQ(viewer.rows().at("Width").value, std::to_string(readRegister(place::width)));
    viewer.edit("Width", "128");
    EXPECT_EQ(readRegister(place::width), 128U);
}

TEST_F(Story, AReconnectingThatIsCancelledIsNotBegunAgain)
{
    Viewer viewer;
    viewer.child<QAction>("reconnectByItself")->setChecked(true);
    m_fake.kill();
    EXPECT_TRUE(waitFor([&] { return viewer.isBusy(); }, 30000));
    viewer.pressCancel();
    EXPECT_TRUE(waitFor([&] { return !viewer.isBusy() && viewer.offersReconnect(); }));
    EXPECT_NE(viewer.words().find("Reconnecting was cancelled."), std::string::npos)
        << viewer.words();
    for (const QLabel* label : viewer.child<QWidget>("lostBanner")->findChildren<QLabel*>()) {
        EXPECT_FALSE(label->text().contains(QStringLiteral("Next try")));
    }
}

TEST_F(Story, GeometryIsFreeAfterACameraThatDiedWhileAcquiringIsBack)
{
    Viewer viewer;
    viewer.open("AcquisitionStart");
    EXPECT_TRUE(waitFor([] { return readRegister(place::acquisition) == 1U; }));
    EXPECT_TRUE(waitFor([&] { return viewer.role("Width", "readOnly").toBool(); }));
    m_fake.kill();
    EXPECT_TRUE(waitFor([&] { return viewer.offersReconnect(); }));
    m_fake.start();
    EXPECT_TRUE(waitFor([&] {
        if (viewer.offersReconnect()) {
            viewer.pressReconnect(); // again when it was in vain
        }
        return !viewer.isBusy() && viewer.hasAllRows(true);
    }));
    EXPECT_EQ(viewer.role("Width", "readOnly"), QVariant(false));
    EXPECT_EQ(viewer.role("Width", "state"), QVariant(0));
    viewer.edit("Width", "128");
    EXPECT_EQ(readRegister(place::width), 128U);
}

TEST_F(Story, ImagesAreShownUntilTheyAreStopped)
{
    std::string error;
    Viewer viewer(zqcameralib::ZQCamera::OpenSimulated(error));
    auto* view = viewer.child<featurebrowser::ZQImageView>("imageView");
    auto* start = viewer.child<QAction>("startImages");
    auto* stop = viewer.child<QAction>("stopImages");
    EXPECT_TRUE(start->isEnabled() && !stop->isEnabled());
    viewer.edit("Width", "128");
    start->trigger();
    EXPECT_TRUE(waitFor([&] { return view->image().width == 128; }));
    EXPECT_TRUE(!start->isEnabled() && stop->isEnabled());
    EXPECT_TRUE(waitFor([&] { return viewer.role("Width", "readOnly").toBool(); })) << "locked";
    const QString figures = QStringLiteral("images/s");
    EXPECT_TRUE(
        waitFor([&] { return viewer.child<QLabel>("imageFigures")->text().contains(figures); }));
    viewer.open("AcquisitionStop");
    EXPECT_TRUE(start->isEnabled() && !stop->isEnabled());
    EXPECT_TRUE(waitFor([&] { return !viewer.role("Width", "readOnly").toBool(); }));
    const QTemporaryDir folder;
    for (const char* name : { "/a.png", "/a.tiff" }) {
        const QString file = folder.path() + QLatin1String(name);
        EXPECT_EQ(zqviewer::saveImage(view->toImage(), file), QString());
        EXPECT_EQ(QImage(file).convertToFormat(QImage::Format_Grayscale8), view->toImage()) << name;
    }
    EXPECT_NE(zqviewer::saveImage(view->toImage(), QStringLiteral("/dev/full/a.png")), QString());
    EXPECT_NE(zqviewer::saveImage(view->toImage(), QStringLiteral("a.txt")), QString());
}

TEST_F(Story, TheStartPageOffersWhatCanBeOpened)
{
    zqviewer::RecentCameras recent;
    for (const char* file : { "b.xml", "a.xml", "b.xml" }) {
        recent.add({ QStringLiteral("Words of ") + QLatin1String(file), QLatin1String(file), {} });
    }
    recent.add({ QStringLiteral("Words of a camera"), {}, QStringLiteral("10.0.0.7") });
    zqviewer::StartPage page(recent);
    page.show();
    auto* list = page.findChild<QListWidget*>();
    const auto button
        = [&page](const char* name) { return page.findChild<QPushButton*>(QLatin1String(name)); };
    ASSERT_EQ(list->count(), 3) << "each once, the newest first";
    EXPECT_EQ(list->item(0)->text().toStdString(), "Words of a camera");
    EXPECT_EQ(list->item(1)->text().toStdString(), "Words of b.xml");
    EXPECT_FALSE(button("openButton")->isEnabled());
    std::string chosen;
    QObject::connect(
        &page, &zqviewer::StartPage::chosen, [&chosen](const zqviewer::CameraChoice& choice) {
            chosen = (choice.description + QLatin1Char('|') + choice.camera).toStdString();
        });
    list->setCurrentRow(0);
    button("openButton")->click();
    EXPECT_EQ(chosen, "|10.0.0.7");
    list->setCurrentRow(1);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(chosen, "b.xml|");
    button("simulatedButton")->click();
    EXPECT_EQ(chosen, "|");
    QMimeData file;
    file.setUrls({ QUrl::fromLocalFile(QStringLiteral("/tmp/dropped.xml")) });
    QDragEnterEvent enter({ 5, 5 }, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&page, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({ 5, 5 }, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&page, &drop);
    EXPECT_EQ(chosen, "/tmp/dropped.xml|");
}

TEST_F(Story, TheNextWindowLooksAsTheLastOneWasLeft)
{
    const QByteArrayList pins { "Width", "Gain" };
    const auto browserOf = [](const QTreeView* tree) { // the one that has the property
        QWidget* widget = tree->parentWidget();
        while (!widget->property("pinnedFeatures").isValid()) {
            widget = widget->parentWidget();
        }
        return widget;
    };
    {
        Viewer viewer;
        viewer.tree()->window()->resize(640, 500);
        QApplication::processEvents();
        viewer.tree()->collapseAll();
        viewer.tree()->setExpanded(viewer.row("AnalogControl"), true);
        viewer.tree()->header()->resizeSection(0, 222);
        browserOf(viewer.tree())->setProperty("pinnedFeatures", QVariant::fromValue(pins));
        auto* levels = viewer.child<QComboBox>("levelBox");
        levels->setCurrentIndex(levels->findData(featurebrowser::LEVEL_EXPERT));
        Q_EMIT levels->activated(levels->currentIndex());
    }
    zqviewer::WindowMemory memory;
    EXPECT_EQ(memory.level(), featurebrowser::LEVEL_EXPERT);
    std::string error;
    zqviewer::OpenedCamera camera(zqcameralib::ZQCamera::Open(
        FaultProxy::address, zqcameralib::CameraAccess::Control, error));
    ASSERT_EQ(camera.repository().Load(), 0);
    zqviewer::ViewerWindow window(
        camera, memory.level(), &memory, std::make_shared<zqviewer::EventLog>());
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(window.size(), QSize(640, 500));
    EXPECT_EQ(window.tree()->columnWidth(0), 222);
    EXPECT_EQ(browserOf(window.tree())->property("pinnedFeatures").value<QByteArrayList>(), pins);
    const QAbstractItemModel& model = *window.tree()->model();
    for (int i = 0; i < model.rowCount(); ++i) {
        const QModelIndex category = model.index(i, 0);
        EXPECT_EQ(window.tree()->isExpanded(category),
            category.data().toString().toStdString() == "AnalogControl");
    }
}

TEST_F(Story, ClosingStopsTheCameraAndGivesTheControlBack)
{
    Viewer viewer;
    viewer.open("AcquisitionStart");
    EXPECT_TRUE(waitFor([] { return readRegister(place::acquisition) == 1U; }));
    viewer.close();
    EXPECT_EQ(readRegister(place::acquisition), 0U);
    EXPECT_EQ(readRegister(place::control), 0U);
}

TEST_F(Story, ClosingDoesNotNeedTheCamera)
{
    for (const bool isAcquiring : { false, true }) {
        Viewer viewer;
        if (isAcquiring) {
            viewer.open("AcquisitionStart");
            EXPECT_TRUE(waitFor([] { return readRegister(place::acquisition) == 1U; }));
        }
        m_fake.kill();
        viewer.close();
        m_fake.start();
    }
}

/// Runs the viewer itself, and waits until its window is there.
pid_t startViewer()
{
    const pid_t process = fork();
    if (process == 0) {
        execl(ZQ_VIEWER, ZQ_VIEWER, "--camera", FakeCamera::usualAddress, nullptr);
        _exit(127);
    }
    EXPECT_TRUE(waitFor([] {
        return std::system("xdotool search --onlyvisible --name AreaScan2K > /dev/null 2>&1") == 0;
    }));
    EXPECT_NE(readRegister(place::control), 0U);
    return process;
}

// Killed by the signal itself, the program would leave the camera under control for 3 s more.
TEST_F(Story, ASignalEndsTheProgramInOrder)
{
    for (const int signal : { SIGHUP, SIGINT, SIGTERM }) {
        const pid_t process = startViewer();
        kill(process, signal);
        int status = 0;
        waitpid(process, &status, 0);
        EXPECT_EQ(readRegister(place::control), 0U);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
    }
}

TEST(FullDisk, IsAnErrorInWords)
{
    const QTemporaryDir folder;
    const QString errors = folder.filePath(QStringLiteral("errors"));
    for (const std::string output :
        { "--dump > /dev/full", "--print > /dev/full", "--screenshot /dev/full" }) {
        // What Qt leaks at its end is not the subject here, where a sanitizer looks for it.
        const std::string command
            = "ASAN_OPTIONS=detect_leaks=0 " ZQ_VIEWER " " + output + " 2> " + errors.toStdString();
        const int status = std::system(command.c_str());
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << output << status;
        QFile file(errors);
        ASSERT_TRUE(file.open(QFile::ReadOnly));
        const QByteArray last = file.readAll().trimmed().split('\n').last();
        EXPECT_TRUE(last.startsWith("zqviewer: Cannot write")) << output << last.constData();
    }
}

} // namespace
