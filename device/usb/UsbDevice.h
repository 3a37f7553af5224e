// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/GObjectPointer.h"

#include <arv.h>

#include <string>

namespace zqcameralib {

/// What names a USB3 Vision camera among all that are plugged in.
struct UsbIdentity {
    std::string vendor;
    std::string model;
    std::string serial;
};

/// Opens the library's USB3 Vision device, of a class derived from it that mends how it treats
/// failed reads and long writes. The parser has to be entered (LibraryLock).
GObjectPointer<ArvDevice> newUsbDevice(const UsbIdentity& identity, GError** error);

} // namespace zqcameralib
