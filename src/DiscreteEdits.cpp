// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "ZQFeatureBrowserImpl.h"

#include <array>
#include <utility>

namespace featurebrowser {

void ZQFeatureBrowser::ZQFeatureBrowserImpl::FeatureEnumModified(
    std::string name, std::string entry, int index)
{
    const int status = device->SetEnumValue(name.c_str(), entry.c_str(), index);
    if (status != STATUS_OK) {
        reportRefusedWrite(status);
        return;
    }
    const auto item = repository->GetFeature(name);
    updateFeature(item);
    if (item && item->isSelector) {
        updateSelectors(name);
    } else {
        updateInvalidators(name);
    }
    recomputeStates();
    if (receiver) {
        receiver->FeatureEnumModified(name, entry, index);
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::FeatureBoolModified(std::string name, int value)
{
    const int status = device->SetBooleanValue(name.c_str(), value != 0 ? 1 : 0);
    if (status != STATUS_OK) {
        reportRefusedWrite(status);
        return;
    }
    updateFeature(name);
    updateInvalidators(name);
    recomputeStates();
    if (receiver) {
        receiver->FeatureBoolModified(name, value);
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::FeatureStringModified(
    std::string name, std::string value)
{
    const int status = device->SetStringValue(name.c_str(), value.c_str());
    // A refused text does not stay in the widget, and the application hears of the edit before it
    // hears of the refusal.
    updateFeature(name);
    updateInvalidators(name);
    if (receiver) {
        receiver->FeatureStringModified(name, value);
    }
    if (status != STATUS_OK) {
        reportRefusedWrite(status);
    }
}

std::string ZQFeatureBrowser::ZQFeatureBrowserImpl::errorText(int code)
{
    std::array<char, errorTextSize> errorName {};
    std::array<char, errorTextSize> text {};
    device->GetErrorText(code, errorName.data(), text.data());
    text.back() = '\0';
    return text.data();
}

std::string ZQFeatureBrowser::ZQFeatureBrowserImpl::reportRefusedWrite(int status)
{
    std::string text = errorText(device->GetLastError());
    if (receiver) {
        receiver->SendError(status, text);
    }
    return text;
}

} // namespace featurebrowser
