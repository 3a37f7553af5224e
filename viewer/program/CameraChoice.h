// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQCamera.h"

#include <QString>

namespace zqviewer {

/// Which camera is to be opened, and how: a real one, a description that is simulated, or the
/// built-in simulated camera when both are empty.
struct CameraChoice {
    QString description; ///< GenICam description to simulate
    QString camera; ///< as for zqcameralib::ZQCamera::Open
    zqcameralib::CameraAccess access = zqcameralib::CameraAccess::Control;

    bool isReal() const { return !camera.isEmpty(); }
    /// What tells it from the real camera of its model, for a title: "simulated", the file's name;
    /// empty for a real one.
    QString origin() const;
    bool operator==(const CameraChoice& other) const
    {
        return description == other.description && camera == other.camera;
    }
};

} // namespace zqviewer
