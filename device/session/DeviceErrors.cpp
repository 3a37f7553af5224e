// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "session/DeviceErrors.h"

#include "base/AravisVersions.h"
#include "base/StatusCodes.h"
#include "words/Words.h"

#include <string>

namespace zqcameralib {

namespace {

constexpr int unknownError = deviceErrorBase + ARV_DEVICE_ERROR_UNKNOWN;

/// In words for a user; the library below names its functions.
Words refusalText(const GError& error)
{
    if (error.domain != arv_device_error_quark()) {
        return error.message;
    }
    switch (aravis::deviceErrorCode(error)) {
    case ARV_DEVICE_ERROR_TIMEOUT:
    case ARV_DEVICE_ERROR_NOT_CONNECTED:
        return translated("the camera does not answer");
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_BUSY:
        return translated("the camera is busy");
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED:
        return translated("access denied by the camera; another application may control it");
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_ADDRESS:
        return translated("the camera has no such register");
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT:
        return translated("the camera does not let the register be written");
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_PARAMETER:
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_BAD_ALIGNMENT:
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_NOT_IMPLEMENTED:
        return translated("the camera does not take such an access");
    default:
        return error.message;
    }
}

} // namespace

bool isAnswerMissing(const GError& error)
{
    if (error.domain != arv_device_error_quark()) {
        return false;
    }
    const int code = aravis::deviceErrorCode(error);
    return code == ARV_DEVICE_ERROR_TIMEOUT || code == ARV_DEVICE_ERROR_NOT_CONNECTED;
}

bool isDescriptionMissing(const GlibError& error)
{
    return error && error.get()->domain == arv_device_error_quark()
        && error.get()->code == ARV_DEVICE_ERROR_GENICAM_NOT_FOUND;
}

Status accessFailure(const GlibError& error)
{
    if (!error) {
        return { unknownError, translated("the camera refused the access") };
    }
    return Status::fromLibrary(*error.get()).withText(refusalText(*error.get()));
}

Status openingFailure(const GlibError& error)
{
    if (!error) {
        return { unknownError, translated("it cannot be opened") };
    }
    const Status failure = Status::fromLibrary(*error.get());
    if (isAnswerMissing(*error.get())) {
        return failure.withText(translated(
            "the camera stopped answering while it was opened; packets to or from it get lost"));
    }
    if (isDescriptionMissing(error)) {
        return failure.withText(translated(
            "the camera's description did not arrive; packets to or from it get lost, or it has "
            "none that can be read"));
    }
    return failure.withText(refusalText(*error.get()));
}

} // namespace zqcameralib
