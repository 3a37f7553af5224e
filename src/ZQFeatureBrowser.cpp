// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "featurebrowser/ZQFeatureBrowser.h"

#include "Trace.h"
#include "ZQFeatureBrowserImpl.h"

#include <utility>

namespace featurebrowser {

std::list<std::string> listOfLogarithmicControls { "ExposureTime" };

// The implementation: lifecycle, loading and the events that are only passed on.

ZQFeatureBrowser::ZQFeatureBrowserImpl::ZQFeatureBrowserImpl(
    ZQCameraDevice* cameraDevice, bool takeDevice, IEventFeatureReceiver* applicationReceiver)
    : device(cameraDevice)
    , repository(cameraDevice->GetRepository())
    , widget(new CameraFeatureBrowser(nullptr))
    , receiver(applicationReceiver)
    , ownsDevice(takeDevice)
{
}

ZQFeatureBrowser::ZQFeatureBrowserImpl::ZQFeatureBrowserImpl(
    zqcameralib::ZQCamera* camera, IEventFeatureReceiver* applicationReceiver)
    : ZQFeatureBrowserImpl(new ZQCameraDevice(camera, nullptr), true, applicationReceiver)
{
}

ZQFeatureBrowser::ZQFeatureBrowserImpl::ZQFeatureBrowserImpl(
    ICameraDevice* cameraDevice, IEventFeatureReceiver* applicationReceiver)
    : ZQFeatureBrowserImpl(static_cast<ZQCameraDevice*>(cameraDevice), false, applicationReceiver)
{
}

ZQFeatureBrowser::ZQFeatureBrowserImpl::~ZQFeatureBrowserImpl()
{
    delete widget;
    if (ownsDevice) {
        delete device;
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::applyShowSettings(TYPE_LEVEL level)
{
    constexpr int sliderSteps = 1000;
    widget->setNumberOfSteps(sliderSteps);
    widget->setVisibility(level);
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::showDialog(
    int a, int b, std::vector<int> columns, TYPE_LEVEL level)
{
    if (widget->isVisible()) {
        widget->showDialog();
        return;
    }
    applyShowSettings(level);
    const auto& states = repository->GetFeatureStates();
    widget->showDialog(this, a, b, std::move(columns), states);
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::showStandalone(
    int a, int b, std::vector<int> columns, TYPE_LEVEL level)
{
    if (widget->isVisible()) {
        return;
    }
    applyShowSettings(level);
    const auto& states = repository->GetFeatureStates();
    widget->showStandalone(this, a, b, std::move(columns), states);
}

int ZQFeatureBrowser::ZQFeatureBrowserImpl::loadFeatureBrowser()
{
    if (!repository->isLoaded()) {
        traceText("Repository not loaded !!!");
        return -1;
    }
    if (!loaded) {
        widget->clearFeatureItems();
        addFeatureItems(repository->GetFeatureList());
        loaded = true;
    }
    // A copy, so that no record disappears while values are pushed.
    const std::list<std::shared_ptr<FeatureItem>> items = repository->GetFeatureList();
    for (const auto& item : items) {
        updateFeature(item);
    }
    traceText("Fill finished !!!");
    return 0;
}

int ZQFeatureBrowser::ZQFeatureBrowserImpl::reloadRepository()
{
    repository->Clear();
    repository->Load();
    return loadFeatureBrowser();
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::addFeatureItems(
    const std::list<std::shared_ptr<FeatureItem>>& items)
{
    categoryPath.clear();
    for (const auto& item : items) {
        if (!item) {
            continue;
        }
        categoryPath.resize(item->depth);
        if (item->type == FEATURE_CATEGORY) {
            addCategoryItem(*item);
        } else {
            addFeatureItem(item, item->level);
        }
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::addCategoryItem(const FeatureItem& item)
{
    const auto level = static_cast<TYPE_LEVEL>(item.level);
    if (item.depth == 0) {
        widget->addCategory(item.name, level);
    } else {
        widget->addSubCategory(categoryPath.back(), item.name, level);
    }
    categoryPath.push_back(item.name);
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::ItemColumnResized(int column, int width)
{
    if (receiver) {
        receiver->ItemColumnResized(column, width);
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::FeatureCloseDialog(
    int width, int height, TYPE_LEVEL level)
{
    if (receiver) {
        receiver->FeatureCloseDialog(width, height, level);
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::SendError(int code, std::string text)
{
    if (receiver) {
        receiver->SendError(code, std::move(text));
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::FeatureLevelChanged(TYPE_LEVEL level)
{
    if (receiver) {
        receiver->FeatureLevelChanged(level);
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::AllConfigChanged()
{
    if (receiver) {
        receiver->AllConfigChanged();
    }
}

// The facade.

ZQFeatureBrowser::ZQFeatureBrowser(zqcameralib::ZQCamera* camera, IEventFeatureReceiver* receiver)
    : impl(std::make_unique<ZQFeatureBrowserImpl>(camera, receiver))
{
}

ZQFeatureBrowser::ZQFeatureBrowser(ICameraDevice* device, IEventFeatureReceiver* receiver)
    : impl(std::make_unique<ZQFeatureBrowserImpl>(device, receiver))
{
}

ZQFeatureBrowser::~ZQFeatureBrowser() = default;

void ZQFeatureBrowser::ShowDialog(int a, int b, std::vector<int> columns, TYPE_LEVEL level)
{
    impl->showDialog(a, b, std::move(columns), level);
}

void ZQFeatureBrowser::ShowStandalone(int a, int b, std::vector<int> columns, TYPE_LEVEL level)
{
    impl->showStandalone(a, b, std::move(columns), level);
}

void ZQFeatureBrowser::Show()
{
    impl->widget->showDialog();
}

void ZQFeatureBrowser::Hide()
{
    impl->widget->hideDialog();
}

void ZQFeatureBrowser::CloseDialog()
{
    if (impl->widget->isVisible()) {
        impl->widget->closeDialog();
    }
}

void ZQFeatureBrowser::ClearFeatureBrowser()
{
    impl->widget->clearFeatureItems();
    impl->repository->Clear();
}

void ZQFeatureBrowser::RefreshStates()
{
    impl->refreshStates();
}

void ZQFeatureBrowser::RefreshFeature(std::string name)
{
    impl->refreshFeature(std::move(name));
}

int ZQFeatureBrowser::LoadFeatureBrowser()
{
    impl->loaded = false;
    return impl->loadFeatureBrowser();
}

int ZQFeatureBrowser::ReloadFeatureBrowser()
{
    return impl->reloadRepository();
}

QWidget* ZQFeatureBrowser::GetWidget()
{
    return impl->widget->GetWidget();
}

ZQCameraRepository* ZQFeatureBrowser::GetCameraRepository()
{
    return impl->repository;
}

} // namespace featurebrowser
