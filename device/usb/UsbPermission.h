// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "words/Words.h"

namespace zqcameralib {

/// Which USB3 Vision cameras are plugged in that this program is not permitted to open, and what
/// has to be done about it; empty when there are none. The library below passes over them as if
/// they were not there.
Words unpermittedUsbCameras();

} // namespace zqcameralib
