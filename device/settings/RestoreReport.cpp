#include "featurebrowser/ZQSettings.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zqcameralib {

namespace {

using Outcome = ZQRestoredLine::Outcome;

constexpr std::array<std::pair<Outcome, const char*>, 7> words { {
    { Outcome::Restored, "restored" },
    { Outcome::AlreadySo, "already so" },
    { Outcome::Adjusted, "adjusted by the camera" },
    { Outcome::Refused, "refused" },
    { Outcome::UnknownHere, "unknown here" },
    { Outcome::WouldBeWritten, "would be written" },
    { Outcome::NotKnown, "not known" },
} };

const char* wordOf(Outcome outcome)
{
    const auto* const found = std::find_if(
        words.begin(), words.end(), [outcome](const auto& word) { return word.first == outcome; });
    return found->second;
}

bool isGood(Outcome outcome)
{
    return outcome == Outcome::Restored || outcome == Outcome::AlreadySo
        || outcome == Outcome::WouldBeWritten;
}

/// "from 3 to 5 [dB]", as far as it is known and says anything.
std::string change(const ZQRestoredLine& line)
{
    const std::string unit = line.line.unit.empty() ? "" : " [" + line.line.unit + "]";
    switch (line.outcome) {
    case Outcome::Restored:
        return line.before + " -> " + line.now + unit;
    case Outcome::WouldBeWritten:
        return line.before + " -> " + line.line.value + unit;
    case Outcome::Adjusted:
        return line.line.value + " -> " + line.now + unit;
    case Outcome::AlreadySo:
        return line.now + unit;
    default:
        return line.line.value + unit + (line.reason.empty() ? "" : ", " + line.reason);
    }
}

} // namespace

std::size_t ZQRestoreReport::count(Outcome outcome) const
{
    return static_cast<std::size_t>(std::count_if(lines.begin(), lines.end(),
        [outcome](const ZQRestoredLine& line) { return line.outcome == outcome; }));
}

int ZQRestoreReport::exitStatus() const
{
    if (!error.empty()) {
        return 2;
    }
    const bool areGood = std::all_of(lines.begin(), lines.end(),
        [](const ZQRestoredLine& line) { return isGood(line.outcome); });
    return areGood ? 0 : 1;
}

std::string ZQRestoreReport::toText(bool all) const
{
    std::string text = std::to_string(lines.size()) + " settings";
    for (const auto& [outcome, word] : words) {
        const std::size_t number = count(outcome);
        text += number == 0 ? "" : ", " + std::to_string(number) + " " + word;
    }
    text += "\n";
    for (const std::string& warning : warnings) {
        text += "warning: " + warning + "\n";
    }
    text += error.empty() ? "" : "interrupted: " + error + "\n";
    for (const ZQRestoredLine& line : lines) {
        if (all || isDryRun || !isGood(line.outcome)) {
            text += line.line.label() + ": " + wordOf(line.outcome) + ": " + change(line) + "\n";
        }
    }
    return text;
}

} // namespace zqcameralib
