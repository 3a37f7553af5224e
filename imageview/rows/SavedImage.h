// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "formats/ImageLines.h"

#include <QImage>

namespace featurebrowser {

/// The whole image with all its bits; null when there is not enough memory.
QImage savedImage(const ImageLines& lines);

} // namespace featurebrowser
