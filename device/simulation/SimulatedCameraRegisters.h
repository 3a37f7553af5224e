// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace zqcameralib {

class RegisterMemory;

/// Registers of the simulated camera that its behaviour works on; the description names them all.
/// 32-bit words, big-endian, unless a comment says otherwise.
namespace simulated {

// At the addresses of Aravis' fake camera.
constexpr std::uint64_t deviceUserId = 0xe8; // text, 16 bytes
constexpr std::uint64_t width = 0x100;
constexpr std::uint64_t height = 0x104;
constexpr std::uint64_t binningHorizontal = 0x108;
constexpr std::uint64_t binningVertical = 0x10c;
constexpr std::uint64_t gainAll = 0x110; // 0.1 dB
constexpr std::uint64_t gainAuto = 0x114;
constexpr std::uint64_t sensorHeight = 0x118;
constexpr std::uint64_t sensorWidth = 0x11c;
constexpr std::uint64_t exposureTime = 0x120; // us
constexpr std::uint64_t acquisition = 0x124; // 1 while images are taken
constexpr std::uint64_t pixelFormat = 0x128;
constexpr std::uint64_t offsetX = 0x130;
constexpr std::uint64_t offsetY = 0x134;
constexpr std::uint64_t framePeriod = 0x138; // us
constexpr std::uint64_t triggerMode = 0x300; // two triggers, 0x20 apart
constexpr std::uint64_t triggerSource = 0x304;
constexpr std::uint64_t triggerSoftware = 0x30c;
constexpr std::uint64_t persistentIpAddress = 0x64c;
constexpr std::uint64_t persistentSubnetMask = 0x65c;
constexpr std::uint64_t persistentGateway = 0x66c;

// Settings of our own: 0x1000 to 0x12ff.
constexpr std::uint64_t doubleRateEnable = 0x1020;
constexpr std::uint64_t mroiEnable = 0x1034;
constexpr std::uint64_t mroiY = 0x1040; // four bands
constexpr std::uint64_t mroiH = 0x1050; // four bands
constexpr std::uint64_t frameRateEnable = 0x1064;
constexpr std::uint64_t exposureAuto = 0x106c;
constexpr std::uint64_t exposureAutoTarget = 0x1070; // float, %
constexpr std::uint64_t exposureAutoLower = 0x1078; // double, us
constexpr std::uint64_t exposureAutoUpper = 0x1080; // double, us
constexpr std::uint64_t balanceWhiteAuto = 0x10c8;
constexpr std::uint64_t balanceRatio = 0x10d0; // float, three colours
constexpr std::uint64_t lineMode = 0x1164; // four lines
constexpr std::uint64_t lineInverter = 0x1174; // four lines
constexpr std::uint64_t lineSource = 0x1184; // four lines
constexpr std::uint64_t decimationHorizontal = 0x1220;
constexpr std::uint64_t decimationVertical = 0x1224;
constexpr std::uint64_t userOutput = 0x11bc; // two outputs

// State, not part of a user set.
constexpr std::uint64_t firmwareVersion = 0x2000; // text, 32 bytes
constexpr std::uint64_t temperature = 0x2040; // float, degrees Celsius, three places
constexpr std::uint64_t timestampLatch = 0x2060;
constexpr std::uint64_t timestampReset = 0x2064;
constexpr std::uint64_t timestampLatchValue = 0x2068; // 64 bits, ns
constexpr std::uint64_t deviceReset = 0x2070;
constexpr std::uint64_t serviceKey = 0x2074;
constexpr std::uint64_t serviceUnlocked = 0x2078;
constexpr std::uint64_t supplyVoltage = 0x2080; // double, V
constexpr std::uint64_t selfTestRun = 0x2090;
constexpr std::uint64_t selfTestResult = 0x2094;
constexpr std::uint64_t lineStatusAll = 0x20b0;
constexpr std::uint64_t triggerCount = 0x20c0; // two triggers
constexpr std::uint64_t counterValue = 0x20d0; // two counters
constexpr std::uint64_t counterReset = 0x20d8; // two counters
constexpr std::uint64_t userSetSelector = 0x2100;
constexpr std::uint64_t userSetLoad = 0x2104;
constexpr std::uint64_t userSetSave = 0x2108;
constexpr std::uint64_t userSetDefault = 0x210c;
constexpr std::uint64_t userSetDescription = 0x2110; // text, three sets of 32 bytes

constexpr std::uint64_t lookUpTables = 0x4000; // four tables of 256 words

/// The value that opens the service features.
constexpr std::uint32_t serviceKeyValue = 0x5a51;

} // namespace simulated

/// Writes the values that the camera has when it is switched on for the first time.
void writePowerUpValues(RegisterMemory& memory);

/// Moves every value that others limit back into its limits, and brings up to date what the camera
/// finds itself: automatic exposure, gain and white balance, the levels of the lines.
void settleValues(RegisterMemory& memory);

} // namespace zqcameralib
