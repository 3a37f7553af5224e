// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

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
    /// `camera` may not be null. `origin`: what tells it from the real camera of its model, for the
    /// title: "simulated", a file's name; empty for a real one.
    explicit OpenedCamera(std::unique_ptr<zqcameralib::ZQCamera> camera, QString origin = {});
    OpenedCamera(const OpenedCamera&) = delete;
    OpenedCamera& operator=(const OpenedCamera&) = delete;
    ~OpenedCamera();

    zqcameralib::ZQCamera& camera() { return *m_camera; }
    featurebrowser::ZQCameraDevice& device() { return m_device; }
    featurebrowser::ZQCameraRepository& repository() { return *m_device.GetRepository(); }

    /// Vendor and model.
    QString name() const;
    /// Model with serial number and origin, for a window's title: no other camera that is open has
    /// the same.
    QString title();
    /// Among cameras that would have the same title, from 1.
    void setNumber(int number) { m_number = number; }
    int number() const { return m_number; }
    /// The record's value as its row shows it, without the unit; empty when there is none.
    QString shown(const char* name);
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
    QString m_origin;
    int m_number = 1;
    featurebrowser::ZQCameraDevice m_device; ///< ends before the camera
};

} // namespace zqviewer
