// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "../EventJournal.h"
#include "../TreeUser.h"

#include "featurebrowser/ZQCamera.h"
#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQFeatureBrowser.h"

#include <memory>

/// A browser on the simulated camera in a real window, used as a person uses it. All three
/// libraries are the real ones.
class Browser : public TreeUser {
public:
    explicit Browser(bool hasReceiver = true);
    ~Browser() override;

    EventJournal journal; ///< the application's

    featurebrowser::ZQCameraDevice& device() { return *m_device; }
    featurebrowser::ZQFeatureBrowser& browser() { return *m_browser; }
    QWidget* window() const override { return m_browser->GetWidget(); }

    bool isReadOnly(const char* name) const { return role(name, "readOnly").toBool(); }

    /// The camera's own values, past the browser.
    long integer(const char* name);
    double number(const char* name);

private:
    std::unique_ptr<zqcameralib::ZQCamera> m_camera;
    std::unique_ptr<featurebrowser::ZQCameraDevice> m_device;
    std::unique_ptr<featurebrowser::ZQFeatureBrowser> m_browser;
};
