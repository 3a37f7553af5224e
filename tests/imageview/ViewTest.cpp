// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "TestImages.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <vector>

namespace featurebrowser {

namespace {

class ViewTest : public ::testing::Test {
protected:
    void show(const ZQImage& image, const QSize& size)
    {
        view.resize(size);
        view.setImage(image);
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    }
    void wheel(const QPoint& at, int eighths)
    {
        QWheelEvent event(at, view.mapToGlobal(at), {}, { 0, eighths }, Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view, &event);
    }
    void drag(
        Qt::MouseButton button, Qt::KeyboardModifiers keys, const QPoint& from, const QPoint& to)
    {
        QTest::mousePress(&view, button, keys, from);
        moveTo((from + to) / 2, button);
        moveTo(to, button);
        QTest::mouseRelease(&view, button, keys, to);
    }
    void moveTo(const QPoint& at, Qt::MouseButton held = Qt::NoButton)
    {
        QMouseEvent event(
            QEvent::MouseMove, at, view.mapToGlobal(at), Qt::NoButton, held, Qt::NoModifier);
        QApplication::sendEvent(&view, &event);
    }
    QPoint centreOf(const QPoint& pixel) const { return view.rectOf(pixel).center().toPoint(); }

    /// Every pixel of the screen shows the image's pixel that is said to be there.
    void checkPicture(const QImage& image)
    {
        const QImage shown = view.grab().toImage();
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                const QPoint at = view.pixelAt({ x, y });
                const QRgb expected = image.valid(at) ? image.pixel(at) : qRgb(0x20, 0x20, 0x20);
                // What half a pixel covers is neither the one's nor the other's.
                const bool isEdge = !image.rect().adjusted(1, 1, -1, -1).contains(at)
                    && image.rect().adjusted(-1, -1, 1, 1).contains(at);
                if (!isEdge || view.zoom() == 8) {
                    ASSERT_EQ(expected, shown.pixel(x, y)) << x << "," << y << " " << view.zoom();
                }
            }
        }
    }

    ZQImageView view;
};

TEST_F(ViewTest, DimsAnOutdatedPictureUntilTheNextOne)
{
    view.setOutdated(QStringLiteral("nothing to be seen"));
    EXPECT_EQ(view.outdated(), QString());
    show(colourfulImage(90, 60), { 180, 120 });
    const QImage live = view.grab().toImage();
    const QImage saved = view.toImage();
    view.setOutdated(QStringLiteral("old"));
    const QImage old = view.grab().toImage();
    for (const QPoint at : { QPoint(5, 5), QPoint(90, 60), QPoint(170, 10) }) {
        // Three eighths of the picture over five of the dark ground.
        EXPECT_NEAR(qRed(old.pixel(at)), (qRed(live.pixel(at)) * 3 + 0x20 * 5) / 8, 2);
    }
    EXPECT_NE(old.copy(60, 90, 60, 30), live.copy(60, 90, 60, 30));
    EXPECT_EQ(view.toImage(), saved);
    view.setImage(colourfulImage(90, 60));
    EXPECT_EQ(view.outdated(), QString());
    EXPECT_EQ(view.grab().toImage(), live);
}

TEST_F(ViewTest, ShowsEachPixelWhereItSaysWhicheverWayItIsTurned)
{
    const ZQImage image = colourfulImage(90, 60);
    const QImage whole = convertImage(image);
    show(image, { 80, 70 });
    const std::vector<QPoint> topLeft = { { 0, 0 }, { 0, 59 }, { 89, 59 }, { 89, 0 } };
    const std::vector<QPoint> topRight = { { 89, 0 }, { 0, 0 }, { 0, 59 }, { 89, 59 } };
    for (int turns = 0; turns < 4; ++turns) {
        for (int flip = 0; flip < 4; ++flip) {
            view.setQuarterTurns(turns);
            view.setFlipped(flip & 1, flip & 2);
            view.fitToWindow();
            checkPicture(whole);
            view.setZoom(8);
            checkPicture(whole);
            drag(Qt::MiddleButton, {}, { 2000, 2000 }, { 0, 0 });
            checkPicture(whole);
            EXPECT_TRUE(whole.valid(view.pixelAt({ 40, 35 }))) << "not dragged away";
            drag(Qt::MiddleButton, {}, { 0, 0 }, { 2000, 2000 });
            checkPicture(whole);
            EXPECT_TRUE(whole.valid(view.pixelAt({ 40, 35 }))) << "not dragged away";
            if (flip < 2) {
                const QRectF picture = view.rectOf({ 0, 0 }) | view.rectOf({ 89, 59 });
                const QPoint corner = (flip ? topRight : topLeft)[static_cast<std::size_t>(turns)];
                EXPECT_EQ(picture.topLeft(), view.rectOf(corner).topLeft());
            }
        }
    }
}

TEST_F(ViewTest, ShowsTheColoursOfBayerImagesWhateverTheZoom)
{
    constexpr QRgb colour = qRgb(10, 50, 90);
    for (int phase = 0; phase < 4; ++phase) {
        const ZQImage bytes = bayerImage(phase, 41, 41, [](int, int) { return colour; });
        for (const ZQImage& image : { bytes, widened(bytes) }) {
            for (const int width : { 4, 20, 41, 100 }) {
                show(image, { width, width });
                const QImage shown = view.grab().toImage();
                for (int i = 0; i < width * width; ++i) {
                    ASSERT_EQ(colour, shown.pixel(i % width, i / width)) << phase << " " << width;
                }
            }
        }
    }
}

TEST_F(ViewTest, ShowsTheCellOfABayerImageThatIsAtItsPlace)
{
    const auto redOf = [](int x) { return 10 + x / 2 * 6; };
    const auto scene = [&](int x, int) { return qRgb(redOf(x), 50, 90); };
    for (int phase = 0; phase < 4; ++phase) {
        for (const int width : { 4, 20, 37 }) { // cells that are far apart, and near
            show(bayerImage(phase, 41, 41, scene), { width, width });
            for (const bool isFlipped : { false, true }) {
                view.setFlipped(isFlipped, false);
                const QImage shown = view.grab().toImage();
                for (int x = 0; x < width; ++x) {
                    const int at = std::min(view.pixelAt({ x, 2 }).x(), 39);
                    ASSERT_EQ(qRgb(redOf(at), 50, 90), shown.pixel(x, 2)) << phase << " " << x;
                }
            }
        }
    }
}

TEST_F(ViewTest, ZoomsAboutTheMouse)
{
    show(colourfulImage(200, 200), { 300, 200 });
    for (const QPoint& at : { QPoint(60, 10), QPoint(150, 100), QPoint(240, 190) }) {
        view.fitToWindow();
        const QPoint pixel = view.pixelAt(at);
        wheel(at, 60); // half a step
        EXPECT_TRUE(view.isFittedToWindow());
        wheel(at, 60);
        EXPECT_EQ(1.5, view.zoom());
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(pixel, view.pixelAt(at)) << view.zoom();
            wheel(at, 120);
        }
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(pixel, view.pixelAt(at)) << view.zoom();
            wheel(at, -120);
        }
    }
}

TEST_F(ViewTest, ObeysItsKeys)
{
    show(colourfulImage(200, 100), { 100, 100 });
    struct Row {
        Qt::Key key;
        double zoom;
        QPoint topLeft;
    };
    const std::vector<Row> keys = { { Qt::Key_1, 1, { 50, 0 } }, { Qt::Key_Plus, 1.5, { 67, 17 } },
        { Qt::Key_Minus, 1, { 50, 0 } }, { Qt::Key_Right, 1, { 63, 0 } },
        { Qt::Key_Left, 1, { 50, 0 } }, { Qt::Key_0, 0.5, { 1, -49 } } };
    QSignalSpy zooms(&view, &ZQImageView::zoomChanged);
    for (const auto& row : keys) {
        QTest::keyClick(&view, row.key);
        EXPECT_EQ(row.zoom, view.zoom());
        EXPECT_EQ(row.topLeft, view.pixelAt({ 0, 0 })) << row.key;
    }
    EXPECT_EQ(4, zooms.count());
    view.resize(200, 200);
    EXPECT_EQ(1, view.zoom()); // fitted again
    EXPECT_EQ(Qt::StrongFocus, view.focusPolicy());
    view.setZoom(2);
    for (int i = 0; i < 8; ++i) {
        QTest::keyClick(&view, Qt::Key_Right);
    }
    EXPECT_EQ(199, view.pixelAt({ 199, 99 }).x()); // no further
    view.resize(300, 200);
    EXPECT_EQ(199, view.pixelAt({ 299, 99 }).x()); // no gap where the view grows
}

TEST_F(ViewTest, SaysWhyThereIsNoPicture)
{
    show({}, { 300, 100 });
    const QImage shown = view.grab().toImage();
    QImage ground = shown;
    ground.fill(qRgb(0x20, 0x20, 0x20));
    EXPECT_NE(ground, shown);
}

TEST_F(ViewTest, SelectsARegionInTheImagesPixels)
{
    show(colourfulImage(90, 60), { 200, 150 });
    QSignalSpy selected(&view, &ZQImageView::regionSelected);
    for (int turns = 0; turns < 4; ++turns) {
        view.setQuarterTurns(turns);
        view.setFlipped(turns % 2 != 0, turns > 1);
        view.setZoom(6);
        const QRect expected(QPoint(40 + turns, 25), QPoint(52, 33));
        drag(Qt::LeftButton, Qt::ShiftModifier, centreOf(expected.bottomLeft()),
            centreOf(expected.topRight()));
        EXPECT_EQ(expected, view.region());
        EXPECT_EQ(expected, selected.takeLast().at(0).toRect());
    }
    const QRect before = view.region();
    QTest::mousePress(&view, Qt::LeftButton, Qt::ShiftModifier, centreOf(before.topLeft()));
    QTest::mousePress(&view, Qt::MiddleButton, {}, { 9, 9 }); // does not take it over
    QMouseEvent release(QEvent::MouseButtonRelease, QPoint(9, 9), view.mapToGlobal(QPoint(9, 9)),
        Qt::MiddleButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&view, &release);
    moveTo(centreOf(before.center()), Qt::LeftButton);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, centreOf(before.center()));
    EXPECT_EQ(QRect(before.topLeft(), before.center()), view.region());
    drag(Qt::LeftButton, Qt::ShiftModifier, centreOf(before.topLeft()),
        centreOf(before.bottomRight()));
    selected.clear();
    QTest::mouseClick(&view, Qt::LeftButton, Qt::ShiftModifier, { 9, 9 });
    QTest::mousePress(&view, Qt::LeftButton, Qt::ShiftModifier, { 9, 9 });
    moveTo({ 90, 90 }, Qt::LeftButton);
    QTest::keyClick(&view, Qt::Key_Escape);
    QTest::mouseRelease(&view, Qt::LeftButton, Qt::ShiftModifier, { 90, 90 });
    EXPECT_EQ(before, view.region()); // neither a click nor what was given up
    EXPECT_EQ(0, selected.count());
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_TRUE(view.region().isNull());
    EXPECT_TRUE(selected.takeLast().at(0).toRect().isNull());
}

TEST_F(ViewTest, ClipsARegionToTheImage)
{
    show(colourfulImage(90, 60), { 200, 200 });
    drag(Qt::LeftButton, Qt::ShiftModifier, { 1, 1 }, centreOf({ 9, 4 }));
    EXPECT_EQ(QRect(0, 0, 10, 5), view.region());
    view.setImage(colourfulImage(8, 3));
    EXPECT_EQ(QRect(0, 0, 8, 3), view.region());
}

TEST_F(ViewTest, TellsTheValueUnderTheMouse)
{
    // BayerRG10p: R 1, G 1023 in the first line, G 512, B 0 in the second one.
    show(testImage(0x010A0058, 2, 2, QByteArray::fromHex("01FC0F2000")), { 200, 100 });
    QSignalSpy hovered(&view, &ZQImageView::pixelHovered);
    struct Row {
        QPoint at;
        QPoint pixel;
        const char* text;
    };
    const std::vector<Row> moves
        = { { centreOf({ 1, 0 }), { 1, 0 }, "G 1023" }, { centreOf({ 0, 1 }), { 0, 1 }, "G 512" },
              { { 5, 50 }, { -1, -1 }, "" }, { centreOf({ 0, 0 }), { 0, 0 }, "R 1" } };
    for (const auto& row : moves) {
        moveTo(row.at);
        ASSERT_EQ(1, hovered.count());
        const QList<QVariant> said = hovered.takeFirst();
        EXPECT_EQ(row.pixel, said.at(0).toPoint());
        EXPECT_EQ(row.text, said.at(1).toString().toStdString());
    }
    view.setImage(testImage(0x01080001, 2, 2, QByteArray(4, '\x07')));
    EXPECT_EQ("7", hovered.takeFirst().at(1).toString().toStdString());
}

TEST_F(ViewTest, MarksWhatIsTooBright)
{
    show(testImage(0x01100005, 2, 1, QByteArray::fromHex("FF0FFE0F")), { 20, 10 });
    for (const bool isMarked : { true, false }) {
        view.setOverexposureShown(isMarked);
        const QImage shown = view.grab().toImage();
        EXPECT_EQ(isMarked ? qRgb(255, 0, 0) : qRgb(255, 255, 255), shown.pixel(5, 5));
        EXPECT_EQ(qRgb(255, 255, 255), shown.pixel(15, 5));
    }
    view.setOverexposureShown(true);
    for (const QRgb colour : { qRgb(255, 1, 1), qRgb(1, 255, 1), qRgb(1, 1, 255) }) {
        for (const int width : { 4, 20 }) { // cells that are far apart, and near
            const auto scene = [&](int, int) { return colour; };
            show(widened(bayerImage(1, 41, 41, scene)), { width, width });
            EXPECT_EQ(qRgb(255, 0, 0), view.grab().toImage().pixel(2, 2)) << width;
        }
    }
}

/// An image whose bytes are all its number, gone when the call that gets it returns.
void postNumber(ZQImageView& view, int number)
{
    std::vector<std::uint8_t> bytes(4096, static_cast<std::uint8_t>(number));
    ZQImage image;
    image.data = bytes.data();
    image.size = bytes.size();
    image.width = image.height = 64;
    image.pixelFormat = 0x01080001;
    image.frameId = static_cast<std::uint64_t>(number);
    view.post(image);
    std::fill(bytes.begin(), bytes.end(), std::uint8_t { 0 });
}

TEST_F(ViewTest, KeepsOnlyTheNewestOfWhatIsPosted)
{
    show(colourfulImage(8, 8), { 64, 64 });
    std::thread([this] {
        for (int i = 1; i <= 20; ++i) {
            postNumber(view, i);
        }
    }).join();
    EXPECT_EQ(19U, view.replacedFrames());
    QTest::qWait(0);
    EXPECT_EQ(20U, view.image().frameId);
    EXPECT_EQ(qRgb(20, 20, 20), view.grab().toImage().pixel(32, 32));
    postNumber(view, 21);
    view.setImage(colourfulImage(8, 8));
    QTest::qWait(0);
    EXPECT_EQ(8, view.image().width); // not what had been posted before
    EXPECT_EQ(20U, view.replacedFrames());
}

TEST_F(ViewTest, ShowsWholeImagesInTheirOrderWhilstTheyArePosted)
{
    constexpr std::uint64_t last = 500;
    show(colourfulImage(8, 8), { 64, 64 });
    std::uint64_t before = 0;
    bool isWhole = true;
    QObject::connect(&view, &ZQImageView::imageChanged, &view, [&] {
        const ZQImage image = view.image();
        const auto number = static_cast<std::uint8_t>(image.frameId);
        isWhole = isWhole && image.frameId > before
            && std::all_of(image.data, image.data + image.size,
                [number](std::uint8_t byte) { return byte == number; });
        before = image.frameId;
    });
    std::thread poster([this] {
        for (std::uint64_t i = 1; i <= last; ++i) {
            postNumber(view, static_cast<int>(i));
        }
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return before == last; }, 20000));
    poster.join();
    EXPECT_TRUE(isWhole);
    EXPECT_LT(view.replacedFrames(), last);
}

} // namespace

} // namespace featurebrowser
