// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "CoreFixture.h"

#include <cerrno>
#include <fstream>
#include <limits>
#include <map>
#include <tuple>
#include <vector>

namespace featurebrowser {
namespace {

using doubles::line;
using doubles::script;
using doubles::Script;

constexpr int refused = -7;

using Events = IEventFeatureReceiver;

/// What can happen in EventJournals.txt, by the first words of a heading.
const std::map<std::string, std::function<void(ZQFeatureBrowser&, Events&)>> happenings = {
    { "integer", [](auto&, auto& events) { events.FeatureIntModified("F", 10); } },
    { "float", [](auto&, auto& events) { events.FeatureDoubleModified("F", 12.3456789); } },
    { "address", [](auto&, auto& events) { events.FeatureIPModified("F", "10.0.0.1"); } },
    { "malformed address", [](auto&, auto& events) { events.FeatureIPModified("F", "10.0.1"); } },
    { "entry", [](auto&, auto& events) { events.FeatureEnumModified("F", "two", 2); } },
    { "boolean", [](auto&, auto& events) { events.FeatureBoolModified("F", 5); } },
    { "text", [](auto&, auto& events) { events.FeatureStringModified("F", "text"); } },
    { "selection", [](auto&, auto& events) { events.ItemSelectionChanged("X"); } },
    { "visual events",
        [](auto&, auto& events) {
            events.ItemColumnResized(1, 200);
            events.FeatureCloseDialog(3, 4, LEVEL_BEGINNER);
            events.SendError(7, "text");
            events.FeatureLevelChanged(LEVEL_GURU);
            events.AllConfigChanged();
        } },
    { "ShowDialog",
        [](auto& b, auto&) {
            b.ShowDialog(640, 480, { 10, 20 }, LEVEL_EXPERT);
        } },
    { "ShowStandalone",
        [](auto& b, auto&) {
            b.ShowStandalone(640, 480, { 10, 20 }, LEVEL_EXPERT);
        } },
    { "Show", [](auto& b, auto&) { b.Show(); } },
    { "Hide", [](auto& b, auto&) { b.Hide(); } },
    { "CloseDialog", [](auto& b, auto&) { b.CloseDialog(); } },
    { "ClearFeatureBrowser", [](auto& b, auto&) { b.ClearFeatureBrowser(); } },
    { "GetWidget", [](auto& b, auto&) { b.GetWidget(); } },
    { "RefreshStates", [](auto& b, auto&) { b.RefreshStates(); } },
    { "LoadFeatureBrowser",
        [](auto& b, auto&) { EXPECT_EQ(b.LoadFeatureBrowser(), script().loaded ? 0 : -1); } },
    { "loads and reloads",
        [](auto& b, auto&) {
            b.ReloadFeatureBrowser(); // the first load, whoever asks for it, builds the tree
            b.ReloadFeatureBrowser();
            b.LoadFeatureBrowser();
            b.ClearFeatureBrowser(); // does not make a reload rebuild
            b.ReloadFeatureBrowser();
        } },
};

const std::string command = "command ";
const std::string refresh = "refresh ";

void happen(const std::string& what, ZQFeatureBrowser& browser, Events& events)
{
    if (what.rfind(command, 0) == 0) {
        events.FeatureExecCommand(what.substr(command.size()));
    } else if (what.rfind(refresh, 0) == 0) {
        try {
            browser.RefreshFeature(what.substr(refresh.size()));
        } catch (const std::out_of_range&) {
            doubles::journal() += "out of range\n";
        }
    } else {
        happenings.at(what)(browser, events);
    }
}

void answerWrites(Script& script, const std::deque<int>& statuses)
{
    for (const char* operation : { "SetIntegerValue", "SetFloatValue", "SetEnumValue",
             "SetBooleanValue", "SetStringValue", "ExecuteCommand" }) {
        script.statuses[operation] = statuses;
    }
}

Item makeCommand(const std::string& name)
{
    return makeItem(FEATURE_COMMAND, name, "Go");
}

/// Records that hold what they are read as, and what follows a change of F.
void arrangeCommands(Script& script, const doubles::Items& dependents)
{
    script.features.clear();
    for (const char* name : { "F", "Width", "Height", "HeightInterface", "PayloadSize",
             "DoubleRate_Enable", "DoubleRate_Enable2" }) {
        script.features.push_back(makeCommand(name));
    }
    script.onRead = [](auto&) { return true; };
    script.invalidated["F"] = dependents;
}

/// The circumstances by their words in a heading.
const std::map<std::string, std::function<void(Script&)>> circumstances = {
    { "unknown", [](Script& s) { s.features.clear(); } },
    { "unreadable", [](Script& s) { s.integerValue.reset(), s.floatValue.reset(); } },
    { "selector", [](Script& s) { s.features.front()->isSelector = true; } },
    { "visible", [](Script& s) { s.visible = true; } },
    { "grabbing", [](Script& s) { s.grabbing = 2; } },
    { "no receiver", [](Script&) {} },
    { "loaded", [](Script& s) { s.loaded = true; } },
    { "locked", [](Script& s) { s.states["Gain"] = FEATURE_LOCKED; } },
    { "small tree",
        [](Script& s) {
            s.features = { makeItem(FEATURE_CATEGORY, "A", ""), nullptr, makeCommand("Go") };
            s.onRead = [](auto&) { return true; };
        } },
    { "dependents",
        [](Script& s) {
            arrangeCommands(s, { makeCommand("A"), nullptr, makeCommand("B"), makeCommand("A") });
        } },
    { "several regions",
        [](Script& s) {
            arrangeCommands(s, { makeCommand("My_MROI_Htot2"), makeCommand("mroi_Htot") });
        } },
    { "beyond 64 bits",
        [](Script& s) {
            const char* huge = "9223372036854775808";
            arrangeCommands(s, { makeItem(FEATURE_INTEGER, "Huge", huge), makeCommand("Later") });
        } },
    { "enabled", [](Script& s) { s.booleanValue = true; } },
    { "unknown whether", [](Script& s) { s.statuses["GetBooleanValue"] = { 1 }; } },
    { "selects itself and A",
        [](Script& s) {
            s.selected["F"] = { s.features.front(), makeCommand("A") };
        } },
    { "cannot be read",
        [](Script& s) {
            s.onRead = [](FeatureItem& item) {
                item.valueText = std::string("new\0%s", 6);
                return false;
            };
        } },
    { "refused", [](Script& s) { answerWrites(s, { refused }); } },
    { "out of range", [](Script& s) { answerWrites(s, { ERROR_VALUE_OUT_OF_RANGE }); } },
    { "out of float range", [](Script& s) { answerWrites(s, { ERROR_FLOAT_OUT_OF_RANGE }); } },
    { "off grid", [](Script& s) { answerWrites(s, { ERROR_VALUE_NOT_ON_INCREMENT }); } },
    { "off grid twice",
        [](Script& s) {
            answerWrites(s, { ERROR_VALUE_NOT_ON_INCREMENT, refused });
        } },
};

void arrangeUsualCase(Script& script)
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
    script.lastError = 99; // explains value writes, never commands
    script.loaded = false; // keeps a reload short
    script.invalidated["All"] = { nullptr, makeItem(FEATURE_COMMAND, "device", ""),
        makeItem(FEATURE_CATEGORY, "Device", ""), makeItem(FEATURE_CATEGORY, "Device", "") };
}

std::vector<std::string> splitHeading(const std::string& heading)
{
    std::vector<std::string> parts { "" };
    for (const char c : heading) {
        if (c == ',') {
            parts.emplace_back();
        } else if (c != ' ' || !parts.back().empty()) {
            parts.back() += c;
        }
    }
    return parts;
}

/// The sections of EventJournals.txt by heading, with the passages that they name.
std::map<std::string, std::string> readJournals()
{
    std::map<std::string, std::string> journals;
    std::ifstream file(EVENT_JOURNALS);
    std::string heading;
    for (std::string entry; std::getline(file, entry);) {
        if (entry.rfind("== ", 0) == 0) {
            heading = entry.substr(3);
        } else if (entry.rfind("... ", 0) == 0) {
            journals[heading] += journals.at(entry);
        } else if (!entry.empty() && entry[0] != '#') {
            journals[heading] += entry + '\n';
        }
    }
    return journals;
}

TEST_F(CoreTest, EventsDoExactlyWhatTheirJournalSays)
{
    const auto journals = readJournals();
    EXPECT_EQ(journals.size(), 84U);
    for (const auto& [heading, expected] : journals) {
        if (heading[0] == '.') {
            continue;
        }
        SCOPED_TRACE(heading);
        const std::vector<std::string> parts = splitHeading(heading);
        const auto run = [&](bool withReceiver) {
            doubles::reset();
            arrangeUsualCase(m_script);
            for (std::size_t i = 1; i < parts.size(); ++i) {
                circumstances.at(parts[i])(m_script);
            }
            return journalOf(
                [&](auto& browser, auto& events) { happen(parts[0], browser, events); },
                withReceiver);
        };
        EXPECT_EQ(run(parts.back() != "no receiver"), expected);
        // For an edit, an application that does not listen changes nothing else.
        if (parts[0].rfind(command, 0) != 0) {
            EXPECT_EQ(run(false), linesWith("receiver.", expected, false));
        }
    }
}

TEST_F(CoreTest, OffGridValueIsMovedTowardsTheMinimumAndWrittenOnce)
{
    for (const Columns& row : table("grid")) {
        const long entered = std::stol(row.at(3));
        const long written = std::stol(row.at(5));
        const Item item = makeItem(FEATURE_INTEGER, "F", "1");
        item->intMin = std::stol(row.at(0));
        item->intMax = std::stol(row.at(1));
        item->intInc = static_cast<unsigned int>(std::stoul(row.at(2)));
        m_script.features = { item };
        m_script.integerValue = std::stol(row.at(4));
        m_script.statuses["SetIntegerValue"] = { ERROR_VALUE_NOT_ON_INCREMENT };
        const std::string text
            = journalOf([&](auto&, auto& events) { events.FeatureIntModified("F", entered); });
        EXPECT_EQ(linesWith("device.Set", text),
            line("device.SetIntegerValue", "F", entered, 1)
                + line("device.SetIntegerValue", "F", written, 1));
        std::ostringstream message;
        message << "Difference between values Min and Max not divisible by Inc = " << row.at(2)
                << "\nValue adjusted to " << written;
        EXPECT_EQ(linesWith("widget.set", text),
            line("widget.setDefaultInteger", "F", written, message.str()));
    }
}

TEST_F(CoreTest, BinningPausesBeforeTheDisplayUpdate)
{
    const std::string whole = "nanosleep(0, 300000000, true)\n";
    const std::vector<std::tuple<std::string, std::deque<int>, std::string>> cases
        = { { "BinningHorizontal", {}, whole },
              { "BinningVertical", { EINTR, EINTR },
                  whole + "nanosleep(0, 150000000, true)\nnanosleep(0, 75000000, true)\n" },
              { "BinningVertical", { EINVAL }, whole }, { "binningVertical", {}, "" },
              { "BinningVertical2", {}, "" } };
    for (const auto& [name, errors, pause] : cases) {
        m_script.features = { makeItem(FEATURE_COMMAND, name, "1") };
        m_script.pauseErrors = errors;
        const std::string text = journalOf(
            [&, name = name](auto&, auto& events) { events.FeatureIntModified(name, 2); });
        const std::string start = line("repository.GetFeature", name) + pause;
        const std::string whatFollows = start + line("repository.ReadFeature", name);
        EXPECT_NE(text.find(whatFollows), std::string::npos) << text;
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
        line("receiver.SendError", -7, std::string(errorTextSize - 1, 'e')));
}

TEST_F(CoreTest, OddNamesAndHugeValuesAreTracedWithinBounds)
{
    const std::string huge = " 17976931348623157081452742373170435679807056752584";
    const std::vector<std::pair<std::string, std::string>> cases
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
    EXPECT_EQ(linesWith("stderr(", text), line("stderr", "Update feature in camera: %d"));
    EXPECT_EQ(linesWith("device.", text), line("device.SetIntegerValue", "%d", 1, 1));
    EXPECT_EQ(linesWith("receiver.", text),
        line("receiver.FeatureIntModified", std::string("%d\0b", 4), 1));
}

TEST_F(CoreTest, CommandMessagesAndTraceStayWithinTheirBuffers)
{
    const auto run = [this](const std::string& name, int status) {
        m_script.statuses["ExecuteCommand"] = { status };
        return journalOf([name](auto&, auto& events) { events.FeatureExecCommand(name); });
    };
    EXPECT_EQ(linesWith("stderr", run("100%d", 0)), line("stderr", "Exec command: 100%d\n"));
    const std::string fits(240, 'c');
    EXPECT_EQ(linesWith("stderr", run(fits, 0)), line("stderr", "Exec command: " + fits + "\n"));
    // The bounded function empties its buffer: nothing is traced, the command is run.
    const std::string tooLong(1100, 'c');
    const std::string text = run(tooLong, 5);
    EXPECT_EQ(linesWith("stderr", text), "");
    EXPECT_EQ(linesWith("device.Exec", text), line("device.ExecuteCommand", tooLong, 1));
    EXPECT_EQ(linesWith("receiver.Send", text),
        line("receiver.SendError", 5, "Command [" + std::string(1023 - 9, 'c')));
}

} // namespace
} // namespace featurebrowser
