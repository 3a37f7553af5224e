// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include <featurebrowser/ZQCamera.h>
#include <featurebrowser/ZQCameraDevice.h>
#include <featurebrowser/ZQCameraRepository.h>
#include <featurebrowser/ZQFeatureBrowser.h>

#include <QApplication>

#include <cstdio>

// What a first user writes: a browser on the simulated camera. Succeeds when it holds features.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    std::string error;
    const auto camera = zqcameralib::ZQCamera::OpenSimulated(error);
    if (!camera) {
        std::fprintf(stderr, "%s\n", error.c_str());
        return 1;
    }
    zqcameralib::ZQCamera::OpenDescription("none", error);
    std::puts(error.c_str()); // in the user's language
    featurebrowser::ZQFeatureBrowser browser(camera.get(), nullptr);
    browser.GetCameraRepository()->Load();
    const int status = browser.LoadFeatureBrowser();
    browser.ShowDialog(0, 0, {}, featurebrowser::LEVEL_GURU);
    QApplication::processEvents();
    return status == 0 && browser.GetCameraRepository()->GetFeature("Width") ? 0 : 1;
}
