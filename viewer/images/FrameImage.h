// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQAcquisition.h"
#include "featurebrowser/ZQImage.h"

namespace zqviewer {

/// The frame as an image over the same bytes, which belong to the acquisition.
inline featurebrowser::ZQImage imageOf(const featurebrowser::ZQFrame& frame)
{
    featurebrowser::ZQImage image;
    image.data = frame.data;
    image.size = frame.size;
    image.width = frame.width;
    image.height = frame.height;
    image.pixelFormat = frame.pixelFormat;
    image.frameId = frame.frameId;
    image.timestampNs = frame.timestampNs;
    return image;
}

} // namespace zqviewer
