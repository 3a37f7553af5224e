// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Browser.h"

#include "featurebrowser/ZQCameraRepository.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace featurebrowser;

Browser::Browser(bool hasReceiver)
{
    std::string error;
    m_camera = zqcameralib::ZQCamera::OpenSimulated(error);
    if (!m_camera) {
        throw std::runtime_error(error);
    }
    m_device = std::make_unique<ZQCameraDevice>(m_camera.get(), nullptr);
    m_device->GetRepository()->Load();
    m_browser
        = std::make_unique<ZQFeatureBrowser>(m_device.get(), hasReceiver ? &journal : nullptr);
    m_browser->LoadFeatureBrowser();
    m_browser->ShowStandalone(900, 900, {}, LEVEL_GURU);
    tree()->expandAll();
    if (!waitForActive(Browser::window())) {
        throw std::runtime_error("the window never became active");
    }
}

Browser::~Browser() = default;

long Browser::integer(const char* name)
{
    long value = -1;
    EXPECT_EQ(m_device->GetIntegerValue(name, &value), STATUS_OK) << name;
    return value;
}

double Browser::number(const char* name)
{
    double value = -1;
    EXPECT_EQ(m_device->GetFloatValue(name, &value), STATUS_OK) << name;
    return value;
}
