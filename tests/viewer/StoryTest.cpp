#include "RawCamera.h"
#include "Viewer.h"

#include "OpeningWindow.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

using namespace std::chrono_literals;
using zqviewer::OpeningWindow;

namespace {

class Story : public testing::Test {
protected:
    /// From the next packet on.
    void harm(void (*change)(Faults&))
    {
        Faults faults;
        change(faults);
        m_proxy.set(faults);
        std::this_thread::sleep_for(100ms);
    }
    static void slow(Faults& faults) { faults.requestDelay = faults.delay = 8ms; }
    static void dead(Faults& faults) { faults.loseRequests = 1; }
    void heal()
    {
        harm([](Faults&) {});
    }

    FakeCamera m_fake { ZQ_SIMULATED_CAMERA_XML };
    FaultProxy m_proxy { 4 };
};

std::string textsOf(const QWidget& window)
{
    std::string texts;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        texts += label->isVisible() ? label->text().toStdString() + "\n" : "";
    }
    return texts;
}

/// Presses the visible button whose text contains `text`.
void press(const QWidget& window, const char* text)
{
    for (QPushButton* button : window.findChildren<QPushButton*>()) {
        if (button->isVisible() && button->text().remove(QLatin1Char('&')) == QLatin1String(text)) {
            return button->click();
        }
    }
    FAIL() << "no button " << text;
}

bool hasAllRows(const Viewer& viewer, bool areCurrent)
{
    const Rows rows = viewer.rows();
    return !rows.empty() && std::all_of(rows.begin(), rows.end(), [areCurrent](const auto& row) {
        return row.second.looksCurrent == areCurrent;
    });
}

TEST_F(Story, OpeningTellsHowFarItIsAndWhyItFailsAndCanBeTriedAgain)
{
    OpeningWindow opening(
        QString::fromUtf8(FaultProxy::address), zqcameralib::CameraAccess::Control);
    harm(dead);
    opening.start();
    opening.show();
    EXPECT_TRUE(waitFor([&] { return textsOf(opening).find("Connecting") != std::string::npos; }));
    EXPECT_TRUE(waitFor([&] {
        return textsOf(opening).find("127.0.0.2: no camera answers there") != std::string::npos;
    })) << textsOf(opening);

    harm(slow);
    press(opening, "Try again");
    std::set<std::string> steps;
    EXPECT_TRUE(waitFor(
        [&] {
            steps.insert(textsOf(opening));
            return opening.result() == QDialog::Accepted;
        },
        30000));
    const auto wasShown = [&steps](const char* text) {
        return std::any_of(steps.begin(), steps.end(),
            [text](const auto& step) { return step.find(text) != std::string::npos; });
    };
    EXPECT_TRUE(wasShown("Reading the camera's description"));
    EXPECT_TRUE(wasShown("Reading the features"));
    const auto camera = opening.takeCamera();
    ASSERT_TRUE(camera);
    EXPECT_TRUE(camera->repository().isLoaded());
}

TEST_F(Story, OpeningIsCancelledAtOnceWhateverTheCameraDoes)
{
    harm(slow);
    OpeningWindow opening(
        QString::fromUtf8(FaultProxy::address), zqcameralib::CameraAccess::Control);
    opening.start();
    opening.show();
    EXPECT_TRUE(waitFor([&] { return textsOf(opening).find("Reading") != std::string::npos; }));
    press(opening, "Cancel");
    EXPECT_FALSE(opening.isVisible());
    EXPECT_FALSE(opening.takeCamera());
}

TEST_F(Story, AReadingThatIsCancelledIsNotBegunAgainAndTheWindowIsOfUseMeanwhile)
{
    Viewer viewer;
    harm(slow);
    viewer.pressF5();
    EXPECT_TRUE(viewer.isBusy());
    viewer.type("Width", "128");
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
    harm([](Faults& f) { f.delay = 450ms; });
    viewer.type("Width", "128");
    EXPECT_FALSE(viewer.rows().at("Width").looksCurrent);
    heal();
    EXPECT_TRUE(waitFor([&] { return hasAllRows(viewer, true); }));
    EXPECT_EQ(viewer.rows().at("Width").value, std::to_string(readRegister(place::width)));
    EXPECT_EQ(viewer.words().find("\u26A0"), std::string::npos) << viewer.words();
}

TEST_F(Story, ACameraThatAnswersAgainByItselfIsReadByItself)
{
    Viewer viewer;
    m_fake.stall();
    EXPECT_TRUE(waitFor([&] { return hasAllRows(viewer, false); }));
    EXPECT_TRUE(viewer.offersReconnect());
    m_fake.resume();
    EXPECT_TRUE(waitFor([&] { return hasAllRows(viewer, true); }));
    EXPECT_FALSE(viewer.offersReconnect());
    EXPECT_EQ(viewer.words().find("\u26A0"), std::string::npos) << viewer.words();
}

TEST_F(Story, AnotherCameraInThePlaceReplacesAllRows)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("other.xml"));
    QFile own(QStringLiteral(ZQ_SIMULATED_CAMERA_XML));
    QFile file(path);
    ASSERT_TRUE(own.open(QFile::ReadOnly) && file.open(QFile::WriteOnly));
    file.write(own.readAll()
                   .replace("ModelName=\"AreaScan2K\"", "ModelName=\"Other\"")
                   .replace("<pFeature>OffsetX</pFeature>", ""));
    file.close();

    Viewer viewer;
    viewer.type("Width", "64");
    EXPECT_EQ(viewer.rows().count("OffsetX"), 1U);
    m_fake.kill();
    FakeCamera other(path.toStdString(), 0, "127.0.0.4", "GV77");
    m_proxy.switchTo("127.0.0.4");
    EXPECT_TRUE(waitFor([&] { return viewer.offersReconnect(); }));
    viewer.pressReconnect();
    EXPECT_TRUE(waitFor([&] {
        const Rows rows = viewer.rows();
        const auto width = rows.find("Width");
        // At no time the old width as if it were the new one's.
        EXPECT_TRUE(
            width == rows.end() || !width->second.looksCurrent || width->second.value != "64");
        return !viewer.isBusy();
    }));
    EXPECT_TRUE(hasAllRows(viewer, true));
    EXPECT_EQ(viewer.rows().count("OffsetX"), 0U);
    EXPECT_NE(viewer.title().find("Other"), std::string::npos) << viewer.title();
    EXPECT_NE(viewer.words().find("Another camera is here now"), std::string::npos);
}

TEST_F(Story, GeometryIsFreeAfterACameraThatDiedWhileAcquiringIsBack)
{
    Viewer viewer;
    viewer.pressCommand("AcquisitionStart");
    EXPECT_EQ(readRegister(place::acquisition), 1U);
    EXPECT_TRUE(waitFor([&] { return viewer.role("Width", "readOnly") == "true"; }));
    m_fake.kill();
    EXPECT_TRUE(waitFor([&] { return viewer.offersReconnect(); }));
    m_fake.start();
    viewer.pressReconnect();
    EXPECT_TRUE(waitFor([&] { return !viewer.isBusy() && hasAllRows(viewer, true); }));
    EXPECT_EQ(viewer.role("Width", "readOnly"), "false");
    EXPECT_EQ(viewer.role("Width", "state"), "0");
    viewer.type("Width", "128");
    EXPECT_EQ(readRegister(place::width), 128U);
}

TEST_F(Story, ClosingStopsTheCameraAndGivesTheControlBack)
{
    Viewer viewer;
    viewer.pressCommand("AcquisitionStart");
    EXPECT_EQ(readRegister(place::acquisition), 1U);
    viewer.close();
    EXPECT_EQ(readRegister(place::acquisition), 0U);
    EXPECT_EQ(readRegister(place::control), 0U);
}

TEST_F(Story, ClosingDoesNotNeedTheCamera)
{
    for (const bool isAcquiring : { false, true }) {
        Viewer viewer;
        if (isAcquiring) {
            viewer.pressCommand("AcquisitionStart");
        }
        m_fake.kill();
        std::printf("[ TROUBLE  ] Closing with a camera that has just died%s: %d ms\n",
            isAcquiring ? " while acquiring" : "", viewer.close());
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

class SignalStory : public Story, public testing::WithParamInterface<int> { };

// Killed by the signal itself, the program would leave the camera under control for 3 s more.
TEST_P(SignalStory, EndsTheProgramInOrder)
{
    const pid_t process = startViewer();
    kill(process, GetParam());
    int status = 0;
    waitpid(process, &status, 0);
    EXPECT_EQ(readRegister(place::control), 0U);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == GetParam()) << status;
}

INSTANTIATE_TEST_SUITE_P(Signals, SignalStory, testing::Values(SIGHUP, SIGINT, SIGTERM),
    [](const auto& test) { return std::string(sigabbrev_np(test.param)); });

class FullDisk : public testing::TestWithParam<const char*> { };

TEST_P(FullDisk, IsAnErrorInWords)
{
    const QTemporaryDir folder;
    const QString errors = folder.filePath(QStringLiteral("errors"));
    // What Qt leaks at its end is not the subject here, where a sanitizer looks for it.
    const std::string command = std::string("ASAN_OPTIONS=detect_leaks=0 " ZQ_VIEWER " ")
        + GetParam() + " 2> " + errors.toStdString();
    const int status = std::system(command.c_str());
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << status;
    QFile file(errors);
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    const QByteArray last = file.readAll().trimmed().split('\n').last();
    EXPECT_TRUE(last.startsWith("zqviewer: Cannot write")) << last.constData();
}

INSTANTIATE_TEST_SUITE_P(Outputs, FullDisk,
    testing::Values("--dump > /dev/full", "--print > /dev/full", "--screenshot /dev/full"),
    [](const auto& test) {
        return std::string(test.param).substr(2, std::string(test.param).find(' ') - 2);
    });

} // namespace
