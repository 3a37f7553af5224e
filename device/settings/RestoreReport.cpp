// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/TextLines.h"

#include "words/Words.h"

#include "featurebrowser/ZQSettings.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zqcameralib {

namespace {

using Outcome = ZQRestoredLine::Outcome;

constexpr std::array<std::pair<Outcome, const char*>, 7> words { {
    { Outcome::Restored, marked("restored") },
    { Outcome::AlreadySo, marked("already so") },
    { Outcome::Adjusted, marked("adjusted by the camera") },
    { Outcome::Refused, marked("refused") },
    { Outcome::UnknownHere, marked("unknown here") },
    { Outcome::WouldBeWritten, marked("would be written") },
    { Outcome::NotKnown, marked("not known") },
} };

Words wordOf(Outcome outcome)
{
    const auto* const found = std::find_if(
        words.begin(), words.end(), [outcome](const auto& word) { return word.first == outcome; });
    return translated(found->second);
}

bool isGood(Outcome outcome)
{
    return outcome == Outcome::Restored || outcome == Outcome::AlreadySo
        || outcome == Outcome::WouldBeWritten;
}

/// "Gain: restored: 3 -> 5 [dB]", "Gain = 5 [dB]: refused: is read-only"
std::string lineText(const ZQRestoredLine& line)
{
    const std::string unit = line.line.unit.empty() ? "" : " [" + line.line.unit + "]";
    const std::string outcome = ": " + wordOf(line.outcome);
    const std::string label = line.line.label();
    switch (line.outcome) {
    case Outcome::Restored:
        return label + outcome + ": " + line.before + " -> " + line.now + unit;
    case Outcome::WouldBeWritten:
        return label + outcome + ": " + line.before + " -> " + line.line.value + unit;
    case Outcome::Adjusted:
        return label + outcome + ": " + line.line.value + " -> " + line.now + unit;
    case Outcome::AlreadySo:
        return label + outcome + ": " + line.now + unit;
    default:
        return label + " = " + line.line.value + unit + outcome + ": " + line.reason;
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
    std::string text = worded("%zu settings", lines.size());
    for (const auto& [outcome, word] : words) {
        const std::size_t number = count(outcome);
        text += number == 0 ? "" : ", " + std::to_string(number) + " " + translated(word).text();
    }
    text += "\n";
    for (const std::string& warning : warnings) {
        text += translated("warning").text() + ": " + warning + "\n";
    }
    text += error.empty() ? "" : translated("interrupted").text() + ": " + error + "\n";
    for (const ZQRestoredLine& line : lines) {
        const bool isToldAlways = !isGood(line.outcome) || line.outcome == Outcome::WouldBeWritten;
        if (all || isToldAlways) {
            text += oneLine(lineText(line)) + "\n";
        }
    }
    return text;
}

} // namespace zqcameralib
