// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/Description.h"

namespace zqcameralib {

/// Whether the camera's four-byte registers are to be accessed as registers, and not as memory,
/// where the camera knows both (GigE Vision): then they come big endian, as its description says,
/// whatever its memory holds. So for descriptions of schema 1.0 (GenICam standard 2.0, appendix 3),
/// and for cameras that say 1.1 and behave as 1.0.
bool wantsRegisterAccess(const Description& description);

} // namespace zqcameralib
