// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/GlibError.h"
#include "base/Status.h"

namespace zqcameralib {

/// Errors of the library below about a real camera, in words for a user: it names its functions.

/// Whether every try of an access was in vain.
bool isAnswerMissing(const GError& error);
/// Whether the camera did not hand out its description.
bool isDescriptionMissing(const GlibError& error);
/// Why an access was refused; `error` may be empty.
Status accessFailure(const GlibError& error);
/// Why a camera could not be opened; `error` may be empty.
Status openingFailure(const GlibError& error);

} // namespace zqcameralib
