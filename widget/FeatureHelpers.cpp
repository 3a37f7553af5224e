// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// The free functions that the widget shares with its users.
#include "featurebrowser/CameraFeatureBrowser.h"

#include <QByteArray>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace featurebrowser {

TYPE_SELECTOR getSelectorState(FeatureItem* item)
{
    if (item == nullptr) {
        return SELECTOR_NONE;
    }
    const int role = (item->isSelector ? SELECTOR_SELECTOR : SELECTOR_NONE)
        | (item->selectorParent.empty() ? SELECTOR_NONE : SELECTOR_SELECTED);
    return static_cast<TYPE_SELECTOR>(role);
}

std::string convertToMACAddress(long address)
{
    constexpr int bytes = 6;
    const quint64 ordered = qToBigEndian(static_cast<quint64>(address) << 16U);
    const QByteArray raw(reinterpret_cast<const char*>(&ordered), bytes);
    return raw.toHex(':').toUpper().toStdString();
}

int getNumberOfDecimals(double value)
{
    constexpr int digits = 9;
    constexpr int maxDecimals = 15;
    if (!std::isfinite(value) || value == 0) {
        return 0;
    }
    std::array<char, 32> buffer {};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
        std::chars_format::scientific, digits - 1);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
    const std::size_t mark = text.find('e');
    const std::size_t lastDigit = text.substr(0, mark).find_last_not_of("0.");
    const int fraction = lastDigit == 0 ? 0 : static_cast<int>(lastDigit) - 1;
    int exponent = 0;
    const std::size_t sign = text[mark + 1] == '+' ? 1 : 0; // from_chars takes no plus
    std::from_chars(text.data() + mark + 1 + sign, text.data() + text.size(), exponent);
    return std::clamp(fraction - exponent, 0, maxDecimals);
}

} // namespace featurebrowser
