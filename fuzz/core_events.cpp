// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// Random records, device answers and event sequences through the core over the doubles. Only the
// exceptions of number conversions may come out.

#include "Journal.h"
#include "ReceiverDouble.h"
#include "Script.h"
#include "SystemDoubles.h"

#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQFeatureBrowser.h"

#include <array>
#include <cerrno>
#include <functional>
#include <stdexcept>

#include <fuzzer/FuzzedDataProvider.h>

namespace {

using featurebrowser::FeatureItem;
using Input = FuzzedDataProvider;

constexpr std::size_t longestText = 300; // beyond the fixed buffers

std::string anyName(Input& input)
{
    static const std::array<const char*, 16> names { "Width", "PayloadSize", "BinningVertical",
        "GevMACAddress", "GevCurrentIPAddress", "ExposureTime", "My_MROI_Htot", "DoubleRate_Enable",
        "Height", "HeightInterface", "DeviceReset", "AcquisitionStart", "AcquisitionStop", "Device",
        "A%sB%n", "Gain" };
    if (input.ConsumeProbability<float>() < 0.1F)
        return input.ConsumeRandomLengthString(longestText);
    return input.PickValueInArray(names);
}

std::string anyText(Input& input)
{
    return input.ConsumeBool() ? std::to_string(input.ConsumeIntegral<long>())
                               : input.ConsumeRandomLengthString(longestText);
}

std::shared_ptr<FeatureItem> anyItem(Input& input)
{
    if (input.ConsumeIntegralInRange(0, 20) == 0)
        return nullptr;
    auto item = std::make_shared<FeatureItem>();
    item->name = anyName(input);
    item->selectorParent = input.ConsumeBool() ? anyName(input) : std::string();
    item->valueText = anyText(input);
    item->description = input.ConsumeBool() ? anyText(input) : std::string();
    item->displayFlag = input.ConsumeIntegral<std::uint8_t>();
    item->accessMode = input.ConsumeIntegral<std::uint16_t>();
    item->lockedFlag = input.ConsumeIntegralInRange<std::uint8_t>(0, 2);
    item->type = input.ConsumeIntegralInRange<std::uint8_t>(0, 10);
    item->level = input.ConsumeIntegralInRange<std::uint8_t>(0, 4);
    item->depth = input.ConsumeIntegralInRange<std::uint8_t>(0, 6);
    item->representation = input.ConsumeIntegralInRange<std::uint16_t>(3, 7);
    item->isSelector = input.ConsumeBool();
    item->intMin = input.ConsumeIntegral<std::int64_t>();
    item->intMax = input.ConsumeIntegral<std::int64_t>();
    item->intInc = input.ConsumeIntegral<std::uint32_t>() >> input.ConsumeIntegralInRange(0, 31);
    item->floatMin = input.ConsumeFloatingPoint<double>();
    item->floatMax = input.ConsumeFloatingPoint<double>();
    item->floatInc = input.ConsumeFloatingPoint<double>();
    item->maxLength = input.ConsumeIntegral<std::uint32_t>();
    item->intWritable = input.ConsumeIntegralInRange(0, 1);
    for (int i = input.ConsumeIntegralInRange(0, 3); i > 0; --i)
        item->enumEntries.push_back(anyName(input));
    return item;
}

int anyStatus(Input& input)
{
    return input.PickValueInArray(
        { 0, 0, static_cast<int>(featurebrowser::ERROR_VALUE_OUT_OF_RANGE),
            static_cast<int>(featurebrowser::ERROR_VALUE_NOT_ON_INCREMENT),
            static_cast<int>(featurebrowser::ERROR_FLOAT_OUT_OF_RANGE), -1 });
}

void arrange(Input& input, doubles::Script& script)
{
    for (int i = input.ConsumeIntegralInRange(0, 6); i > 0; --i)
        script.features.push_back(anyItem(input));
    const auto anyItems = [&] {
        doubles::Items items = script.features;
        items.resize(std::min<std::size_t>(items.size(), input.ConsumeIntegralInRange(0U, 6U)));
        return items;
    };
    script.invalidated[anyName(input)] = anyItems();
    script.selected[anyName(input)] = anyItems();
    for (const char* operation : { "SetIntegerValue", "SetFloatValue", "SetEnumValue",
             "SetBooleanValue", "SetStringValue", "ExecuteCommand", "GetBooleanValue" })
        script.statuses[operation] = { anyStatus(input), anyStatus(input), anyStatus(input) };
    if (input.ConsumeBool())
        script.integerValue = input.ConsumeIntegral<long>();
    if (input.ConsumeBool())
        script.floatValue = input.ConsumeFloatingPoint<double>();
    script.booleanValue = input.ConsumeBool();
    script.errorText = input.ConsumeRandomLengthString(longestText);
    script.grabbing = input.ConsumeIntegralInRange(0, 1);
    script.loaded = input.ConsumeIntegralInRange(0, 9) != 0;
    script.pauseErrors = { EINTR, EINTR };
    script.onRead = [&input](FeatureItem& item) {
        if (input.ConsumeBool())
            item.valueText = anyText(input);
        return input.ConsumeIntegralInRange(0, 9) != 0;
    };
}

void act(Input& input, featurebrowser::ZQFeatureBrowser& browser,
    featurebrowser::IEventFeatureReceiver& events)
{
    doubles::script().visible = input.ConsumeBool();
    const std::string name = anyName(input);
    const std::array<std::function<void()>, 13> actions {
        [&] { events.FeatureIntModified(name, input.ConsumeIntegral<long>()); },
        [&] { events.FeatureEnumModified(name, anyText(input), input.ConsumeIntegral<int>()); },
        [&] { events.FeatureBoolModified(name, input.ConsumeIntegral<int>()); },
        [&] { events.FeatureStringModified(name, anyText(input)); },
        [&] { events.FeatureIPModified(name, anyText(input)); },
        [&] { events.FeatureDoubleModified(name, input.ConsumeFloatingPoint<double>()); },
        [&] { events.FeatureExecCommand(name); },
        [&] { events.ItemSelectionChanged(name); },
        [&] { browser.RefreshFeature(name); },
        [&] { browser.RefreshStates(); },
        [&] { browser.ReloadFeatureBrowser(); },
        [&] { browser.LoadFeatureBrowser(); },
        [&] { browser.ClearFeatureBrowser(); },
    };
    actions.at(input.ConsumeIntegralInRange<std::size_t>(0, 12))();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    doubles::reset();
    arrange(input, doubles::script());
    doubles::ReceiverDouble receiver;
    featurebrowser::ZQCameraDevice device(nullptr, nullptr);
    featurebrowser::ZQFeatureBrowser browser(&device, input.ConsumeBool() ? &receiver : nullptr);
    browser.ShowDialog(0, 0, {}, featurebrowser::LEVEL_GURU);
    const doubles::StderrDouble standardError;
    while (input.remaining_bytes() > 0) {
        doubles::journal().clear();
        try {
            act(input, browser, *doubles::script().shownTo);
        } catch (const std::logic_error&) { // std::invalid_argument, std::out_of_range
        }
    }
    return 0;
}
