// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/GObjectPointer.h"
#include "base/Status.h"
#include "session/CameraPlace.h"

#include <arv.h>

#include <chrono>

namespace zqcameralib {

/// How long others that are being opened are waited for.
constexpr std::chrono::seconds libraryLimit(60);

/// Whether something answers at `place`, asked past any session.
Status askForAnswer(const CameraPlace& place, OpeningProgress& progress);

/// Opens the library's device for the camera at `place`, which reads its description: the parser
/// has to be entered (LibraryLock). Tries again where the description got lost on its way.
Result<GObjectPointer<ArvDevice>> openDevice(const CameraPlace& place, OpeningProgress& progress);

} // namespace zqcameralib
