// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "formats/ImageLines.h"
#include "view/ViewMapping.h"

#include <QImage>

namespace featurebrowser {

/// What the screen shows of an image in `area` (within the mapping's pictureRect(), not empty). No
/// more of the image is read than is shown.
QImage renderPicture(const ImageLines& lines, const ViewMapping& mapping, const QRect& area,
    bool isOverexposureShown);

} // namespace featurebrowser
