// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// Random text through the number and address conversions and the description text.

#include "Journal.h"
#include "Script.h"
#include "SystemDoubles.h"

#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQFeatureBrowser.h"

#include <cmath>
#include <cstdlib>
#include <stdexcept>

#include <fuzzer/FuzzedDataProvider.h>

namespace {

using namespace featurebrowser;

void require(bool condition)
{
    if (!condition)
        std::abort();
}

/// What the journal tells between the two.
std::string noted(const std::string& start, char end)
{
    const std::size_t begin = doubles::journal().find(start) + start.size();
    return doubles::journal().substr(begin, doubles::journal().find(end, begin) - begin);
}

/// Shows `text` as an IPv4 address, whatever number it holds; "" when it holds none.
std::string shownAddress(ZQFeatureBrowser& browser, FeatureItem& item, const std::string& text)
{
    item.valueText = text;
    doubles::script().onRead = [](auto&) { return true; };
    doubles::journal().clear();
    try {
        browser.LoadFeatureBrowser();
    } catch (const std::logic_error&) { // std::invalid_argument, std::out_of_range
        return {};
    }
    return noted(R"(widget.modifyText("IP", ")", '"');
}

/// The number that the device gets when a user enters `text` as an address.
std::string writtenAddress(const std::string& text)
{
    doubles::script().onRead = [](auto&) { return false; }; // the display is not of interest
    doubles::journal().clear();
    doubles::script().shownTo->FeatureIPModified("IP", text);
    return noted("device.SetIntegerValue(\"IP\", ", ',');
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    const auto item = std::make_shared<FeatureItem>();
    item->name = "IP";
    item->type = FEATURE_INTEGER;
    item->representation = REPRESENTATION_IPV4;
    item->depth = 1;
    doubles::reset();
    doubles::script().features = { item };
    ZQCameraDevice device(nullptr, nullptr);
    ZQFeatureBrowser browser(&device, nullptr);
    browser.ShowDialog(0, 0, {}, LEVEL_GURU);
    const doubles::StderrDouble standardError;

    const auto limit = input.ConsumeFloatingPoint<double>();
    const auto number = std::to_string(input.ConsumeIntegral<std::uint32_t>());
    const auto type = input.ConsumeIntegralInRange<std::uint8_t>(0, 10);
    const std::string text = input.ConsumeRemainingBytesAsString();
    require(std::isfinite(customatof(text)));
    // Numbers below 2^32 and dotted texts are two ways to write the same.
    require(writtenAddress(shownAddress(browser, *item, number)) == number);
    const std::string dotted = shownAddress(browser, *item, text);
    require(dotted.empty() || shownAddress(browser, *item, writtenAddress(dotted)) == dotted);
    writtenAddress(text);

    item->description = text;
    item->enumEntries = { text, number };
    item->type = type;
    item->floatMin = limit;
    item->floatInc = limit;
    doubles::script().decimals[limit] = static_cast<int>(text.size() % 16);
    const std::string description = getTextDescription(item);
    require(type < FEATURE_INTEGER || type > FEATURE_READ_ONLY_STRING
        || description.compare(0, text.size(), text) == 0);
    return 0;
}
