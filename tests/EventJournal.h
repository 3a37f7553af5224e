#pragma once

#include "featurebrowser/IEventFeatureReceiver.h"

#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

using Lines = std::vector<std::string>;

/// An application's receiver: writes down every event as one line and then does what the test
/// wants to happen in it.
class EventJournal : public featurebrowser::IEventFeatureReceiver {
    using Text = std::string;

public:
    Lines lines;
    std::function<void(const std::string& line)> answer;
    bool hearsSelection = false;

    /// The lines since the last call.
    Lines take() { return std::exchange(lines, {}); }

    void FeatureIntModified(Text name, long value) override { add("Int", name, value); }
    void FeatureEnumModified(Text n, Text entry, int index) override
    {
        add("Enum", n, entry, index);
    }
    void FeatureBoolModified(Text name, int value) override { add("Bool", name, value); }
    void FeatureStringModified(Text name, Text value) override { add("String", name, value); }
    void FeatureIPModified(Text name, const Text& text) override { add("IP", name, text); }
    void FeatureDoubleModified(Text name, double value) override { add("Double", name, value); }
    void FeatureExecCommand(Text name) override { add("Command", name); }
    void ItemSelectionChanged(Text name) override
    {
        if (hearsSelection) {
            add("Selection", name);
        }
    }
    void ItemColumnResized(int column, int width) override { add("Column", column, width); }
    void FeatureCloseDialog(int width, int height, featurebrowser::TYPE_LEVEL level) override
    {
        add("Close", width, height, level);
    }
    void SendError(int code, Text text) override { add("Error", code, text); }
    void FeatureLevelChanged(featurebrowser::TYPE_LEVEL level) override { add("Level", level); }
    void AllConfigChanged() override { add("AllConfigChanged"); }

private:
    template <typename... T> void add(const T&... parts)
    {
        std::ostringstream text;
        text.precision(17);
        ((text << (text.tellp() > 0 ? " " : "") << parts), ...);
        lines.push_back(text.str());
        if (answer) {
            answer(text.str());
        }
    }
};
