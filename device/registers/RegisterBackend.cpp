// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "registers/RegisterBackend.h"

#include "base/StatusCodes.h"
#include "frames/FrameSource.h"
#include "words/Words.h"

namespace zqcameralib {

Result<std::unique_ptr<FrameSourceOpening>> RegisterBackend::openFrames(
    const ImageFormat& /*format*/, int /*buffers*/)
{
    return Status(noImage, translated("there are registers only"));
}

} // namespace zqcameralib
