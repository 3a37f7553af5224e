// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "featurebrowser/ZQCameraRepository.h"

#include "camera/ReadAheadTask.h"

namespace featurebrowser {

ZQCameraRepository::ZQCameraRepository(std::unique_ptr<Impl> impl)
    : m_impl(std::move(impl))
{
}

ZQCameraRepository::~ZQCameraRepository() = default;

bool ZQCameraRepository::isLoaded()
{
    return m_impl->isLoaded();
}
int ZQCameraRepository::Load()
{
    return m_impl->load();
}
std::string ZQCameraRepository::GetErrorText(int status)
{
    return m_impl->errorText(status);
}

void ZQCameraRepository::Clear()
{
    m_impl->clear();
}
int ZQCameraRepository::UpdateFeatureStates()
{
    return m_impl->updateStates();
}

std::unique_ptr<zqcameralib::ZQCameraTask> ZQCameraRepository::ReadAhead(bool onlyOutstanding)
{
    return std::make_unique<zqcameralib::ReadAheadTask>(*m_impl, onlyOutstanding);
}

bool ZQCameraRepository::HasOutstanding()
{
    return m_impl->hasOutstanding();
}

std::shared_ptr<FeatureItem> ZQCameraRepository::GetFeature(std::string name)
{
    return m_impl->find(name);
}

bool ZQCameraRepository::ReadFeature(const std::shared_ptr<FeatureItem>& item)
{
    return m_impl->read(item);
}

std::list<std::shared_ptr<FeatureItem>> ZQCameraRepository::GetInvalidatedFeatures(std::string name)
{
    return m_impl->invalidatedBy(name);
}

std::list<std::shared_ptr<FeatureItem>> ZQCameraRepository::GetSelectedFeatures(std::string name)
{
    return m_impl->selectedBy(name);
}

std::chrono::milliseconds ZQCameraRepository::GetPollingTime(const std::string& name)
{
    return m_impl->pollingTime(name);
}

std::list<std::shared_ptr<FeatureItem>>& ZQCameraRepository::GetFeatureList()
{
    return m_impl->items();
}

std::map<std::string, FEATURE_STATE>& ZQCameraRepository::GetFeatureStates()
{
    return m_impl->states();
}

std::string ZQCameraRepository::GetReason(const std::string& name)
{
    return m_impl->reason(name);
}

} // namespace featurebrowser
