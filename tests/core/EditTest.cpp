#include "CoreFixture.h"

#include <cerrno>
#include <limits>
#include <tuple>

// The edit handlers side by side. They look alike and differ on purpose: who refreshes after a
// failure, who resets the widget, who tells the application, and in which order.

namespace featurebrowser {
namespace {

using doubles::Script;
using Event = std::function<void(IEventFeatureReceiver&)>;

const Event enterInteger = [](auto& events) { events.FeatureIntModified("F", 10); };
const Event enterDouble = [](auto& events) { events.FeatureDoubleModified("F", 12.3456789); };
const Event enterAddress = [](auto& events) { events.FeatureIPModified("F", "010.0.0.1"); };
const Event enterValidAddress = [](auto& events) { events.FeatureIPModified("F", "10.0.0.1"); };
const Event chooseEntry = [](auto& events) { events.FeatureEnumModified("F", "two", 2); };
const Event toggle = [](auto& events) { events.FeatureBoolModified("F", 5); };
const Event enterText = [](auto& events) { events.FeatureStringModified("F", "text"); };

constexpr int refused = -7;

/// The script in which the record "F" exists, holds "7" and reads "8" from the camera.
void known(Script& script)
{
    const Item item = makeItem(FEATURE_STRING, "F", "7");
    item->intMin = 1;
    item->intMax = 100;
    item->intInc = 4;
    item->floatMin = 0.5;
    item->floatMax = 1e9;
    script.features = { item };
    script.onRead = [](FeatureItem& record) {
        record.valueText = "8";
        return true;
    };
    script.integerValue = 21;
    script.floatValue = 2.5;
    script.lastError = 99;
}

void unknown(Script& script)
{
    known(script);
    script.features.clear();
}

void selector(Script& script)
{
    known(script);
    script.features.front()->isSelector = true;
    script.visible = true;
}

void visible(Script& script)
{
    known(script);
    script.visible = true;
}

void unreadable(Script& script)
{
    known(script);
    script.integerValue.reset();
    script.floatValue.reset();
}

const std::string get = "repository.GetFeature(\"F\")\n";
const std::string show
    = "repository.ReadFeature(\"F\")\nwidget.modifyText(\"F\", \"8\", 3, [], false, true)\n";
const std::string dependents
    = "repository.GetInvalidatedFeatures(\"F\")\nrepository.GetFeature(\"PayloadSize\")\n";
const std::string selected = "repository.GetSelectedFeatures(\"F\")\n";
const std::string hiddenStates = "repository.UpdateFeatureStates()\nwidget.isVisible()\n";
const std::string shownStates
    = hiddenStates + "repository.GetFeatureStates()\nwidget.modifyFeatureStates([])\n";
const std::string explain = "device.GetLastError()\ndevice.GetErrorText(99)\n";
const std::string sendError = "receiver.SendError(-7, \"refused\")\n";

const std::string setInteger = "device.SetIntegerValue(\"F\", 10, 1)\n";
const std::string camera = "stderr(\"Update feature in camera: F value: 10\\n\")\n";
const std::string repository = "stderr(\"Update feature in repository: F value: 8\\n\")\n";
const std::string toldInteger = "receiver.FeatureIntModified(\"F\", 10)\n";
const std::string getInteger = "device.GetIntegerValue(\"F\")\n";
const std::string range = "\"Error writing value\\nValue must be between 1 and 100\")\n";
const std::string adjusted = "\"Difference between values Min and Max not divisible by Inc = 4\\n"
                             "Value adjusted to 9\")\n";

const std::string setDouble = "device.SetFloatValue(\"F\", 12.3456789)\n"
                              "stderr(\"<>Feature double set: F 12.345679 ";
const std::string toldDouble = "receiver.FeatureDoubleModified(\"F\", 12.3456789)\n";
const std::string getDouble = "device.GetFloatValue(\"F\")\n";
const std::string doubleRange
    = "\"Error writing feature F\\nvalue must be between 0.50000 and 1000000000.00000\")\n";

const std::string setAddress = "device.SetIntegerValue(\"F\", 167772161, 1)\n";
const std::string setEntry = "device.SetEnumValue(\"F\", \"two\", 2)\n";
const std::string toldEntry = "receiver.FeatureEnumModified(\"F\", \"two\", 2)\n";
const std::string setBoolean = "device.SetBooleanValue(\"F\", 1)\n";
const std::string toldBoolean = "receiver.FeatureBoolModified(\"F\", 5)\n";
const std::string setText = "device.SetStringValue(\"F\", \"text\")\n";
const std::string toldText = "receiver.FeatureStringModified(\"F\", \"text\")\n";

struct EditCase {
    const char* name;
    void (*arrange)(Script&);
    Event event;
    std::deque<int> statuses; ///< of the writes, in order
    std::string expected;
};

const EditCase editCases[] = {
    { "integer taken", known, enterInteger, {},
        setInteger + camera + get + show + repository + dependents + toldInteger },
    { "integer taken, unknown", unknown, enterInteger, {},
        setInteger + camera + get + dependents + toldInteger },
    { "integer out of range", known, enterInteger, { ERROR_VALUE_OUT_OF_RANGE },
        setInteger + getInteger + get + "widget.setDefaultInteger(\"F\", 21, " + range
            + dependents },
    { "integer out of range, unreadable", unreadable, enterInteger, { ERROR_VALUE_OUT_OF_RANGE },
        setInteger + getInteger + get + "widget.setDefaultInteger(\"F\", 10, " + range
            + dependents },
    { "integer out of range, unknown", unknown, enterInteger, { ERROR_VALUE_OUT_OF_RANGE },
        setInteger + getInteger + get + dependents },
    { "integer off grid, moved", known, enterInteger, { ERROR_VALUE_NOT_ON_INCREMENT },
        setInteger + getInteger + get + "device.SetIntegerValue(\"F\", 9, 1)\n"
            + "widget.setDefaultInteger(\"F\", 9, " + adjusted + dependents },
    { "integer off grid, not movable", known, enterInteger,
        { ERROR_VALUE_NOT_ON_INCREMENT, ERROR_VALUE_NOT_ON_INCREMENT },
        setInteger + getInteger + get + "device.SetIntegerValue(\"F\", 9, 1)\n"
            + "widget.setDefaultInteger(\"F\", 21, \"Error adjusting to value 9\\n\")\n"
            + dependents },
    { "integer off grid, unknown", unknown, enterInteger, { ERROR_VALUE_NOT_ON_INCREMENT },
        setInteger + getInteger + get + dependents },
    { "integer refused", known, enterInteger, { refused }, setInteger + explain + sendError },
    { "integer with a float's range code", known, enterInteger, { ERROR_FLOAT_OUT_OF_RANGE },
        setInteger + explain + "receiver.SendError(-2144075776, \"refused\")\n" },

    { "double taken", known, enterDouble, {},
        setDouble + "0\\n\")\n" + get + show + dependents + toldDouble },
    { "double taken, unknown", unknown, enterDouble, {},
        setDouble + "0\\n\")\n" + get + dependents + toldDouble },
    { "double out of range", known, enterDouble, { ERROR_FLOAT_OUT_OF_RANGE },
        setDouble + "-2144075776\\n\")\n" + getDouble + get + "widget.setDefaultDouble(\"F\", 2.5, "
            + doubleRange },
    { "double out of range, unreadable", unreadable, enterDouble, { ERROR_FLOAT_OUT_OF_RANGE },
        setDouble + "-2144075776\\n\")\n" + getDouble + get
            + "widget.setDefaultDouble(\"F\", 12.3456789, " + doubleRange },
    { "double out of range, unknown", unknown, enterDouble, { ERROR_FLOAT_OUT_OF_RANGE },
        setDouble + "-2144075776\\n\")\n" + getDouble + get },
    { "double refused", known, enterDouble, { refused },
        setDouble + "-7\\n\")\n" + explain + sendError + getDouble + get
            + "widget.setDefaultDouble(\"F\", 2.5, \"Error writing feature F\\nrefused\\n\")\n" },
    { "double refused, unknown", unknown, enterDouble, { refused },
        setDouble + "-7\\n\")\n" + explain + sendError + getDouble + get },
    { "double off an integer's grid", unknown, enterDouble, { ERROR_VALUE_NOT_ON_INCREMENT },
        setDouble + "-2144141312\\n\")\n" + explain
            + "receiver.SendError(-2144141312, \"refused\")\n" + getDouble + get },

    { "address taken", known, enterValidAddress, {},
        setAddress + get + show + dependents
            + "receiver.FeatureIPModified(\"F\", \"10.0.0.1\")\n" },
    { "malformed address taken, unknown", unknown, enterAddress, {},
        "device.SetIntegerValue(\"F\", 0, 1)\n" + get + dependents
            + "receiver.FeatureIPModified(\"F\", \"010.0.0.1\")\n" },
    { "address out of range", known, enterValidAddress, { ERROR_VALUE_OUT_OF_RANGE },
        setAddress + explain + "receiver.SendError(-2144206848, \"refused\")\n" },

    { "entry taken", known, chooseEntry, {},
        setEntry + get + show + dependents + hiddenStates + toldEntry },
    { "selector's entry taken", selector, chooseEntry, {},
        setEntry + get + show + selected + shownStates + toldEntry },
    { "entry taken, unknown", unknown, chooseEntry, {},
        setEntry + get + dependents + hiddenStates + toldEntry },
    { "entry refused", selector, chooseEntry, { refused }, setEntry + explain + sendError },

    { "boolean taken", known, toggle, {},
        setBoolean + get + show + dependents + hiddenStates + toldBoolean },
    { "selector's boolean taken", selector, toggle, {},
        setBoolean + get + show + dependents + shownStates + toldBoolean },
    { "boolean taken, unknown", unknown, toggle, {},
        setBoolean + get + dependents + hiddenStates + toldBoolean },
    { "boolean refused", known, toggle, { refused }, setBoolean + explain + sendError },

    { "text taken", visible, enterText, {}, setText + get + show + dependents + toldText },
    { "text taken, unknown", unknown, enterText, {}, setText + get + dependents + toldText },
    { "text refused", visible, enterText, { refused },
        setText + get + show + dependents + toldText + explain + sendError },
};

TEST_F(CoreTest, EditsDoExactlyThisInThisOrder)
{
    for (const EditCase& c : editCases) {
        for (const bool withReceiver : { true, false }) {
            SCOPED_TRACE(c.name + std::string(withReceiver ? "" : ", no receiver"));
            doubles::reset();
            c.arrange(m_script);
            for (const char* operation : { "SetIntegerValue", "SetFloatValue", "SetEnumValue",
                     "SetBooleanValue", "SetStringValue" })
                m_script.statuses[operation] = c.statuses;
            const std::string text
                = journalOf([&](auto&, auto& events) { c.event(events); }, withReceiver);
            // An application that does not listen changes nothing else.
            const std::string expected
                = withReceiver ? c.expected : linesWith("receiver.", c.expected, false);
            EXPECT_EQ(text, expected);
        }
    }
}

struct GridCase {
    long min, max;
    unsigned int inc;
    long entered, current, written;
};

constexpr long lowest = std::numeric_limits<long>::min();
constexpr long highest = std::numeric_limits<long>::max();

const GridCase gridCases[] = {
    { 0, 100, 4, 10, 20, 8 },
    { 1, 100, 4, 10, 20, 9 },
    { 0, 100, 4, 11, 20, 8 },
    { 0, 100, 4, -3, 20, 0 },
    { 0, 100, 4, -9, 20, -8 },
    { 5, 5, 4, 10, 20, 20 }, // no range to move in
    { 6, 5, 4, 10, 20, 20 },
    { 0, 100, 0, 10, 20, 20 }, // no grid
    { 0, 4294967295, 4294967295U, 4294967294, 20, 0 },
    { lowest, highest, 1000000007, highest, 20, 9223372036272431800 },
    { lowest, highest, 10, highest, 20, highest - 5 },
    { highest - 1, highest, 3, lowest, 20, lowest + 2 },
};

TEST_F(CoreTest, OffGridValueIsMovedTowardsTheMinimumAndWrittenOnce)
{
    for (const GridCase& c : gridCases) {
        const Item item = makeItem(FEATURE_INTEGER, "F", "1");
        item->intMin = c.min;
        item->intMax = c.max;
        item->intInc = c.inc;
        m_script.features = { item };
        m_script.integerValue = c.current;
        m_script.statuses["SetIntegerValue"] = { ERROR_VALUE_NOT_ON_INCREMENT };
        const std::string text
            = journalOf([&](auto&, auto& events) { events.FeatureIntModified("F", c.entered); });
        const std::string written = std::to_string(c.written);
        EXPECT_EQ(linesWith("device.Set", text),
            "device.SetIntegerValue(\"F\", " + std::to_string(c.entered)
                + ", 1)\ndevice.SetIntegerValue(\"F\", " + written + ", 1)\n");
        EXPECT_EQ(linesWith("widget.set", text),
            "widget.setDefaultInteger(\"F\", " + written
                + ", \"Difference between values Min and Max not divisible by Inc = "
                + std::to_string(c.inc) + "\\nValue adjusted to " + written + "\")\n");
    }
}

TEST_F(CoreTest, BinningPausesBeforeTheDisplayUpdate)
{
    const std::string whole = "nanosleep(0, 300000000, true)\n";
    const std::tuple<const char*, std::deque<int>, std::string> cases[]
        = { { "BinningHorizontal", {}, whole },
              { "BinningVertical", { EINTR, EINTR },
                  whole + "nanosleep(0, 150000000, true)\nnanosleep(0, 75000000, true)\n" },
              { "BinningVertical", { EINVAL }, whole }, { "binningVertical", {}, "" },
              { "BinningVertical2", {}, "" } };
    for (const auto& [name, errors, pause] : cases) {
        m_script.features = { makeItem(FEATURE_COMMAND, name, "1") };
        m_script.pauseErrors = errors;
        const std::string text = journalOf([&, feature = std::string(name)](auto&, auto& events) {
            events.FeatureIntModified(feature, 2);
        });
        const std::string quoted = '"' + std::string(name) + '"';
        EXPECT_NE(text.find("GetFeature(" + quoted + ")\n" + pause + "repository.ReadFeature("),
            std::string::npos)
            << text;
        EXPECT_EQ(linesWith("nanosleep", text), pause);
    }
}

TEST_F(CoreTest, ErrorTextWithoutATerminatorIsCutAtItsBuffer)
{
    m_script.errorText = std::string(errorTextSize, 'e');
    m_script.statuses["SetBooleanValue"] = { refused };
    const std::string text
        = journalOf([](auto&, auto& events) { events.FeatureBoolModified("F", 0); });
    EXPECT_EQ(linesWith("receiver.", text),
        "receiver.SendError(-7, \"" + std::string(errorTextSize - 1, 'e') + "\")\n");
}

TEST_F(CoreTest, OddNamesAndHugeValuesAreTracedWithinBounds)
{
    const std::string huge = " 17976931348623157081452742373170435679807056752584";
    const std::pair<std::string, std::string> cases[]
        = { { "50%s%n", "50%s%n" + huge }, { std::string("a\0b", 3), "a" + huge },
              { std::string(400, 'n'), std::string(255 - 22, 'n') + "\")\n" } };
    for (const auto& [name, traced] : cases) {
        const std::string line = linesWith("stderr(", journalOf([name = name](auto&, auto& events) {
            events.FeatureDoubleModified(name, std::numeric_limits<double>::max());
        }));
        EXPECT_EQ(line.find("stderr(\"<>Feature double set: " + traced), 0U) << line;
        EXPECT_EQ(line.size(), 255 + std::string("stderr(\"\")\n").size());
    }
    const std::string text = journalOf(
        [](auto&, auto& events) { events.FeatureIntModified(std::string("%d\0b", 4), 1); });
    EXPECT_EQ(linesWith("stderr(", text), "stderr(\"Update feature in camera: %d\")\n");
    EXPECT_EQ(linesWith("device.", text), "device.SetIntegerValue(\"%d\", 1, 1)\n");
    EXPECT_EQ(linesWith("receiver.", text), "receiver.FeatureIntModified(\"%d\\0b\", 1)\n");
}

} // namespace
} // namespace featurebrowser
