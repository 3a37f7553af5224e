#pragma once

#include "featurebrowser/ZQCamera.h"
#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQCameraRepository.h"
#include "featurebrowser/ZQFeatureBrowser.h"

#include <QString>

#include <memory>

namespace zqviewer {

/// A camera as the viewer has it open, and what is said of it. Destroying it stops an acquisition
/// and gives the control back; a camera that does not answer delays that by 1.3 s at most.
class OpenedCamera {
public:
    /// `camera` may not be null.
    explicit OpenedCamera(std::unique_ptr<zqcameralib::ZQCamera> camera);
    OpenedCamera(const OpenedCamera&) = delete;
    OpenedCamera& operator=(const OpenedCamera&) = delete;
    ~OpenedCamera();

    zqcameralib::ZQCamera& camera() { return *m_camera; }
    featurebrowser::ZQCameraDevice& device() { return m_device; }
    featurebrowser::ZQCameraRepository& repository() { return *m_device.GetRepository(); }

    /// Vendor and model, for a window's title.
    QString name() const;
    /// A sentence for a status code of the device.
    QString errorText(int code);

    struct Reading {
        bool isComplete = false;
        QString text; ///< for the user
    };
    /// Tells the browser what its features are for; after each load.
    void describe(featurebrowser::ZQFeatureBrowser& browser);

    /// How the last loading of the repository went.
    Reading reading();

private:
    QString reason(const featurebrowser::FeatureItem& unread);

    std::unique_ptr<zqcameralib::ZQCamera> m_camera;
    featurebrowser::ZQCameraDevice m_device; ///< ends before the camera
};

} // namespace zqviewer
