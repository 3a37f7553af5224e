// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Journal.h"
#include "Script.h"

#include "featurebrowser/ZQCameraRepository.h"

#include <algorithm>

using doubles::note;
using doubles::script;

namespace featurebrowser {

class ZQCameraRepository::Impl { };

ZQCameraRepository::ZQCameraRepository(std::unique_ptr<Impl> impl)
    : m_impl(std::move(impl))
{
}
ZQCameraRepository::~ZQCameraRepository() = default;

bool ZQCameraRepository::isLoaded()
{
    note("repository.isLoaded");
    return script().loaded;
}

int ZQCameraRepository::Load()
{
    note("repository.Load");
    return 0;
}

void ZQCameraRepository::Clear()
{
    note("repository.Clear");
}

int ZQCameraRepository::UpdateFeatureStates()
{
    note("repository.UpdateFeatureStates");
    return 0;
}

std::shared_ptr<FeatureItem> ZQCameraRepository::GetFeature(std::string name)
{
    note("repository.GetFeature", name);
    const auto& items = script().features;
    const auto found = std::find_if(
        items.begin(), items.end(), [&](const auto& item) { return item && item->name == name; });
    return found == items.end() ? nullptr : *found;
}

bool ZQCameraRepository::ReadFeature(const std::shared_ptr<FeatureItem>& item)
{
    note("repository.ReadFeature", item);
    return script().onRead(*item);
}

std::list<std::shared_ptr<FeatureItem>> ZQCameraRepository::GetInvalidatedFeatures(std::string name)
{
    note("repository.GetInvalidatedFeatures", name);
    return script().invalidated[name];
}

std::list<std::shared_ptr<FeatureItem>> ZQCameraRepository::GetSelectedFeatures(std::string name)
{
    note("repository.GetSelectedFeatures", name);
    return script().selected[name];
}

std::list<std::shared_ptr<FeatureItem>>& ZQCameraRepository::GetFeatureList()
{
    note("repository.GetFeatureList");
    return script().features;
}

std::map<std::string, FEATURE_STATE>& ZQCameraRepository::GetFeatureStates()
{
    note("repository.GetFeatureStates");
    return script().states;
}

} // namespace featurebrowser

std::unique_ptr<featurebrowser::ZQCameraRepository> doubles::makeRepository()
{
    return std::make_unique<featurebrowser::ZQCameraRepository>(nullptr);
}
