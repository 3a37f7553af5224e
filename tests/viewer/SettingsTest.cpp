// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Viewer.h"

#include "settings/SettingsMenu.h"
#include "settings/ShownSettings.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QTableView>
#include <QTemporaryDir>

namespace {

TEST(ShownSettings, AreWhatCanBeWrittenBack)
{
    std::string error;
    zqviewer::OpenedCamera camera(zqcameralib::ZQCamera::OpenSimulated(error));
    ASSERT_EQ(camera.repository().Load(), 0);
    const zqcameralib::ZQSettings settings = zqviewer::shownSettings(camera);
    for (const auto& [label, value] : { std::pair("Width", "512"), { "PixelFormat", "Mono8" },
             { "ReverseX", "False" }, { "Gain[GainSelector=All]", "0" } }) {
        const zqcameralib::ZQSettingsLine* line = settings.find(label);
        EXPECT_EQ(line == nullptr ? "(none)" : line->value, value) << label;
    }
    for (const char* none : { "ImageFormatControl", "UserSetLoad", "GainSelector",
             "GevPersistentIPAddress", "DeviceModelName" }) {
        EXPECT_EQ(settings.find(none), nullptr) << none;
    }
}

TEST(RestoredSettings, AreListedWithTheReasonWhereTheyDoNotHold)
{
    std::string error;
    const Viewer viewer(zqcameralib::ZQCamera::OpenSimulated(error));
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("a.zqs")));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("[camera settings 1]\nvendor = V\nmodel = M\n[lines]\nWidth = 9\nHeight = 512\n"
               "None = 1\nExposureTime = 7000\n[end]\n");
    file.close();
    viewer.child<zqviewer::SettingsMenu>()->work().load(file.fileName());
    const auto window = [&viewer] { return viewer.child<QDialog>("restoreReport"); };
    ASSERT_TRUE(waitFor([&window] { return window() != nullptr && window()->isVisible(); }));
    const auto* table = window()->findChild<QTableView*>();
    const auto rows = [table] {
        QStringList all;
        for (int row = 0; row < table->model()->rowCount(); ++row) {
            QStringList cells;
            for (const int column : { 0, 1, 2, 3, 4, 5 }) {
                cells.append(table->model()->index(row, column).data().toString());
            }
            all.append(cells.join(QLatin1Char('|')));
        }
        return all.join(QLatin1Char('\n')).toStdString();
    };
    EXPECT_EQ(rows(),
        "Width|9|512|512|refused|9 is not a multiple of 8 from 8\n"
        "None|1|||unknown here|the camera has no such feature");
    window()->findChild<QCheckBox*>()->click();
    EXPECT_EQ(table->model()->rowCount(), 4);
    QStringList words;
    for (const QLabel* label : window()->findChildren<QLabel*>()) {
        words.append(label->text());
    }
    EXPECT_EQ(words.join(QLatin1Char('\n')).toStdString(),
        "1 restored, 1 already so, 1 refused, 1 unknown here\n"
        "\u26A0 the settings are of another model: V M, here ZQ AreaScan2K");
}

} // namespace
