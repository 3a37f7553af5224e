// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// What the viewer does with images, without its window.
#include "Viewer.h"

#include "images/FrameRecorder.h"
#include "images/RegionOfInterest.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <tuple>

namespace {

TEST(Recorder, NamesWhatIsMissingAndWhatCannotBeWritten)
{
    const std::uint8_t pixel = 0;
    featurebrowser::ZQFrame frame;
    frame.data = &pixel;
    frame.size = 1;
    frame.width = frame.height = 1;
    frame.pixelFormat = 0x01080001;
    const auto recorded = [&frame](const QString& folder, const char* suffix) {
        zqviewer::FrameRecorder recorder(folder, QLatin1String(suffix));
        for (const std::uint64_t id : { 65534U, 65535U, 2U, 5U, 1U }) { // 16 bits, and started anew
            frame.frameId = id;
            recorder.add(frame, { { "Text", "a,\"b\"", "m" } });
        }
        recorder.end();
        EXPECT_TRUE(waitFor([&recorder] { return recorder.isDone(); }));
        return recorder.figures();
    };
    const QTemporaryDir folder;
    const auto good = recorded(folder.path(), "png");
    EXPECT_EQ(good.problem, QString());
    EXPECT_EQ(std::tuple(good.written, good.missing, good.unwritten), std::tuple(5U, 3U, 0U));
    QFile index(folder.filePath(QStringLiteral("index.csv")));
    ASSERT_TRUE(index.open(QFile::ReadOnly));
    EXPECT_EQ(index.readAll().toStdString(),
        "file,frame id,camera time in ns,computer time in ns,Text in m\n"
        "image-000001.png,65534,0,0,\"a,\"\"b\"\"\"\n"
        "image-000002.png,65535,0,0,\"a,\"\"b\"\"\"\n"
        "not received,1-1,,\n"
        "image-000003.png,2,0,0,\"a,\"\"b\"\"\"\n"
        "not received,3-4,,\n"
        "image-000004.png,5,0,0,\"a,\"\"b\"\"\"\n"
        "image-000005.png,1,0,0,\"a,\"\"b\"\"\"\n");
    for (const auto& [place, suffix] :
        { std::pair(folder.filePath(QStringLiteral("none")), "png"), { folder.path(), "txt" } }) {
        const auto bad = recorded(place, suffix);
        EXPECT_TRUE(bad.problem.startsWith(QStringLiteral("Cannot write"))) << suffix;
        EXPECT_EQ(std::tuple(bad.written, bad.unwritten), std::tuple(0U, 5U)) << suffix;
    }
}

/// From any region to any other, without a refusal on the way.
TEST(Region, GrowsAndShrinksInTheOrderThatTheCameraTakes)
{
    std::string error;
    zqviewer::OpenedCamera camera(zqcameralib::ZQCamera::OpenSimulated(error));
    ASSERT_EQ(camera.repository().Load(), 0);
    zqviewer::RegionOfInterest region(camera);
    ASSERT_EQ(region.selectAll(), QString());
    long width = 0;
    long height = 0;
    camera.device().GetIntegerValue("Width", &width);
    camera.device().GetIntegerValue("Height", &height);
    const int w = static_cast<int>(width);
    const int h = static_cast<int>(height);
    for (const QRect& wanted : { QRect(w - 64, h - 64, 64, 64), QRect(0, 0, 64, 64),
             QRect(w / 2, 0, w / 2, h), QRect(0, h / 2, w, h / 2), QRect(64, 64, w - 128, 64) }) {
        ASSERT_EQ(region.select(wanted), QString());
        EXPECT_EQ(region.words(),
            QStringLiteral("%1 \u00D7 %2 at (%3, %4)")
                .arg(wanted.width())
                .arg(wanted.height())
                .arg(wanted.left())
                .arg(wanted.top()));
        ASSERT_EQ(region.selectAll(), QString()) << "pixels count from the present region";
    }
    EXPECT_TRUE(region.isOfSize({ w, h }));
    EXPECT_FALSE(region.isOfSize({ w, h - 1 }));
    camera.device().ExecuteCommand("AcquisitionStart", 0); // locks it
    EXPECT_TRUE(
        region.select({ 0, 0, 64, 64 }).startsWith(QStringLiteral("Width cannot be set: ")));
}

} // namespace
