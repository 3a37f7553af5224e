#include "WidgetTest.h"

#include <QImage>
#include <QLineEdit>

#include <numeric>

namespace featurebrowser {

namespace {

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

    /// Where something is drawn: the columns that are not of one colour.
    static std::vector<int> inked(const QImage& image)
    {
        std::vector<int> columns;
        for (int x = 0; x < image.width(); ++x) {
            const QRgb first = image.pixel(x, 0);
            for (int y = 1; y < image.height(); ++y) {
                if (image.pixel(x, y) != first) {
                    columns.push_back(x);
                    break;
                }
            }
        }
        return columns;
    }
    /// The mean height of what is drawn in a column, counted from the top.
    static double height(const QImage& image, int x)
    {
        double sum = 0;
        double weight = 0;
        for (int y = 0; y < image.height(); ++y) {
            const int ink = std::abs(qGray(image.pixel(x, y)) - qGray(image.pixel(x, 0)));
            sum += ink * y;
            weight += ink;
        }
        return sum / weight;
    }
};

} // namespace

TEST_F(PictureTest, EveryStateOfARowLooksDifferent)
{
    browser->addEnumFeature("Camera", "Selector", 0, { "A", "B" }, LEVEL_BEGINNER, false, false,
        true, SELECTOR_SELECTOR, "");
    const auto state = [this](FEATURE_STATE is) {
        return [this, is] {
            std::map<std::string, FEATURE_STATE> states { { "ExposureTime", is } };
            browser->modifyFeatureStates(states);
        };
    };
    const auto number = [this](bool readOnly, bool flag) {
        return
            [=] { browser->modifyFeature("ExposureTime", 5000.0, 1.0, 1e6, 0.0, readOnly, flag); };
    };
    const auto choice = [this](const char* name, const char* index, bool readOnly, bool flag) {
        return [=] {
            browser->modifyFeature(
                name, index, CAM_TYPE_ENUMERATION, { "False", "True" }, readOnly, flag);
        };
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
            { find(""), find("sure"), find("Time"), state(FEATURE_NOT_AVAILABLE) } },
        { "ReverseX", 1,
            { find(""), choice("ReverseX", "1", false, true), choice("ReverseX", "2", false, true),
                choice("ReverseX", "1", true, true), choice("ReverseX", "0", true, true) } },
        { "PixelFormat", 1,
            { find(""), choice("PixelFormat", "0", false, true),
                choice("PixelFormat", "0", true, true) } },
        { "Selector", 0,
            { find(""),
                [this] {
                    browser->addIntFeature("Camera", "Selected", 1, 0, 9, 1, LEVEL_BEGINNER, false,
                        true, SELECTOR_SELECTED, "Selector");
                } } },
        { "Selected", 0, { find(""), choice("Selector", "1", false, true) } },
        { "AcquisitionStart", 1,
            { find(""),
                [this] {
                    browser->modifyFeature(
                        "AcquisitionStart", "A&B", CAM_TYPE_STRING, {}, false, true);
                },
                [this] {
                    browser->modifyFeature(
                        "AcquisitionStart", "A&B", CAM_TYPE_STRING, {}, true, true);
                } } },
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

TEST_F(PictureTest, AWrittenValueIsMarkedForAWhile)
{
    journal.answer = [this](const std::string&) {
        browser->modifyFeature("Width", 640L, 16L, 4096L, 16U, false, true);
    };
    select("ExposureTime");
    const QImage plain = picture("Width", 0);
    edit("Width", "512");
    select("ExposureTime");
    EXPECT_NE(picture("Width", 0), plain);
    EXPECT_TRUE(QTest::qWaitFor([&] { return picture("Width", 0) == plain; }, 20000));
}

TEST_F(PictureTest, SignsOnButtonsAreSymmetrical)
{
    // Mirrored, a sign may stand a pixel beside where it stood.
    const auto differ = [](const QImage& a, const QImage& b) {
        int least = a.width() * a.height();
        for (int shift = 0; shift < 9; ++shift) {
            const QImage moved = b.copy(b.rect().translated(shift % 3 - 1, shift / 3 - 1));
            int count = 0;
            for (int i = 0; i < a.width() * a.height(); ++i) {
                const QPoint at(i % a.width(), i / a.width());
                const bool isEdge = !a.rect().adjusted(2, 2, -2, -2).contains(at);
                const int ink = qGray(a.pixel(at)) - qGray(moved.pixel(at));
                count += !isEdge && std::abs(ink) > 64 ? 1 : 0;
            }
            least = std::min(least, count);
        }
        return least;
    };
    const QImage expand = picture(child<QWidget>("expandButton"));
    const QImage collapse = picture(child<QWidget>("collapseButton"));
    EXPECT_EQ(differ(expand, expand.mirrored(true, false)), 0);
    EXPECT_EQ(differ(expand, collapse.mirrored(false, true)), 0);
    EXPECT_GT(differ(expand, collapse), 8);
}

TEST_F(PictureTest, ALineOfValuesRisesAndFallsWithThem)
{
    browser->GetWidget()->setProperty(
        "pinnedFeatures", QVariant::fromValue(QByteArrayList { "Width" }));
    QWidget* line = nullptr;
    for (QWidget* part : child<QWidget>("pinStrip")->findChildren<QWidget*>()) {
        line = part->accessibleName() == "Recent values of Width" ? part : line;
    }
    ASSERT_NE(line, nullptr);
    const auto feed = [this](std::vector<long> values) {
        for (const long value : values) {
            browser->modifyFeature("Width", value, 0L, 4096L, 1U, false, value >= 0);
        }
        QApplication::processEvents();
    };
    feed(std::vector<long>(200, 100));
    const QImage flat = picture(line);
    const std::vector<int> all = inked(flat);
    EXPECT_GT(all.size(), 0.9 * flat.width()) << "it keeps as many as there is room for";
    EXPECT_NEAR(height(flat, all.front()), flat.height() / 2.0, 1.5);
    std::vector<long> rising(200);
    std::iota(rising.begin(), rising.end(), 100);
    feed(rising);
    const QImage up = picture(line);
    EXPECT_GT(height(up, all.front() + 1), 0.7 * up.height());
    EXPECT_LT(height(up, all.back() - 1), 0.3 * up.height());
    feed(std::vector<long>(60, -1));
    EXPECT_LT(inked(picture(line)).size(), 0.6 * flat.width()) << "no value, no line";
}

} // namespace featurebrowser
