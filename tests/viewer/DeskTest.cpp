// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// What a user does in the window beside the tree: images, files, log, several cameras.
#include "Viewer.h"

#include "featurebrowser/ZQImageView.h"
#include "images/ImagePane.h"
#include "images/LiveImage.h"
#include "log/EventLog.h"
#include "settings/SettingsMenu.h"
#include "window/CameraWindows.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTranslator>

#include <array>
#include <set>

namespace {

class Desk : public testing::Test {
protected:
    static std::unique_ptr<zqcameralib::ZQCamera> simulated()
    {
        std::string error;
        return zqcameralib::ZQCamera::OpenSimulated(error);
    }
    featurebrowser::ZQImageView& view() const
    {
        return *m_viewer.child<featurebrowser::ZQImageView>("imageView");
    }
    void trigger(const char* action) const { m_viewer.child<QAction>(action)->trigger(); }
    bool isEnabled(const char* action) const
    {
        return m_viewer.child<QAction>(action)->isEnabled();
    }
    std::string value(const std::string& name) const { return m_viewer.rows().at(name).value; }
    zqviewer::LiveImage& live() const { return m_viewer.child<zqviewer::ImagePane>()->live(); }

    Viewer m_viewer { simulated() };
};

TEST_F(Desk, SeveralImagesStopByThemselvesAndLeaveTheSettingsAlone)
{
    const std::string mode = value("AcquisitionMode");
    for (const int count : { 1, 3 }) {
        QStringList told;
        const auto connection = QObject::connect(&live(), &zqviewer::LiveImage::told,
            [&told](bool, const QString& text) { told.append(text); });
        const QTemporaryDir folder;
        live().record(folder.path(), QStringLiteral("png"));
        count == 1 ? trigger("singleImage") : live().start(count);
        EXPECT_TRUE(waitFor([&] { return told.size() == 3; }))
            << told.join(QLatin1Char('|')).toStdString();
        QObject::disconnect(connection);
        EXPECT_EQ(told.mid(0, 2).join(QLatin1Char('|')).toStdString(),
            "Images are being acquired.|The acquisition has stopped.");
        EXPECT_TRUE(isEnabled("startImages") && !isEnabled("stopImages"));
        const QStringList files = QDir(folder.path()).entryList({ QStringLiteral("*.png") });
        EXPECT_EQ(files.size(), count) << told.join(QLatin1Char('|')).toStdString();
        EXPECT_EQ(QImage(folder.filePath(
                             QStringLiteral("image-%1.png").arg(count, 6, 10, QLatin1Char('0'))))
                      .convertToFormat(QImage::Format_Grayscale8),
            view().toImage());
        QFile index(folder.filePath(QStringLiteral("index.csv")));
        ASSERT_TRUE(index.open(QFile::ReadOnly));
        EXPECT_EQ(index.readAll().count(QByteArray(".png,")), count);
    }
    EXPECT_EQ(value("AcquisitionMode"), mode);
}

TEST_F(Desk, ClosingWhileImagesStartCancelsThat)
{
    QString last;
    QObject::connect(
        &live(), &zqviewer::LiveImage::told, [&last](bool, const QString& text) { last = text; });
    live().start(1);
    ASSERT_FALSE(live().isRunning()); // not yet
    m_viewer.close();
    EXPECT_EQ(last.toStdString(), "Starting the images was cancelled.");
}

TEST_F(Desk, WhatComesAlongWithAnImageIsShownAndRecorded)
{
    auto* shown = m_viewer.child<QTableWidget>("chunks");
    m_viewer.child<QDockWidget>("chunkDock")->show();
    EXPECT_EQ(shown->rowCount(), 0);
    m_viewer.edit("ExposureTime", "7000");
    m_viewer.open("ChunkModeActive");
    ASSERT_EQ(value("ChunkModeActive"), "True");
    const QTemporaryDir folder;
    live().record(folder.path(), QStringLiteral("png"));
    live().start(2);
    ASSERT_TRUE(waitFor([&] { return !live().isRecording(); }));
    QFile index(folder.filePath(QStringLiteral("index.csv")));
    ASSERT_TRUE(index.open(QFile::ReadOnly));
    const QList<QByteArray> lines = index.readAll().split('\n');
    EXPECT_TRUE(lines.at(0).endsWith(
        ",ChunkFrameID,ChunkTimestamp in ns,ChunkExposureTime in us,ChunkGain in dB"));
    const QList<QByteArray> last = lines.at(lines.size() - 2).split(',');
    EXPECT_EQ(last.mid(4), (QList<QByteArray> { last.at(1), last.at(2), "7000", "0" }));
    ASSERT_TRUE(waitFor([&] { return shown->rowCount() == 4; }));
    EXPECT_EQ(shown->item(0, 1)->text().toUtf8(), last.at(1));
    EXPECT_EQ(shown->item(2, 1)->text(), QStringLiteral("7000 us"));
}

TEST_F(Desk, TheHistogramSaysHowBrightTheImageIs)
{
    m_viewer.child<QDockWidget>("histogramDock")->show();
    const std::array<std::uint8_t, 4> bytes { 0, 0, 0, 255 };
    featurebrowser::ZQImage image;
    image.data = bytes.data();
    image.size = bytes.size();
    image.width = 4;
    image.height = 1;
    image.pixelFormat = 0x01080001;
    view().setImage(image);
    const auto* words = m_viewer.child<QLabel>("histogramWords");
    EXPECT_TRUE(waitFor([&] {
        return words->text() == QStringLiteral("Mean 25.1 %, black 75.0 %, brightest 25.0 %");
    })) << words->text().toStdString();
}

TEST_F(Desk, ARegionDrawnWithTheMouseIsTheCamerasRegion)
{
    m_viewer.edit("Width", "256");
    m_viewer.edit("Height", "128");
    trigger("singleImage");
    ASSERT_TRUE(waitFor([&] { return view().image().width == 256 && isEnabled("startImages"); }));
    EXPECT_FALSE(isEnabled("useRegion"));
    const auto place = [&](int x, int y) { return view().rectOf({ x, y }).center().toPoint(); };
    QTest::mousePress(&view(), Qt::LeftButton, Qt::ShiftModifier, place(40, 20));
    QTest::mouseMove(&view(), place(90, 50));
    QTest::mouseMove(&view(), place(103, 51));
    QTest::mouseRelease(&view(), Qt::LeftButton, Qt::ShiftModifier, place(103, 51));
    const QRect drawn = view().region();
    ASSERT_TRUE(isEnabled("useRegion")) << drawn.width();
    trigger("startImages");
    ASSERT_TRUE(waitFor([&] { return live().isRunning(); }));
    trigger("useRegion");
    EXPECT_TRUE(waitFor([&] { return live().isRunning() && view().image().width < 256; }))
        << "images go on";
    const auto number = [&](const char* name) { return std::stoi(value(name)); };
    EXPECT_LE(number("OffsetX"), drawn.left());
    EXPECT_GE(number("OffsetX") + number("Width"), drawn.right() + 1);
    EXPECT_LT(number("Width"), drawn.width() + 64) << "no larger than the grid asks for";
    EXPECT_LE(number("OffsetY"), drawn.top());
    EXPECT_GE(number("OffsetY") + number("Height"), drawn.bottom() + 1);
    trigger("wholeSensor");
    EXPECT_EQ(number("OffsetX") + number("OffsetY"), 0);
    EXPECT_EQ(value("Width"), value("WidthMax"));
    EXPECT_EQ(value("Height"), value("HeightMax"));
}

TEST_F(Desk, FeaturesThatChangeByThemselvesFollowWhileTheyAreSeen)
{
    std::set<std::string> seen;
    m_viewer.select("DeviceTemperature");
    EXPECT_TRUE(waitFor([&] {
        seen.insert(value("DeviceTemperature"));
        return seen.size() > 2; // one more than is read when it is selected
    }));
}

TEST_F(Desk, ReadingAgainSaysWhatWasRead)
{
    m_viewer.pressF5();
    EXPECT_TRUE(waitFor([&] {
        return m_viewer.words().find(" features read.") != std::string::npos;
    })) << m_viewer.words();
}

TEST_F(Desk, TheLogTellsWhatTheCameraHoldsAndKeepsWhatIsFound)
{
    m_viewer.child<QDockWidget>("logDock")->toggleViewAction()->trigger();
    const auto* table = m_viewer.child<QTableView>("log");
    ASSERT_TRUE(table->isVisible());
    m_viewer.edit("Width", "65");
    m_viewer.open("TimestampLatch");
    const auto line = [table](int fromEnd) {
        const QAbstractItemModel& model = *table->model();
        QStringList cells;
        for (int column = zqviewer::EventLog::KindColumn; column < model.columnCount(); ++column) {
            cells.append(model.index(model.rowCount() - fromEnd, column).data().toString());
        }
        return cells.join(QLatin1Char('|')).toStdString();
    };
    EXPECT_EQ(line(2), "Written|Width|512 px|64 px|Adjusted to 64 px");
    EXPECT_EQ(line(1), "Command|TimestampLatch|||Command run");
    m_viewer.child<QLineEdit>("logFilter")->setText(QStringLiteral("WIDTH written"));
    EXPECT_EQ(table->model()->rowCount(), 1);
}

TEST_F(Desk, SettingsAreSavedLoadedComparedAndTakenBack)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("a.zqs"));
    auto& settings = m_viewer.child<zqviewer::SettingsMenu>()->work();
    settings.save(file);
    ASSERT_TRUE(waitFor([&] { return QFile::exists(file) && !settings.isRunning(); }));
    const std::string exposure = value("ExposureTime");
    m_viewer.edit("Width", "256");
    m_viewer.edit("ExposureTime", "7000");
    trigger("startImages"); // locks the width; it is written all the same
    ASSERT_TRUE(waitFor([&] { return live().isRunning(); }));
    settings.load(file);
    EXPECT_TRUE(waitFor([&] { return value("Width") == "512" && live().isRunning(); }));
    EXPECT_EQ(value("ExposureTime"), exposure);
    trigger("stopImages");
    trigger("takeBackSettings");
    EXPECT_TRUE(waitFor([&] { return value("Width") == "256"; }));
    EXPECT_EQ(value("ExposureTime"), "7000");

    settings.compareWithFile(file);
    ASSERT_TRUE(waitFor([&] { return m_viewer.child<QDialog>("comparison") != nullptr; }));
    auto* comparison = m_viewer.child<QDialog>("comparison");
    auto* model = comparison->findChild<QTableView*>()->model();
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        rows.append(
            QStringLiteral("%1|%2|%3")
                .arg(model->index(row, 0).data().toString(), model->index(row, 1).data().toString(),
                    model->index(row, 2).data().toString()));
        model->setData(model->index(row, 0),
            rows.back().startsWith(QLatin1String("Width")) ? Qt::Checked : Qt::Unchecked,
            Qt::CheckStateRole);
    }
    EXPECT_EQ(rows.join(QLatin1Char(';')).toStdString(),
        "Width|512 px|256 px;ExposureTime|" + exposure + " us|7000 us");
    auto* filter = comparison->findChild<QLineEdit*>(QStringLiteral("settingsFilter"));
    filter->setText(QStringLiteral("exposure"));
    auto* table = comparison->findChild<QTableView*>();
    table->actions().first()->trigger(); // copies
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
        "ExposureTime\t" + exposure + " us\t7000 us\n");
    filter->clear();
    auto* put = comparison->findChild<QPushButton*>(QStringLiteral("putIntoSecond"));
    model->setData(model->index(0, 0), Qt::Unchecked, Qt::CheckStateRole);
    EXPECT_FALSE(put->isEnabled()) << "nothing is chosen";
    model->setData(model->index(0, 0), Qt::Checked, Qt::CheckStateRole);
    put->click();
    EXPECT_TRUE(waitFor([&] { return value("Width") == "512"; }));
    EXPECT_EQ(value("ExposureTime"), "7000") << "was not chosen";

    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QFile::Append));
    damaged.write("Width 640\n");
    damaged.close();
    settings.load(file);
    EXPECT_NE(m_viewer.words().find("a.zqs: line "), std::string::npos) << m_viewer.words();
    EXPECT_EQ(value("ExposureTime"), "7000");
}

/// Each letter of a menu means one thing, in every language.
TEST_F(Desk, MenusAreOperatedByLetters)
{
    for (const char* language : { "en", "de" }) {
        QTranslator words;
        ASSERT_TRUE(
            words.load(QStringLiteral(":/zqviewer/zqviewer_%1").arg(QLatin1String(language))));
        QCoreApplication::installTranslator(&words);
        const Viewer viewer(simulated());
        std::set<const QAction*> offered;
        for (const QMenu* menu : viewer.tree()->window()->findChildren<QMenu*>()) {
            std::set<QString> letters;
            for (const QAction* action : menu->actions()) {
                offered.insert(action);
                const QString letter = QKeySequence::mnemonic(action->text()).toString();
                EXPECT_TRUE(letter.isEmpty() || letters.insert(letter).second)
                    << language << ' ' << action->text().toStdString();
            }
        }
        for (const char* name : { "saveSettings", "loadSettings", "takeBackSettings",
                 "compareSettings", "rememberSettings", "compareRemembered" }) {
            EXPECT_EQ(offered.count(viewer.child<QAction>(name)), 1U) << name;
        }
        const QList<QAction*> bar = viewer.child<QMenuBar>()->actions();
        EXPECT_EQ(bar.size(), 5);
        EXPECT_EQ(bar.first()->text() == QStringLiteral("&File"), *language == 'e');
        QCoreApplication::removeTranslator(&words);
    }
}

TEST(Desks, CamerasOfOneModelAreToldApartAndKeepTheirWordsToThemselves)
{
    zqviewer::CameraWindows windows(featurebrowser::LEVEL_GURU);
    const auto all = [] {
        std::vector<zqviewer::ViewerWindow*> found;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* viewer = qobject_cast<zqviewer::ViewerWindow*>(window)) {
                found.push_back(viewer);
            }
        }
        return found;
    };
    windows.open({});
    ASSERT_TRUE(waitFor([&] { return all().size() == 1; }));
    windows.open({});
    ASSERT_TRUE(waitFor([&] { return all().size() == 2; }));
    std::set<QString> titles;
    for (const auto* window : all()) {
        titles.insert(window->windowTitle().section(QLatin1Char('#'), 1));
        EXPECT_TRUE(window->windowTitle().contains(QStringLiteral("simulated")));
    }
    EXPECT_EQ(titles, (std::set<QString> { QString(), QStringLiteral("2") }));
    const auto lines = [&](int i) {
        return all()[static_cast<std::size_t>(i)]
            ->findChild<QTableView*>(QStringLiteral("log"))
            ->model()
            ->rowCount();
    };
    const int others = lines(1);
    all()[0]->images().live().start(1);
    EXPECT_TRUE(waitFor([&] { return lines(0) > others + 1; }));
    EXPECT_EQ(lines(1), others);
    all()[0]->close();
    EXPECT_TRUE(waitFor([&] { return all().size() == 1; }));
}

} // namespace
