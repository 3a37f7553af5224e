// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/StatusCodes.h"

#include "words/Words.h"

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
    { STATUS_OK, "OK", marked("No error.") },
    { ERROR_VALUE_OUT_OF_RANGE, "VALUE_OUT_OF_RANGE", marked("The value is outside the limits.") },
    { ERROR_VALUE_NOT_ON_INCREMENT, "VALUE_NOT_ON_INCREMENT",
        marked("The value is not a multiple of the increment.") },
    { ERROR_FLOAT_OUT_OF_RANGE, "FLOAT_OUT_OF_RANGE", marked("The value is outside the limits.") },
    { unknownFeature, "UNKNOWN_FEATURE", marked("The camera has no such feature.") },
    { wrongKind, "WRONG_KIND", marked("The feature holds another kind of value.") },
    { notAvailable, "NOT_AVAILABLE", marked("The feature is not available now.") },
    { notReadable, "NOT_READABLE", marked("The feature cannot be read.") },
    { notWritable, "NOT_WRITABLE", marked("The feature is read-only.") },
    { featureLocked, "LOCKED", marked("The feature is locked now.") },
    { unknownEntry, "UNKNOWN_ENTRY", marked("There is no such entry now.") },
    { textTooLong, "TEXT_TOO_LONG", marked("The text is too long.") },
    { invalidArgument, "INVALID_ARGUMENT", marked("The value is not valid.") },
    { commandTimeout, "COMMAND_TIMEOUT", marked("The command was not done in time.") },
    { notLoaded, "NOT_LOADED", marked("The features have not been read from the camera.") },
    { notInValueSet, "NOT_IN_VALUE_SET",
        marked("The value is not one of those that are possible.") },
    { notConvertible, "NOT_CONVERTIBLE", marked("The camera's formula cannot convert the value.") },
    { notEvaluable, "NOT_EVALUABLE", marked("The value cannot be calculated.") },
    { refused, "REFUSED", marked("The camera refused the value.") },
    { noImage, "NO_IMAGE", marked("The camera tells no image size that can be acquired.") },
    { injectedFault, "INJECTED_FAULT", marked("Injected fault.") },
    { cameraLost, "CAMERA_LOST", marked("The camera does not answer.") },
    { accessDenied, "ACCESS_DENIED", marked("Another application controls the camera.") },
    { cameraSlow, "CAMERA_SLOW", marked("The camera answers too slowly.") },
    { notSent, "NOT_SENT", marked("The camera answers too slowly; nothing was sent.") },
    { stillWorking, "STILL_WORKING",
        marked("The camera is slow; what was begun goes on. Ask again.") },
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

Words statusText(int code)
{
    const KnownStatus* status = find(code);
    return translated(status == nullptr ? marked("The camera reported an error.") : status->text);
}

} // namespace zqcameralib
