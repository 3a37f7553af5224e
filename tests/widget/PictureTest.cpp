// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "WidgetTest.h"

#include <QAbstractButton>
#include <QImage>
#include <QPaintEvent>
#include <QStyle>
#include <QStyleFactory>

namespace featurebrowser {

namespace {

/// A widget does not take the style that it is given.
void useStyle(QWidget& widget, const char* name)
{
    QStyle* style = QStyleFactory::create(QLatin1String(name));
    style->setParent(&widget);
    widget.setStyle(style);
}

class PaintCounter : public QObject {
public:
    int count = 0;
    QRegion region;

    /// Whether nothing is painted any more, in the end.
    bool rests() const
    {
        return QTest::qWaitFor(
            [this, before = -1]() mutable {
                QTest::qWait(120);
                return std::exchange(before, count) == count;
            },
            20000);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            ++count;
            region += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
};

/// The colours of a light palette, by the letters of the tests.
const std::map<char, QColor> inks { { 'B', Qt::white }, { 'C', "#e2e2e2" }, { 'T', Qt::black },
    { 'D', "#5b5b5b" }, { 'W', QColor::fromHsl(6, 200, 95) }, { 'w', "#f1dbd9" },
    { 'M', "#f7db69" }, { 'H', Qt::blue }, { 'h', Qt::yellow } };

// What is painted: in exact colours, since letters are not smoothed and the palette is known.
class PictureTest : public WidgetTest {
protected:
    PictureTest()
    {
        show();
        QFont font("DejaVu Sans");
        font.setPixelSize(20);
        font.setStyleStrategy(QFont::NoAntialias);
        window()->setFont(font);
        useStyle(*tree(), "windows"); // selects in a plain colour
        usePalette(Qt::white, Qt::black);
        select("GevMACAddress"); // a selected row looks different
    }
    void usePalette(const QColor& base, const QColor& text) const
    {
        QPalette palette = window()->palette();
        for (const auto role : { QPalette::Base, QPalette::AlternateBase, QPalette::Window }) {
            palette.setColor(role, base);
        }
        palette.setColor(QPalette::Text, text);
        palette.setColor(QPalette::Highlight, Qt::blue);
        palette.setColor(QPalette::HighlightedText, Qt::yellow);
        window()->setPalette(palette);
    }
    QImage picture(const std::string& name, int column) const
    {
        tree()->scrollTo(row(name, column));
        QApplication::processEvents();
        return tree()->viewport()->grab(tree()->visualRect(row(name, column))).toImage();
    }
    static QImage picture(QWidget* widget)
    {
        QApplication::processEvents();
        return widget->grab().toImage();
    }

    /// Which of the known colours there are; smoothed signs may have a few dots of any.
    static std::string inksIn(const QImage& image)
    {
        std::map<QRgb, int> dots;
        for (int i = 0; i < image.width() * image.height(); ++i) {
            ++dots[image.pixel(i % image.width(), i / image.width())];
        }
        std::string found;
        for (const auto& [letter, color] : inks) {
            const bool isPaper = QByteArray("BCwMH").contains(letter);
            found += dots[color.rgb()] > (isPaper ? 100 : 0) ? std::string(1, letter) : "";
        }
        return found;
    }
    /// How many stretches of a colour, or of any but the background, there are from left to right.
    static int runs(const QImage& image, const QColor& color = {})
    {
        int count = 0;
        bool wasHere = false;
        for (int x = 0; x < image.width(); ++x) {
            bool isHere = false;
            for (int y = 0; y < image.height(); ++y) {
                const QRgb dot = image.pixel(x, y);
                isHere
                    = isHere || (color.isValid() ? dot == color.rgb() : dot != image.pixel(0, 0));
            }
            count += isHere && !wasHere ? 1 : 0;
            wasHere = isHere;
        }
        return count;
    }
    static QRect drawnIn(const QImage& image)
    {
        QRect drawn;
        for (int i = 0; i < image.width() * image.height(); ++i) {
            const QPoint at(i % image.width(), i / image.width());
            drawn |= image.pixel(at) != image.pixel(0, 0) ? QRect(at, QSize(1, 1)) : QRect();
        }
        return drawn;
    }
    /// A sign in five lines of five places, as far as it reaches.
    static std::string shape(const QImage& image)
    {
        const QRect all = drawnIn(image);
        const QImage sign
            = image.copy(all).scaled(50, 50, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        std::string places;
        for (int i = 0; i < 25; ++i) {
            const QImage place = sign.copy(i % 5 * 10 + 2, i / 5 * 10 + 2, 6, 6);
            int dark = 0;
            for (int at = 0; at < 36; ++at) {
                dark += qGray(place.pixel(at % 6, at / 6)) < 170 ? 1 : 0;
            }
            places += dark > 8 ? '#' : '.';
            places += i % 5 == 4 && i < 24 ? "/" : "";
        }
        return places;
    }
};

} // namespace

TEST_F(PictureTest, EveryStateOfARowHasItsInks)
{
    addSelector("Camera", "Selector", { "A", "B" });
    addInteger("Camera", "Selected", 1, LEVEL_BEGINNER, "Selector");
    const std::map<QString, std::function<void(const QString&)>> happens {
        { "state",
            [this](const QString& is) {
                setStates({ { "ExposureTime", static_cast<FEATURE_STATE>(is.toInt()) } });
            } },
        { "float",
            [this](const QString& is) {
                setFloat("ExposureTime", 5000, 1, 1e6, 0, is[0] == 'r', is.size() == 2);
            } },
        { "choice",
            [this](const QString& is) {
                setChoice(is.mid(2).toStdString(), is.left(1).toUtf8(), { "False", "True" }, true);
            } },
        { "find",
            [this](const QString& is) { child<QWidget>("filterField")->setProperty("text", is); } },
        { "unit",
            [this](const QString&) { browser->setItemDescription("ExposureTime", "in us"); } },
        { "message",
            [this](const QString&) { browser->setDefaultValue("ExposureTime", 5000.0, "no"); } },
        { "select", [this](const QString& is) { select(is.toStdString()); } },
        { "", [](const QString&) {} },
    };
    for (const QStringList& row : table("inks")) {
        happens.at(row[2].section(' ', 0, 0))(row[2].section(' ', 1));
        EXPECT_EQ(inksIn(picture(row[0].toStdString(), row[1].toInt())), row[3].toStdString())
            << row.join('|').toStdString();
    }
    const auto search
        = [&](const char* what) { return [&happens, what] { happens.at("find")(what); }; };
    EXPECT_EQ(runs(picture("ExposureTime", 0), inks.at('M')), 3) << "every hit";
    EXPECT_EQ(inksIn(picture("ReverseX", 0)), "BMT");
    select("ReverseX");
    PaintCounter counter;
    tree()->viewport()->installEventFilter(&counter);
    search("er")();
    search("ers")(); // the same row
    EXPECT_TRUE(QTest::qWaitFor([&] { return counter.count > 0; }));
    tree()->viewport()->removeEventFilter(&counter);
    EXPECT_EQ(inksIn(picture("Camera", 0)), "CT");
    search("e")();
    EXPECT_FALSE(drawnIn(picture(child<QWidget>("filterField"))).isEmpty());
    EXPECT_GT(
        drawnIn(picture("Camera", 0)).width(), tree()->fontMetrics().horizontalAdvance("Camera"))
        << "bold";
    const auto branches = [this](const char* name) {
        const QRect name0 = tree()->visualRect(row(name));
        const QImage all = tree()->viewport()->grab().toImage();
        return inksIn(all.copy(0, name0.top() + 2, 8, name0.height() - 4));
    };
    EXPECT_EQ(branches("PixelFormat"), "B");
    EXPECT_EQ(branches("ExposureTime"), "w");
    select("ExposureTime");
    EXPECT_EQ(branches("Camera")[0], 'C');
    EXPECT_EQ(branches("ExposureTime"), "B");
    const QImage callout = picture(child<QWidget>("messageCallout"));
    EXPECT_EQ(inksIn(callout), "TWw");
    EXPECT_EQ(callout.pixel(0, callout.height() / 2), inks.at('W').rgb()) << "its frame";
    EXPECT_NE(picture("PixelFormat", 0), picture("Width", 0));
}

TEST_F(PictureTest, ADarkPaletteHasItsOwnColours)
{
    browser->setDefaultValue("Width", 640L, "no");
    setStates({ { "ExposureTime", FEATURE_LOCKED } });
    child<QWidget>("filterField")->setProperty("text", "e");
    browser->setDefaultValue("DeviceUserID", 640L, "no");
    usePalette(Qt::black, Qt::white);
    for (const auto& [name, column, color, isThere] :
        { std::tuple("Camera", 0, QColor("#1c1c1c"), true), { "ExposureTime", 1, "#a3a3a3", true },
            { "DeviceUserID", 1, QColor::fromHsl(6, 200, 165), true },
            { "DeviceUserID", 1, inks.at('W'), false }, { "ReverseX", 0, "#806806", true } }) {
        EXPECT_EQ(runs(picture(name, column), color) > 0, isThere)
            << name << color.name().toStdString();
    }
}

TEST_F(PictureTest, SignsBoxesAndButtonsHaveTheirShapes)
{
    const auto sign = [this](const char* name) {
        const QImage cell = picture(name, 1);
        const bool isList = name == std::string("PixelFormat"); // its arrow stands at the value
        const int left
            = isList ? 6 + tree()->fontMetrics().horizontalAdvance("Mono8") : cell.width() - 32;
        return cell.copy(left, 0, 32, cell.height());
    };
    setStates({ { "Width", FEATURE_LOCKED }, { "ExposureTime", FEATURE_NOT_AVAILABLE },
        { "DeviceUserID", FEATURE_READ_FAILED } });
    for (const auto& [name, form] : { std::pair("Width", ".###./.#.#./#####/#####/#####"),
             { "ExposureTime", ".###./#..##/#.#.#/##..#/.###." },
             { "DeviceUserID", "..#../.###./.###./#.#.#/#####" },
             { "PixelFormat", "#...#/##.##/.#.#./..#../..#.." } }) {
        EXPECT_EQ(shape(sign(name)), form) << name;
    }
    EXPECT_TRUE(drawnIn(sign("ReverseX")).isNull()) << "no sign without a reason";
    edit("Width", "32");
    for (const auto& [part, form] : { std::pair("expandButton", "##.##/.###./#.#.#/##.##/..#.."),
             { "collapseButton", "..#../##.##/#.#.#/.###./##.##" },
             { "nextChangeButton", "..#../..#../..#../#####/.###." } }) {
        EXPECT_EQ(shape(picture(child<QWidget>(part))), form) << part;
    }
    auto* button = child<QAbstractButton>("expandButton");
    const QImage plain = picture(button);
    button->setDown(true);
    EXPECT_NE(picture(button), plain);
    button->setDown(false);
    button->setFocus();
    EXPECT_NE(picture(button), plain);

    useStyle(*tree(), "fusion"); // the other draws two of them alike
    const int side = tree()->style()->pixelMetric(QStyle::PM_IndicatorWidth);
    for (const auto& [index, form] : { std::pair("0", "#####/#...#/#...#/#...#/#####BD"),
             { "1", "#####/#..##/#####/###.#/#####BDT" },
             { "2", "#####/#####/#####/#####/#####BD" } }) {
        setChoice("ReverseX", index, { "False", "True" });
        const QImage cell = picture("ReverseX", 1).copy(2, 1, side + 4, 30);
        EXPECT_EQ(shape(cell) + inksIn(cell), form) << index;
    }
}

TEST_F(PictureTest, TextsStandInOneLineAndAreMirroredInTheirPlaceOnly)
{
    for (const char* name : { "A B", "A\nB", "A\tB",
             "A\xE2\x80\xA8"
             "B",
             "A\xE2\x80\xA9"
             "B" }) {
        addInteger("Camera", name);
        EXPECT_EQ(picture(name, 0), picture("A B", 0)) << name;
    }
    addInteger("Camera", "A_B");
    EXPECT_NE(picture("A_B", 0), picture("A B", 0));
    setText("AcquisitionStart", "A&B");
    const QImage button = picture("AcquisitionStart", 1);
    setText("AcquisitionStart", "AB");
    EXPECT_NE(picture("AcquisitionStart", 1), button);
    setText("AcquisitionStart", "A long caption");
    const int advance = tree()->fontMetrics().horizontalAdvance("A long caption");
    EXPECT_GT(drawnIn(picture("AcquisitionStart", 1)).width(), advance);
    EXPECT_GE(drawnIn(button).width(), 5 * tree()->fontMetrics().height() - 2);
    EXPECT_GT(drawnIn(picture("ReverseX", 1)).width(),
        tree()->style()->pixelMetric(QStyle::PM_IndicatorWidth)
            + tree()->fontMetrics().horizontalAdvance("False"));
    browser->setItemDescription("ExposureTime", "Unit: us");
    // Where the ink begins and ends, from the leading edge.
    const auto extent = [this](const char* name, bool isMirrored) {
        const QImage cell = picture(name, 1);
        const QRect drawn = drawnIn(cell);
        return isMirrored ? std::pair(cell.width() - 1 - drawn.right(), drawn.width())
                          : std::pair(drawn.left(), drawn.width());
    };
    const std::vector<const char*> names { "Width", "ExposureTime", "PixelFormat", "ReverseX",
        "AcquisitionStart" };
    std::vector<std::pair<int, int>> before;
    for (const char* name : names) {
        before.push_back(extent(name, false));
        EXPECT_LT(before.back().first, 8) << name;
    }
    window()->setLayoutDirection(Qt::RightToLeft);
    QApplication::processEvents();
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto now = extent(names[i], true);
        EXPECT_LE(std::abs(now.first - before[i].first), 4) << names[i];
        EXPECT_LE(std::abs(now.second - before[i].second), 4) << names[i];
    }
    const QRect cell = tree()->visualRect(row("ReverseX", 1));
    QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_TRUE(journal.take().empty());
    QTest::mouseClick(
        tree()->viewport(), Qt::LeftButton, {}, QPoint(cell.right() - 10, cell.center().y()));
    EXPECT_EQ(journal.take(), Lines { "Bool ReverseX 1" });
    browser->setDefaultValue("Width", 640L, "no");
    window()->resize(1800, 700);
    EXPECT_NE(message(), "");
    EXPECT_LT(child<QWidget>("messageCallout")->geometry().center().x(), 900);
    window()->setLayoutDirection(Qt::LeftToRight);
    EXPECT_NE(message(), "");
    EXPECT_GT(child<QWidget>("messageCallout")->x(), 100);
}

TEST_F(PictureTest, AWrittenValueIsMarkedForAWhile)
{
    journal.answer = [this](const std::string&) {
        setInteger("Width", 512);
        setChoice("PixelFormat", "1", { "A", "B" });
    };
    select("ExposureTime");
    const QImage follower = picture("PixelFormat", 0);
    const QImage plain = picture("Width", 0);
    edit("Width", "512");
    select("ExposureTime");
    const QImage marked = picture("Width", 0);
    EXPECT_EQ(inksIn(marked), "T");
    EXPECT_GT(qBlue(marked.pixel(0, 2)), qRed(marked.pixel(0, 2)));
    EXPECT_NE(picture("PixelFormat", 0), follower);
    PaintCounter counter;
    tree()->viewport()->installEventFilter(&counter);
    EXPECT_TRUE(QTest::qWaitFor([&] { return counter.count > 3; }, 20000)) << "it fades";
    tree()->viewport()->removeEventFilter(&counter);
    EXPECT_TRUE(QTest::qWaitFor([&] { return picture("Width", 0) == plain; }, 20000));
    tree()->viewport()->installEventFilter(&counter);
    EXPECT_TRUE(counter.rests()) << "in the end";
}

TEST_F(PictureTest, AnUpdatePaintsItsRowOnly)
{
    PaintCounter counter;
    tree()->viewport()->installEventFilter(&counter);
    EXPECT_TRUE(counter.rests());
    counter.count = 0;
    counter.region = {};
    const QRect changed = tree()->visualRect(row("ReverseX"));
    setChoice("ReverseX", "1", { "A", "B" });
    EXPECT_TRUE(QTest::qWaitFor([&] { return counter.count > 0; }));
    EXPECT_EQ(counter.region.boundingRect(),
        QRect(0, changed.top(), tree()->viewport()->width(), changed.height()));
}

TEST_F(PictureTest, PinsStandInLineAndAreDimWhenNotHeldNow)
{
    const QByteArrayList names { "Width", "ExposureTime" };
    window()->setProperty("pinnedFeatures", QVariant::fromValue(names));
    std::vector<QWidget*> pins;
    for (QWidget* graph : child<QWidget>("pinStrip")->findChildren<QWidget*>("graph")) {
        pins.push_back(graph->parentWidget());
    }
    const auto value = [&] { // as wide as in the tree
        const QRect cell = tree()->visualRect(row("Width", 1));
        return picture(pins[0]).copy(cell.left() + 1, 2, cell.width(), pins[0]->height() - 5);
    };
    for (const auto state :
        { FEATURE_NOT_AVAILABLE, FEATURE_LOCKED, FEATURE_READ_FAILED, FEATURE_AVAILABLE }) {
        setStates({ { "Width", state } });
        const bool isHeld = state == FEATURE_LOCKED || state == FEATURE_AVAILABLE;
        EXPECT_EQ(inksIn(value().copy(0, 0, 60, 30)), isHeld ? "BT" : "BD") << state;
        EXPECT_EQ(pins[0]->toolTip().toStdString(), said("Width"));
    }
    for (const int width : { 200, 333 }) {
        tree()->setColumnWidth(0, width);
        for (const auto direction : { Qt::RightToLeft, Qt::LeftToRight }) {
            window()->setLayoutDirection(direction);
            const QRect above = drawnIn(value());
            const QRect below = drawnIn(picture("Width", 1));
            const bool isMirrored = direction == Qt::RightToLeft;
            const int off
                = isMirrored ? above.right() - below.right() : above.left() - below.left();
            EXPECT_LE(std::abs(off), 2) << width;
        }
    }
    PaintCounter counter;
    pins[1]->installEventFilter(&counter);
    EXPECT_TRUE(counter.rests());
    counter.count = 0;
    setInteger("Width", 16);
    EXPECT_TRUE(counter.rests());
    EXPECT_EQ(counter.count, 0) << "of another pin";
    browser->clearFeatureItems();
    EXPECT_EQ(inksIn(picture(pins[0]).copy(tree()->columnWidth(0), 0, 60, 30)), "BD");
}

TEST_F(PictureTest, ALineOfValuesShowsHowTheyWent)
{
    window()->setProperty("pinnedFeatures",
        QVariant::fromValue(
            QByteArrayList { "Width", "PixelFormat", "DeviceUserID", "ExposureTime" }));
    std::map<QString, QWidget*> lines;
    for (QWidget* part : child<QWidget>("pinStrip")->findChildren<QWidget*>()) {
        lines[part->accessibleName()] = part;
    }
    QWidget* line = lines["Recent values of Width"];
    ASSERT_NE(line, nullptr);
    heldTime.emplace();
    picture(line); // until every part has its place
    const auto graph = [&] { // without the words beside it
        const int end = line->width() - 7 * line->fontMetrics().averageCharWidth();
        return picture(line).copy(0, 0, end, line->height());
    };
    const auto drawn = [&](long first, long step, bool flag) {
        for (int i = 0; i < 150; ++i) {
            setInteger("Width", first + i * step, 0, 4096, 1, false, flag);
            *heldTime += std::chrono::milliseconds(100);
        }
        return graph();
    };
    const QImage blank = drawn(5, 0, false);
    const QImage flat = drawn(5, 0, true);
    const QImage rising = drawn(0, 2, true);
    const QImage falling = drawn(300, -2, true);
    EXPECT_TRUE(drawnIn(blank).isNull());
    EXPECT_EQ(blank, drawn(9, 1, false)) << "no value, no line";
    EXPECT_EQ(flat, drawn(9, 0, true));
    EXPECT_EQ(rising, drawn(7, 9, true)) << "as high as there is room";
    EXPECT_LT(drawnIn(flat).height(), 8);
    EXPECT_LT(std::abs(drawnIn(flat).center().y() - line->height() / 2), 3);
    const auto ends = [](const QImage& image) {
        const auto middle = [&](int x) { return drawnIn(image.copy(x, 0, 3, image.height())); };
        return middle(4).center().y() - middle(image.width() - 8).center().y();
    };
    EXPECT_GT(ends(rising), line->height() / 2);
    EXPECT_LT(ends(falling), -line->height() / 2);
    for (int i = 0; i < 30; ++i) {
        setInteger("Width", 1, 0, 4096, 1, false, i % 20 > 9);
        *heldTime += std::chrono::milliseconds(100);
    }
    EXPECT_EQ(runs(graph()), 2) << "a gap";
    for (const char* index : { "0", "1", "0" }) {
        setChoice("PixelFormat", index, { "A", "B" });
        setText("DeviceUserID", index);
        setFloat("ExposureTime", index[0]);
    }
    EXPECT_GT(drawnIn(picture(lines["Recent values of ExposureTime"])).height(), 8);
    EXPECT_GT(drawnIn(picture(lines["Recent values of PixelFormat"])).height(), 8);
    EXPECT_TRUE(drawnIn(picture(lines["Recent values of DeviceUserID"])).isNull());
}

// Without the focus a field shows no cursor.
TEST_F(PictureTest, AnEditorOpensWithTextAndUnitWhereTheyWere)
{
    setText("GevMACAddress", "00:00:00:00:00:01");
    for (const char* name : { "Width", "ExposureTime" }) {
        browser->setItemDescription(name, "Unit: ms");
    }
    for (const int size : { 12, 13, -20 }) { // below 0: from right to left
        window()->setLayoutDirection(size < 0 ? Qt::RightToLeft : Qt::LeftToRight);
        const auto place = [size](const QImage& cell, const QColor& color) {
            const QImage seen = size < 0 ? cell.mirrored(true, false) : cell;
            const int reach = cell.width() * 2 / 5; // nothing else is there
            QRect drawn;
            for (int i = 0; i < reach * cell.height(); ++i) {
                const QPoint at(i % reach, i / reach);
                drawn |= seen.pixel(at) == color.rgb() ? QRect(at, QSize(1, 1)) : QRect();
            }
            return drawn;
        };
        const auto isNear = [size](const QRect& a, const QRect& b) { // letters have parts of dots
            const QPoint off = a.topLeft() - b.topLeft();
            return size > 0 ? a == b : std::abs(off.x()) <= 1 && off.y() == 0;
        };
        QFont font = window()->font();
        font.setPixelSize(std::abs(size));
        window()->setFont(font);
        for (const char* name : { "Width", "ExposureTime", "DeviceUserID", "GevMACAddress" }) {
            select("Camera");
            usePalette(Qt::white, Qt::black);
            const QImage closed = picture(name, 1);
            open(name);
            press(Qt::Key_Home);
            child<QWidget>("filterField")->setFocus(Qt::PopupFocusReason);
            const QImage opened = picture(name, 1);
            EXPECT_TRUE(isNear(place(opened, Qt::black), place(closed, Qt::black))) << name << size;
            const QRect unit = place(closed, "#5b5b5b");
            EXPECT_EQ(unit.isEmpty(), name[0] == 'D' || name[0] == 'G');
            EXPECT_TRUE(isNear(place(opened, "#5b5b5b"), unit)) << name << size;
            usePalette(Qt::black, Qt::white);
            EXPECT_TRUE(isNear(place(picture(name, 1), "#a3a3a3"), unit)) << "follows the palette";
        }
    }
}

} // namespace featurebrowser
