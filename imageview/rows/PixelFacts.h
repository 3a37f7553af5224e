// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQImage.h"
#include "formats/ImageLines.h"

#include <cstdint>
#include <vector>

namespace featurebrowser {

/// The components of a pixel within the image.
std::vector<ZQPixelComponent> pixelComponents(const ImageLines& lines, int x, int y);
/// How often values occur, in 256 parts of the format's range.
std::vector<std::uint32_t> valueCounts(const ImageLines& lines);

} // namespace featurebrowser
