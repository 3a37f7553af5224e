#include "WidgetTest.h"

#include <QImage>
#include <QLineEdit>

namespace featurebrowser {

namespace {

class PaintCounter : public QObject {
public:
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

// What is painted, compared with what else could have been.
class PictureTest : public WidgetTest {
protected:
    PictureTest()
    {
        show();
        select("GevMACAddress"); // a selected row looks different
    }
    QImage picture(const std::string& name, int column) const
    {
        QApplication::processEvents();
        return tree()->viewport()->grab(tree()->visualRect(row(name, column))).toImage();
    }
    static QImage picture(QWidget* widget) { return widget->grab().toImage(); }

    /// In how many places two pictures differ inside, when one may stand a pixel beside the other.
    static int difference(const QImage& a, const QImage& b)
    {
        int least = a.width() * a.height();
        for (int shift = 0; shift < 9; ++shift) {
            const QImage moved = b.copy(b.rect().translated(shift % 3 - 1, shift / 3 - 1));
            int count = 0;
            for (int i = 0; i < (a.width() - 4) * (a.height() - 4); ++i) {
                const QPoint at(2 + i % (a.width() - 4), 2 + i / (a.width() - 4));
                count += std::abs(qGray(a.pixel(at)) - qGray(moved.pixel(at))) > 64 ? 1 : 0;
            }
            least = std::min(least, count);
        }
        return least;
    }
};

} // namespace

TEST_F(PictureTest, EveryStateOfARowLooksDifferent)
{
    browser->addEnumFeature("Camera", "Selector", 0, { "A", "B" }, LEVEL_BEGINNER, false, false,
        true, SELECTOR_SELECTOR, "");
    const auto state = [this](FEATURE_STATE is) {
        return [=] { setStates({ { "ExposureTime", is } }); };
    };
    const auto number = [this](bool readOnly, bool flag) {
        return [=] { setFloat("ExposureTime", 5000.0, 1, 1e6, 0, readOnly, flag); };
    };
    const auto choice = [this](const char* name, const char* index, bool readOnly) {
        return [=] { setChoice(name, index, { "False", "True" }, readOnly); };
    };
    const auto find = [this](const char* what) {
        return [this, what] { child<QLineEdit>("filterField")->setText(what); };
    };
    struct Case {
        const char* name;
        int column;
        std::vector<std::function<void()>> looks;
    };
    const std::vector<Case> cases {
        { "ExposureTime", 1,
            { number(false, true), number(true, true), number(false, false), number(true, false),
                number(false, true), state(FEATURE_LOCKED), state(FEATURE_NOT_AVAILABLE),
                state(FEATURE_READ_FAILED), state(FEATURE_AVAILABLE), find("00"), find("500"),
                find(""), [this] { browser->setItemDescription("ExposureTime", "Unit: us"); },
                [this] { browser->setDefaultValue("ExposureTime", 5000.0, "no"); } } },
        { "ExposureTime", 0,
            { find(""), find("Expo"), find("Time"), state(FEATURE_NOT_AVAILABLE) } },
        { "ReverseX", 1,
            { find(""), choice("ReverseX", "1", false), choice("ReverseX", "2", false),
                choice("ReverseX", "1", true), choice("ReverseX", "0", true) } },
        { "PixelFormat", 1,
            { find(""), choice("PixelFormat", "0", false), choice("PixelFormat", "0", true) } },
        { "Selector", 0,
            { find(""),
                [this] { addInteger("Camera", "Selected", 1, LEVEL_BEGINNER, "Selector"); } } },
        { "Selected", 0, { find(""), choice("Selector", "1", false) } },
        { "AcquisitionStart", 1,
            { find(""), [this] { setText("AcquisitionStart", "A&B"); },
                [this] { setText("AcquisitionStart", "A&B", true); } } },
    };
    for (const Case& seen : cases) {
        QImage before;
        for (std::size_t i = 0; i < seen.looks.size(); ++i) {
            seen.looks[i]();
            const QImage now = picture(seen.name, seen.column);
            EXPECT_NE(now, before) << seen.name << " " << i;
            before = now;
        }
    }
}

TEST_F(PictureTest, SignsAndBoxesStandForWhatTheySay)
{
    const auto part = [this](const char* name, int from) {
        const QImage cell = picture(name, 1);
        return cell.copy(from < 0 ? cell.width() + from : from, 3, 20, cell.height() - 6);
    };
    const auto isBlank = [](const QImage& image) {
        QImage blank = image;
        blank.fill(image.pixel(0, 0));
        return image == blank;
    };
    EXPECT_TRUE(isBlank(part("Width", -24))) << "no sign without a reason";
    EXPECT_FALSE(isBlank(part("PixelFormat", -24))) << "opens a list";
    setChoice("PixelFormat", "0", { "A" }, true);
    EXPECT_TRUE(isBlank(part("PixelFormat", -24)));
    const auto box = [&](const char* index) {
        setChoice("ReverseX", index, { "False", "True" });
        return part("ReverseX", 6).copy(0, 0, 8, 14);
    };
    const QImage off = box("0");
    const QImage on = box("1");
    const QImage unknown = box("2");
    EXPECT_TRUE(off != on && on != unknown && unknown != off);
}

TEST_F(PictureTest, AWrittenValueIsMarkedForAWhile)
{
    journal.answer = [this](const std::string&) {
        setInteger("Width", 640);
        setChoice("PixelFormat", "1", { "A", "B" });
    };
    select("ExposureTime");
    const QImage follower = picture("PixelFormat", 0);
    const QImage plain = picture("Width", 0);
    edit("Width", "512");
    select("ExposureTime");
    EXPECT_NE(picture("Width", 0), plain);
    EXPECT_NE(picture("PixelFormat", 0), follower);
    PaintCounter counter;
    tree()->viewport()->installEventFilter(&counter);
    EXPECT_TRUE(QTest::qWaitFor([&] { return counter.count > 3; }, 20000)) << "it fades";
    tree()->viewport()->removeEventFilter(&counter);
    EXPECT_TRUE(QTest::qWaitFor([&] { return picture("Width", 0) == plain; }, 20000));
    QTest::qWait(200);
    tree()->viewport()->installEventFilter(&counter);
    counter.count = 0;
    QTest::qWait(200);
    EXPECT_EQ(counter.count, 0) << "and rests";
}

TEST_F(PictureTest, SignsOnButtonsAreSymmetrical)
{
    const QImage expand = picture(child<QWidget>("expandButton"));
    const QImage collapse = picture(child<QWidget>("collapseButton"));
    EXPECT_EQ(difference(expand, expand.mirrored(true, false)), 0);
    EXPECT_EQ(difference(expand, collapse.mirrored(false, true)), 0);
    EXPECT_GT(difference(expand, collapse), 8);
}

TEST_F(PictureTest, ALineOfValuesShowsHowTheyWent)
{
    window()->setProperty("pinnedFeatures", QVariant::fromValue(QByteArrayList { "Width" }));
    QWidget* line = nullptr;
    for (QWidget* part : child<QWidget>("pinStrip")->findChildren<QWidget*>()) {
        line = part->accessibleName() == "Recent values of Width" ? part : line;
    }
    ASSERT_NE(line, nullptr);
    const auto drawn = [&](long first, long step, bool flag) {
        for (int i = 0; i < 150; ++i) {
            setInteger("Width", first + i * step, 0, 4096, 1, false, flag);
        }
        return picture(line);
    };
    const QImage blank = drawn(5, 0, false);
    const QImage flat = drawn(5, 0, true);
    const QImage rising = drawn(0, 2, true);
    const QImage falling = drawn(300, -2, true);
    EXPECT_EQ(blank, drawn(9, 1, false)) << "no value, no line";
    EXPECT_EQ(flat, drawn(9, 0, true));
    EXPECT_EQ(rising, drawn(7, 9, true)) << "as high as there is room";
    EXPECT_TRUE(flat != blank && rising != flat && falling != rising);
    EXPECT_EQ(difference(rising, falling.mirrored(false, true)), 0);
}

} // namespace featurebrowser
