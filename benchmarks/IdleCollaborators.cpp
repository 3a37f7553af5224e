// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// A camera side and a widget that do nothing, so that what is measured over them is the core's own
// share: the calls with the copies that the contract's signatures ask for.

#include "featurebrowser/CameraFeatureBrowser.h"
#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQCameraRepository.h"

using Items = std::list<std::shared_ptr<featurebrowser::FeatureItem>>;
using States = std::map<std::string, featurebrowser::FEATURE_STATE>;

namespace featurebrowser {

class ZQCameraRepository::Impl {
public:
    Items items;
    States states;
};

class ZQCameraDevice::Impl {
public:
    ZQCameraRepository repository { std::make_unique<ZQCameraRepository::Impl>() };
};

class CameraFeatureBrowser::Impl { };

ZQCameraRepository::ZQCameraRepository(std::unique_ptr<Impl> impl)
    : m_impl(std::move(impl))
{
}
ZQCameraRepository::~ZQCameraRepository() = default;
bool ZQCameraRepository::isLoaded()
{
    return true;
}
int ZQCameraRepository::Load()
{
    return 0;
}
void ZQCameraRepository::Clear() { }
int ZQCameraRepository::UpdateFeatureStates()
{
    return 0;
}
std::shared_ptr<FeatureItem> ZQCameraRepository::GetFeature(std::string)
{
    return nullptr;
}
bool ZQCameraRepository::ReadFeature(const std::shared_ptr<FeatureItem>&)
{
    return true;
}
Items ZQCameraRepository::GetInvalidatedFeatures(std::string)
{
    return {};
}
Items ZQCameraRepository::GetSelectedFeatures(std::string)
{
    return {};
}
Items& ZQCameraRepository::GetFeatureList()
{
    return m_impl->items;
}
States& ZQCameraRepository::GetFeatureStates()
{
    return m_impl->states;
}

ZQCameraDevice::ZQCameraDevice(zqcameralib::ZQCamera*, zqcameralib::ZQDiscovery*)
    : m_impl(std::make_unique<Impl>())
{
}
ZQCameraDevice::~ZQCameraDevice() = default;
ZQCameraRepository* ZQCameraDevice::GetRepository()
{
    return &m_impl->repository;
}
int ZQCameraDevice::SetIntegerValue(const char*, long, int)
{
    return 0;
}
int ZQCameraDevice::GetIntegerValue(const char*, long*)
{
    return 0;
}
int ZQCameraDevice::SetFloatValue(const char*, double)
{
    return 0;
}
int ZQCameraDevice::GetFloatValue(const char*, double*)
{
    return 0;
}
int ZQCameraDevice::SetStringValue(const char*, const char*)
{
    return 0;
}
int ZQCameraDevice::SetEnumValue(const char*, const char*, int)
{
    return 0;
}
int ZQCameraDevice::SetBooleanValue(const char*, int)
{
    return 0;
}
int ZQCameraDevice::GetBooleanValue(const char*, bool*)
{
    return 0;
}
int ZQCameraDevice::ExecuteCommand(const char*, int)
{
    return 0;
}
void ZQCameraDevice::GetErrorText(int, char*, char*) { }
int ZQCameraDevice::GetLastError()
{
    return 0;
}
int ZQCameraDevice::IsGrabbing()
{
    return 0;
}

CameraFeatureBrowser::CameraFeatureBrowser(QWidget*) { }
CameraFeatureBrowser::~CameraFeatureBrowser() = default;
void CameraFeatureBrowser::addCategory(std::string, TYPE_LEVEL) { }
void CameraFeatureBrowser::addSubCategory(std::string, std::string, TYPE_LEVEL) { }
void CameraFeatureBrowser::addIntFeature(std::string, std::string, long, long, long, unsigned int,
    TYPE_LEVEL, bool, bool, TYPE_SELECTOR, std::string)
{
}
void CameraFeatureBrowser::addDoubleFeature(std::string, std::string, double, double, double,
    double, TYPE_LEVEL, TYPE_SLIDER, bool, bool, TYPE_SELECTOR, std::string)
{
}
void CameraFeatureBrowser::addStringFeature(std::string, std::string, std::string, TYPE_LEVEL,
    unsigned int, bool, bool, TYPE_ADDRESS, TYPE_SELECTOR, std::string)
{
}
void CameraFeatureBrowser::addEnumFeature(std::string, std::string, int, std::list<std::string>,
    TYPE_LEVEL, bool, bool, bool, TYPE_SELECTOR, std::string)
{
}
void CameraFeatureBrowser::addCommandFeature(
    std::string, std::string, std::string, TYPE_LEVEL, bool, bool, TYPE_SELECTOR, std::string)
{
}
void CameraFeatureBrowser::modifyFeature(std::string, long, long, long, unsigned int, bool, bool) {
}
void CameraFeatureBrowser::modifyFeature(std::string, double, double, double, double, bool, bool) {
}
void CameraFeatureBrowser::modifyFeature(
    std::string, std::string, CAM_TYPE_VALUE, std::list<std::string>, bool, bool)
{
}
void CameraFeatureBrowser::setDefaultValue(std::string, long, std::string) { }
void CameraFeatureBrowser::setDefaultValue(std::string, double, std::string) { }
void CameraFeatureBrowser::setItemDescription(std::string, std::string) { }
void CameraFeatureBrowser::modifyFeatureStates(States&) { }
void CameraFeatureBrowser::setNumberOfSteps(int) { }
void CameraFeatureBrowser::setVisibility(TYPE_LEVEL) { }
void CameraFeatureBrowser::showDialog(IEventFeatureReceiver*, int, int, std::vector<int>, States) {
}
void CameraFeatureBrowser::showStandalone(
    IEventFeatureReceiver*, int, int, std::vector<int>, States)
{
}
void CameraFeatureBrowser::showDialog() { }
void CameraFeatureBrowser::hideDialog() { }
void CameraFeatureBrowser::closeDialog() { }
bool CameraFeatureBrowser::isVisible()
{
    return false;
}
QWidget* CameraFeatureBrowser::GetWidget()
{
    return nullptr;
}
void CameraFeatureBrowser::clearFeatureItems() { }

TYPE_SELECTOR getSelectorState(FeatureItem*)
{
    return SELECTOR_NONE;
}
std::string convertToMACAddress(long)
{
    return "00:11:22:33:44:55";
}
int getNumberOfDecimals(double)
{
    return 2;
}

} // namespace featurebrowser
