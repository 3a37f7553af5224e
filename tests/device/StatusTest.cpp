// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/Status.h"
#include "base/GlibError.h"
#include "base/NumberText.h"
#include "base/StatusCodes.h"

#include <arv.h>
#include <gtest/gtest.h>

#include <cfloat>
#include <limits>

using namespace zqcameralib;

namespace {

TEST(Status, OfALibraryErrorKeepsItsCodeAndIsNeverASuccess)
{
    const GQuark other = g_quark_from_static_string("another library");
    for (const auto& [domain, code, expected] :
        { std::tuple(arv_device_error_quark(), 0, deviceErrorBase),
            { arv_device_error_quark(), 7, deviceErrorBase + 7 },
            { arv_gc_error_quark(), 0, nodeMapErrorBase },
            { arv_gc_error_quark(), 3, nodeMapErrorBase + 3 }, { other, 0, otherErrorBase },
            { other, 5, otherErrorBase + 5 }, { other, -otherErrorBase, otherErrorBase } }) {
        GlibError error;
        g_set_error_literal(error.out(), domain, code, "the words");
        EXPECT_EQ(Status::fromLibrary(*error.get()).code(), expected);
        EXPECT_EQ(Status::fromLibrary(*error.get()).text(), "the words");
    }
}

TEST(Status, OfAFailureStaysOneWhateverItsCodeAndWords)
{
    EXPECT_EQ(Status(0, "words").code(), otherErrorBase);
    EXPECT_EQ(Status(featureLocked, "").text(), "The feature is locked now.");
    EXPECT_EQ(Status(notSent, "a").withText("b").code(), notSent);
    EXPECT_EQ(Status(notSent, "a").withText("b").text(), "b");
    EXPECT_TRUE(Status().withText("b").isOk());
    EXPECT_EQ(Result<int>(7).value(), 7);
    EXPECT_EQ(Result<int>(Status()).status().code(), otherErrorBase);
    EXPECT_EQ(Result<int>(Status(notSent, "a")).status().text(), "a");
}

TEST(NumberText, ShowsOnlyBytesAndLimitsThatThereAre)
{
    const std::vector<std::uint8_t> bytes(65, 0xA5);
    EXPECT_EQ(hexText(bytes.data(), 64).size(), 64U * 3 - 1);
    EXPECT_EQ(hexText(bytes.data(), 65), hexText(bytes.data(), 64) + " ... (65 bytes)");
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(finiteMinimum(nan), -DBL_MAX);
    EXPECT_EQ(finiteMinimum(infinity), DBL_MAX);
    EXPECT_EQ(finiteMaximum(nan), DBL_MAX);
    EXPECT_EQ(finiteMaximum(-infinity), -DBL_MAX);
}

} // namespace
