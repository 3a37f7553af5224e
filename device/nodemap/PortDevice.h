#pragma once

#include "base/GObjectPointer.h"
#include "registers/RegisterPort.h"

#include <arv.h>

#include <chrono>
#include <string_view>

namespace zqcameralib {

struct PortDevice;

using PortDevicePointer = GObjectPointer<PortDevice>;

/// Makes a device for the node map whose every register access goes through `port`, which has to
/// outlive it, and evaluates `xml` over it. `xml` is a checked description. Any thread; waits at
/// most `limit` for others that are being opened.
Result<PortDevicePointer> makePortDevice(
    RegisterPort& port, std::string_view xml, std::chrono::milliseconds limit);

/// The device's node map; lives as long as the device.
ArvGc* nodeMap(PortDevice& device);

} // namespace zqcameralib
