// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/StatusCodes.h"

#include "featurebrowser/FeatureTypes.h"

#include <algorithm>
#include <array>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

struct KnownStatus {
    int code;
    const char* name;
    const char* text;
};

constexpr std::array<KnownStatus, 26> statuses { {
    { STATUS_OK, "OK", "No error." },
    { ERROR_VALUE_OUT_OF_RANGE, "VALUE_OUT_OF_RANGE", "The value is outside the limits." },
    { ERROR_VALUE_NOT_ON_INCREMENT, "VALUE_NOT_ON_INCREMENT",
        "The value is not a multiple of the increment." },
    { ERROR_FLOAT_OUT_OF_RANGE, "FLOAT_OUT_OF_RANGE", "The value is outside the limits." },
    { unknownFeature, "UNKNOWN_FEATURE", "The camera has no such feature." },
    { wrongKind, "WRONG_KIND", "The feature holds another kind of value." },
    { notAvailable, "NOT_AVAILABLE", "The feature is not available now." },
    { notReadable, "NOT_READABLE", "The feature cannot be read." },
    { notWritable, "NOT_WRITABLE", "The feature is read-only." },
    { featureLocked, "LOCKED", "The feature is locked now." },
    { unknownEntry, "UNKNOWN_ENTRY", "There is no such entry now." },
    { textTooLong, "TEXT_TOO_LONG", "The text is too long." },
    { invalidArgument, "INVALID_ARGUMENT", "The value is not valid." },
    { commandTimeout, "COMMAND_TIMEOUT", "The command was not done in time." },
    { notLoaded, "NOT_LOADED", "The features have not been read from the camera." },
    { notInValueSet, "NOT_IN_VALUE_SET", "The value is not one of those that are possible." },
    { notConvertible, "NOT_CONVERTIBLE", "The camera's formula cannot convert the value." },
    { notEvaluable, "NOT_EVALUABLE", "The value cannot be calculated." },
    { refused, "REFUSED", "The camera refused the value." },
    { noImage, "NO_IMAGE", "The camera tells no image size that can be acquired." },
    { injectedFault, "INJECTED_FAULT", "Injected fault." },
    { cameraLost, "CAMERA_LOST", "The camera does not answer." },
    { accessDenied, "ACCESS_DENIED", "Another application controls the camera." },
    { cameraSlow, "CAMERA_SLOW", "The camera answers too slowly." },
    { notSent, "NOT_SENT", "The camera answers too slowly; nothing was sent." },
    { stillWorking, "STILL_WORKING", "The camera is slow; what was begun goes on. Ask again." },
} };

const KnownStatus* find(int code)
{
    const auto found = std::find_if(
        statuses.begin(), statuses.end(), [code](const KnownStatus& s) { return s.code == code; });
    return found == statuses.end() ? nullptr : found;
}

} // namespace

std::string statusName(int code)
{
    const KnownStatus* status = find(code);
    return status == nullptr ? "DEVICE_ERROR" : status->name;
}

std::string statusText(int code)
{
    const KnownStatus* status = find(code);
    return status == nullptr ? "The camera reported an error." : status->text;
}

} // namespace zqcameralib
