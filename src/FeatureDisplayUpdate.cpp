// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "FeatureRules.h"
#include "ZQFeatureBrowserImpl.h"

#include <array>
#include <limits>
#include <stdexcept>

namespace featurebrowser {
namespace {

/// Value of a plain integer. A text without any number becomes the largest value on purpose: the
/// user sees an impossible number in place of a stale one. A number beyond 64 bits throws
/// std::out_of_range.
long integerValue(const std::string& text)
{
    if (text.empty()) {
        return 0;
    }
    try {
        return std::stoll(text);
    } catch (const std::invalid_argument&) {
        return std::numeric_limits<long>::max();
    }
}

double floatValue(const std::string& text)
{
    return text.empty() ? 0.0 : customatof(text);
}

void pushText(CameraFeatureBrowser& widget, const FeatureItem& item, std::string text,
    CAM_TYPE_VALUE kind, std::list<std::string> entries = {})
{
    widget.modifyFeature(item.name, std::move(text), kind, std::move(entries), isReadOnly(item),
        isDisplayFlagSet(item));
}

} // namespace

CAM_TYPE_VALUE getType(int type)
{
    constexpr std::array kinds { CAM_TYPE_INTEGER, CAM_TYPE_FLOAT, CAM_TYPE_STRING,
        CAM_TYPE_ENUMERATION, CAM_TYPE_COMMAND, CAM_TYPE_BOOLEAN, CAM_TYPE_READ_ONLY_STRING };
    if (type < FEATURE_INTEGER || type > FEATURE_READ_ONLY_STRING) {
        return CAM_TYPE_NONE;
    }
    return kinds[static_cast<std::size_t>(type - FEATURE_INTEGER)];
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::updateFeature(const std::string& name)
{
    updateFeature(repository->GetFeature(name));
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::updateFeature(const std::shared_ptr<FeatureItem>& item)
{
    if (!item || !repository->ReadFeature(item)) {
        return;
    }
    switch (item->type) {
    case FEATURE_INTEGER:
        return updateInteger(*item);
    case FEATURE_FLOAT:
        return widget->modifyFeature(item->name, floatValue(item->valueText), item->floatMin,
            item->floatMax, item->floatInc, isReadOnly(*item), isDisplayFlagSet(*item));
    case FEATURE_ENUMERATION:
    case FEATURE_BOOLEAN:
        return pushText(*widget, *item, item->valueText, getType(item->type), item->enumEntries);
    case FEATURE_STRING:
    case FEATURE_COMMAND:
    case FEATURE_READ_ONLY_STRING:
        return pushText(*widget, *item, item->valueText, getType(item->type));
    default:
        return;
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::updateInteger(const FeatureItem& item)
{
    switch (integerForm(item)) {
    case IntegerForm::number:
        return widget->modifyFeature(item.name, integerValue(item.valueText), item.intMin,
            item.intMax, item.intInc, isReadOnly(item), isDisplayFlagSet(item));
    case IntegerForm::macAddress:
        if (item.valueText.empty()) {
            return;
        }
        return pushText(
            *widget, item, convertToMACAddress(std::stoll(item.valueText)), CAM_TYPE_STRING);
    case IntegerForm::ipv4Address:
        return pushText(*widget, item, getIPAddressV4Text(item.valueText.c_str()), CAM_TYPE_STRING);
    }
}

} // namespace featurebrowser
