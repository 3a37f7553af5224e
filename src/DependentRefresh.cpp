// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Trace.h"
#include "ZQFeatureBrowserImpl.h"

namespace featurebrowser {

void ZQFeatureBrowser::ZQFeatureBrowserImpl::refreshFeature(std::string name)
{
    const std::shared_ptr<FeatureItem> item = repository->GetFeature(name);
    if (!item) {
        return;
    }
    updateFeature(item);
    traceBytes("Refresh feature in repository: " + name + " value: " + item->valueText + "\n");
    updateInvalidators(name);
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::refreshStates()
{
    if (widget->isVisible()) {
        widget->modifyFeatureStates(repository->GetFeatureStates());
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::recomputeStates()
{
    repository->UpdateFeatureStates();
    refreshStates();
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::updateSelectors(std::string name)
{
    const std::list<std::shared_ptr<FeatureItem>> items = repository->GetSelectedFeatures(name);
    for (const auto& item : items) {
        updateFeature(item);
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::updateInvalidators(std::string name)
{
    const std::list<std::shared_ptr<FeatureItem>> items = repository->GetInvalidatedFeatures(name);
    for (const auto& item : items) {
        updateFeature(item);
        if (item && item->name.find("MROI_Htot") != std::string::npos) {
            updateMultiRoiDependents();
        }
    }
    // Some cameras do not list these two dependents.
    if (name == "DoubleRate_Enable") {
        updateFeature("Width");
    }
    updateFeature("PayloadSize");
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::updateMultiRoiDependents()
{
    bool enabled = false;
    if (device->GetBooleanValue("MROI_Enable", &enabled) != STATUS_OK || !enabled) {
        return;
    }
    updateFeature("Height");
    updateFeature("HeightInterface");
}

} // namespace featurebrowser
