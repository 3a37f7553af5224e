#include "CoreFixture.h"

namespace featurebrowser {
namespace {

using doubles::Script;

std::string trace(const std::string& name)
{
    return "stderr(\"Exec command: " + name + "\\n\")\n";
}

std::string execute(const std::string& name)
{
    return "device.ExecuteCommand(\"" + name + "\", 1)\n";
}

std::string handOver(const std::string& announcement, const std::string& name)
{
    return "stderr(\"" + announcement + "\")\nreceiver.FeatureExecCommand(\"" + name + "\")\n";
}

std::string listDependents(const std::string& name)
{
    return "repository.GetInvalidatedFeatures(\"" + name + "\")\n";
}

/// The display's refresh when the whole device is not affected.
std::string refresh(const std::string& name)
{
    return listDependents(name) + listDependents(name) + "repository.GetFeature(\"PayloadSize\")\n";
}

const std::string asksGrabbing = "device.IsGrabbing()\n";
const std::string reload = "repository.Clear()\nrepository.Load()\nrepository.isLoaded()\n"
                           "stderr(\"Repository not loaded !!!\")\n";
const std::string configChanged = "receiver.AllConfigChanged()\n";
const std::string executed = "receiver.SendError(0, \"Executed Command [Go]\")\n";
const std::string failed = "device.GetErrorText(5)\n";
const std::string failedSent = "receiver.SendError(5, \"Command [Go] failed! - error: refused\")\n";

const std::string start = "AcquisitionStart";
const std::string stop = "AcquisitionStop";
const std::string reset = "DeviceReset";

struct CommandCase {
    std::string name;
    bool withReceiver;
    int grabbing;
    int status;
    std::string expected;
};

const CommandCase commandCases[] = {
    { "Go", true, 1, 0, trace("Go") + execute("Go") + executed + refresh("Go") + configChanged },
    { "Go", false, 0, 0, trace("Go") + execute("Go") + refresh("Go") },
    { "Go", true, 0, 5,
        trace("Go") + execute("Go") + failed + failedSent + refresh("Go") + configChanged },
    { "Go", false, 0, 5, trace("Go") + execute("Go") + failed + refresh("Go") },
    { "All", true, 0, 0,
        trace("All") + execute("All") + "receiver.SendError(0, \"Executed Command [All]\")\n"
            + listDependents("All") + reload + configChanged },
    { reset, true, 1, 0, trace(reset) + handOver("Execute DeviceReset...", reset) },
    { reset, false, 1, 0, trace(reset) + "widget.closeDialog()\n" + execute(reset) },
    { start, true, 1, 0, trace(start) + asksGrabbing },
    { start, true, 0, 0,
        trace(start) + asksGrabbing + handOver("Starting to grab...", start) + refresh(start) },
    { start, false, 0, 0, trace(start) + asksGrabbing + execute(start) + refresh(start) },
    { stop, true, 0, 0, trace(stop) + asksGrabbing },
    { stop, true, 2, 0,
        trace(stop) + asksGrabbing + handOver("Stopping to grab...", stop) + refresh(stop) },
    { stop, false, 2, 0, trace(stop) + asksGrabbing + execute(stop) + refresh(stop) },
    { "acquisitionstart", false, 1, 0,
        trace("acquisitionstart") + execute("acquisitionstart") + refresh("acquisitionstart") },
};

TEST_F(CoreTest, CommandsDoExactlyThisInThisOrder)
{
    for (const CommandCase& c : commandCases) {
        doubles::reset();
        m_script.loaded = false;
        m_script.grabbing = c.grabbing;
        m_script.lastError = 99; // explains value writes, never commands
        m_script.statuses["ExecuteCommand"] = { c.status };
        m_script.invalidated["All"] = { nullptr, makeItem(FEATURE_COMMAND, "device", ""),
            makeItem(FEATURE_CATEGORY, "Device", ""), makeItem(FEATURE_CATEGORY, "Device", "") };
        EXPECT_EQ(journalOf([&](auto&, auto& events) { events.FeatureExecCommand(c.name); },
                      c.withReceiver),
            c.expected);
    }
}

TEST_F(CoreTest, CommandMessagesAndTraceStayWithinTheirBuffers)
{
    const auto run = [this](const std::string& name, int status) {
        m_script.statuses["ExecuteCommand"] = { status };
        return journalOf([name](auto&, auto& events) { events.FeatureExecCommand(name); });
    };
    EXPECT_EQ(linesWith("stderr", run("100%d", 0)), trace("100%d"));
    const std::string fits(240, 'c');
    EXPECT_EQ(linesWith("stderr", run(fits, 0)), trace(fits));
    // The bounded function empties its buffer: nothing is traced, the command is run.
    const std::string tooLong(1100, 'c');
    const std::string text = run(tooLong, 5);
    EXPECT_EQ(linesWith("stderr", text), "");
    EXPECT_EQ(linesWith("device.Exec", text), execute(tooLong));
    EXPECT_EQ(linesWith("receiver.Send", text),
        "receiver.SendError(5, \"Command [" + std::string(1023 - 9, 'c') + "\")\n");
}

} // namespace
} // namespace featurebrowser
