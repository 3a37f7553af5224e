// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/GObjectPointer.h"
#include "base/Status.h"

#include <arv.h>

#include <string>

namespace zqcameralib {

/// Opens the USB3 Vision camera that discovery lists as `id`, or says for a user why it cannot. The
/// parser has to be entered (LibraryLock).
Result<GObjectPointer<ArvDevice>> openUsb(const std::string& id);

} // namespace zqcameralib
