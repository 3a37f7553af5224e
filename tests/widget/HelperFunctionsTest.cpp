// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "featurebrowser/CameraFeatureBrowser.h"

#include <gtest/gtest.h>

#include <limits>

namespace featurebrowser {

TEST(HelperFunctions, DecimalsShowNineSignificantDigits)
{
    const std::vector<std::pair<double, int>> cases { { 0, 0 }, { 5, 0 }, { -5.5, 1 }, { 29.97, 2 },
        { 100, 0 }, { 1e-8, 8 }, { 1.23456789e-3, 11 }, { 1e-20, 15 }, { 0.1 + 0.2, 1 },
        { 1.0 / 3, 9 }, { 123456789.5, 0 }, { 9.9999999999, 0 }, { 1e300, 0 },
        { std::numeric_limits<double>::infinity(), 0 },
        { std::numeric_limits<double>::quiet_NaN(), 0 } };
    for (const auto& [value, decimals] : cases) {
        EXPECT_EQ(getNumberOfDecimals(value), decimals) << value;
    }
}

TEST(HelperFunctions, MacAddressIsTheLow48Bits)
{
    EXPECT_EQ(convertToMACAddress(0), "00:00:00:00:00:00");
    EXPECT_EQ(convertToMACAddress(0x001A2B3C4D5E), "00:1A:2B:3C:4D:5E");
    EXPECT_EQ(convertToMACAddress(-1), "FF:FF:FF:FF:FF:FF");
}

TEST(HelperFunctions, SelectorRoleComesFromBothSidesOfTheRelation)
{
    FeatureItem item;
    EXPECT_EQ(getSelectorState(&item), SELECTOR_NONE);
    item.selectorParent = "LUTSelector";
    EXPECT_EQ(getSelectorState(&item), SELECTOR_SELECTED);
    item.isSelector = true;
    EXPECT_EQ(getSelectorState(&item), SELECTOR_BOTH);
    item.selectorParent.clear();
    EXPECT_EQ(getSelectorState(&item), SELECTOR_SELECTOR);
    EXPECT_EQ(getSelectorState(nullptr), SELECTOR_NONE);
}

} // namespace featurebrowser
