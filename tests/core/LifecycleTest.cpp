// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "CoreFixture.h"

#include "featurebrowser/ZQCamera.h"
#include "featurebrowser/ZQCameraRepository.h"

#include <vector>

namespace featurebrowser {
namespace {

using doubles::journal;

TEST_F(CoreTest, DeviceMadeFromACameraDiesAfterTheWidget)
{
    std::string error;
    const auto camera = zqcameralib::ZQCamera::OpenSimulated(error);
    {
        const ZQFeatureBrowser browser(camera.get(), nullptr);
    }
    EXPECT_EQ(journal(),
        "device.create(true, false)\n"
        "widget.create(false)\n"
        "widget.destroy()\n"
        "device.destroy()\n");
}

TEST_F(CoreTest, DeviceOfTheApplicationOutlivesTheBrowser)
{
    ZQCameraDevice device(nullptr, nullptr);
    journal().clear();
    {
        ICameraDevice* given = &device;
        ZQFeatureBrowser browser(given, nullptr);
        EXPECT_EQ(browser.GetCameraRepository(), device.GetRepository());
    }
    EXPECT_EQ(journal(), "widget.create(false)\nwidget.destroy()\n");
}

} // namespace
} // namespace featurebrowser
