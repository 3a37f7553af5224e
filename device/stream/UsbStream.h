// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Status.h"
#include "stream/StreamWords.h"

#include <arv.h>

namespace zqcameralib {

/// Asks a USB3 Vision camera what it requires of a stream, and sets `facts` to that; a failure when
/// no stream of the library below can fulfil it.
Status checkUsbStream(ArvDevice* device, StreamFacts& facts);

} // namespace zqcameralib
