// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "look/ThemeColors.h"

namespace featurebrowser::colors {

namespace {

QColor mix(const QColor& base, const QColor& tint, double share)
{
    const auto blend = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return { blend(base.red(), tint.red()), blend(base.green(), tint.green()),
        blend(base.blue(), tint.blue()) };
}

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

} // namespace

QColor dim(const QPalette& palette)
{
    return mix(palette.color(QPalette::Text), palette.color(QPalette::Base), 0.36);
}

QColor categoryBackground(const QPalette& palette, bool isTopLevel)
{
    return mix(
        palette.color(QPalette::Base), palette.color(QPalette::Text), isTopLevel ? 0.11 : 0.05);
}

QColor alarm(const QPalette& palette)
{
    return QColor::fromHsl(6, 200, isDark(palette) ? 165 : 95);
}

QColor alarmBackground(const QPalette& palette)
{
    return mix(palette.color(QPalette::Base), alarm(palette), 0.16);
}

QColor changedBackground(const QPalette& palette, double strength)
{
    return mix(palette.color(QPalette::Base), palette.color(QPalette::Highlight), 0.3 * strength);
}

QColor matchBackground(const QPalette& palette)
{
    const QColor marker = QColor::fromHsl(48, 230, isDark(palette) ? 90 : 150);
    return mix(palette.color(QPalette::Base), marker, 0.75);
}

} // namespace featurebrowser::colors
