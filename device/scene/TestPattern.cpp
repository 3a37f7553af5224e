// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "scene/TestPattern.h"

#include <algorithm>
#include <array>

namespace zqcameralib {

namespace {

struct Word {
    std::string_view word;
    TestPattern pattern;
};

/// The first that the name holds counts.
constexpr std::array<Word, 11> words { { { "Off", TestPattern::Off }, { "None", TestPattern::Off },
    { "Black", TestPattern::Black }, { "White", TestPattern::White },
    { "HorizontalLine", TestPattern::HorizontalLine },
    { "VerticalLine", TestPattern::VerticalLine }, { "Counter", TestPattern::FrameCounter },
    { "Bar", TestPattern::ColorBar }, { "Diagonal", TestPattern::DiagonalRamp },
    { "Horizontal", TestPattern::HorizontalRamp }, { "Vertical", TestPattern::VerticalRamp } } };

constexpr std::uint16_t brightest = 0xFFFF;

Levels grey(std::uint64_t level)
{
    const auto same = static_cast<std::uint16_t>(level);
    return { same, same, same, same };
}

std::uint64_t shifted(std::int64_t at, std::uint64_t moved, std::int64_t length)
{
    return (static_cast<std::uint64_t>(at) + moved) % static_cast<std::uint64_t>(length);
}

/// From darkest to brightest over the whole length.
Levels rampAt(std::int64_t at, std::uint64_t moved, std::int64_t length)
{
    const auto last = static_cast<std::uint64_t>(std::max<std::int64_t>(length - 1, 1));
    return grey(shifted(at, moved, length) * brightest / last);
}

Levels lineAt(std::int64_t at, std::uint64_t moved, std::int64_t length)
{
    const std::uint64_t line = moved % static_cast<std::uint64_t>(length);
    return grey(static_cast<std::uint64_t>(at) == line ? brightest : 0);
}

/// White, yellow, cyan, green, magenta, red, blue, black.
Levels barAt(const PatternPlace& place)
{
    const auto bar = 7U - static_cast<unsigned>(place.column * 8 / place.width);
    const auto level = [](bool isOn) { return isOn ? brightest : std::uint16_t(0); };
    Levels levels { level((bar & 2U) != 0), level((bar & 4U) != 0), level((bar & 1U) != 0), 0 };
    levels.grey = static_cast<std::uint16_t>(bar * brightest / 7U);
    return levels;
}

} // namespace

TestPattern testPattern(std::string_view entry)
{
    const auto* const found = std::find_if(words.begin(), words.end(),
        [entry](const Word& word) { return entry.find(word.word) != std::string_view::npos; });
    return found == words.end() ? TestPattern::DiagonalRamp : found->pattern;
}

bool isMovingPattern(std::string_view entry)
{
    return entry.find("Moving") != std::string_view::npos;
}

Levels patternLevels(
    TestPattern pattern, const PatternPlace& place, std::uint64_t moved, std::uint64_t frame)
{
    switch (pattern) {
    case TestPattern::White:
        return grey(brightest);
    case TestPattern::HorizontalRamp:
        return rampAt(place.column, moved, place.width);
    case TestPattern::VerticalRamp:
        return rampAt(place.row, moved, place.height);
    case TestPattern::DiagonalRamp:
        return rampAt(place.column + place.row, moved, 256);
    case TestPattern::HorizontalLine:
        return lineAt(place.row, moved, place.height);
    case TestPattern::VerticalLine:
        return lineAt(place.column, moved, place.width);
    case TestPattern::ColorBar:
        return barAt(place);
    case TestPattern::FrameCounter:
        return grey((frame & 0xFFU) * 0x101U);
    case TestPattern::Off:
    case TestPattern::Black:
        break;
    }
    return {};
}

} // namespace zqcameralib
