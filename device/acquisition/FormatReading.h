// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"
#include "frames/FrameSource.h"
#include "registers/RegisterBackend.h"

#include "featurebrowser/ICameraDevice.h"

#include <array>
#include <string>

namespace zqcameralib {

/// Reads what a camera's images will look like, in small steps, so that a slow camera can be asked
/// in several calls.
class FormatReading {
public:
    FormatReading(ZQCamera::Impl& camera, featurebrowser::ICameraDevice& device);

    /// Reads the next thing. A failure when there is no image to be had, or the camera is lost;
    /// after stillWorking, when no time was left, the same step can be tried again.
    Status step();
    bool isOver() const;
    /// Whether nothing was written to the camera since it began.
    bool isStillTrue() const;
    const ImageFormat& format() const { return m_format; }

private:
    using Step = Status (FormatReading::*)();

    Status readWidth();
    Status readHeight();
    Status readPixelFormat();
    Status readPayload();
    Status readRate();
    Status readLimit();
    Status readTrigger();

    Status readSide(const char* name, std::int64_t& value);
    /// Where there is no such feature, or it cannot be read, they leave the value as it is, which
    /// is a failure only when it makes no sense to go on now. `code`: of the reading itself.
    Status readInteger(const char* name, std::int64_t& value, int& code);
    Status readEnum(const Feature& feature, std::int64_t& value);
    Status readEntry(const char* name, std::string& entry);
    Status mayGoOn(int code);

    static const std::array<Step, 7> steps;

    ZQCamera::Impl& m_camera;
    featurebrowser::ICameraDevice& m_device;
    std::uint64_t m_changes;
    std::size_t m_next = 0;
    ImageFormat m_format;
};

/// What the device says of a code, for the user.
std::string deviceText(featurebrowser::ICameraDevice& device, int code);

} // namespace zqcameralib
