// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"

#include <QRect>
#include <QString>

namespace zqviewer {

/// Writes the camera's region of interest: OffsetX, OffsetY, Width and Height, each axis in the
/// order in which no step in between leaves the sensor, on the grid that the camera gives. Images
/// may not be running: these features are locked then.
class RegionOfInterest {
public:
    /// `camera` has to outlive this.
    explicit RegionOfInterest(OpenedCamera& camera)
        : m_camera(camera)
    {
    }

    /// Whether the camera's images have this size now, so that pixels of one are those of the
    /// camera.
    bool isOfSize(const QSize& image);
    /// `pixels` of an image of the present region. Widened to the grid. Returns why not, as a
    /// sentence; empty when it has; what was written before a refusal stays.
    QString select(const QRect& pixels);
    /// As large as the camera can.
    QString selectAll();
    /// What the region is now: "640 × 480 at (128, 64)".
    QString words();

private:
    struct Axis;

    QString write(const Axis& axis, std::int64_t first, std::int64_t size);
    QString writeValue(const char* name, std::int64_t value);
    std::int64_t valueOf(const char* name);
    std::shared_ptr<featurebrowser::FeatureItem> read(const char* name);

    OpenedCamera& m_camera;
};

} // namespace zqviewer
