// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "simulation/SimulatedCameraRegisters.h"

#include "memory/RegisterValues.h"

#include <initializer_list>

namespace zqcameralib {

namespace {

template <typename Value> struct PowerUpValue {
    std::uint64_t address;
    Value value;
};

constexpr std::initializer_list<PowerUpValue<std::uint32_t>> words = {
    { 0x0000, 0x00020000 }, // GevVersionMajor and GevVersionMinor
    { 0x0004, 0x80000001 }, // GevDeviceMode: big-endian, UTF-8
    { 0x0008, 0x0000021a }, // GevMACAddress high
    { 0x000c, 0x2b3c4d5e }, // GevMACAddress low
    { 0x0014, 0x00000005 }, // GevCurrentIPConfiguration: link-local, persistent
    { 0x0024, 0xc0a80a2a }, // GevCurrentIPAddress
    { 0x0034, 0xffffff00 }, // GevCurrentSubnetMask
    { 0x0044, 0xc0a80a01 }, // GevCurrentDefaultGateway
    { 0x0100, 0x00000200 }, // Width
    { 0x0104, 0x00000200 }, // Height
    { 0x0108, 0x00000001 }, // BinningHorizontal
    { 0x010c, 0x00000001 }, // BinningVertical
    { 0x0114, 0x00000001 }, // GainAuto
    { 0x0118, 0x00000800 }, // SensorHeight
    { 0x011c, 0x00000800 }, // SensorWidth
    { 0x0120, 0x00002710 }, // ExposureTime in us
    { 0x0128, 0x01080001 }, // PixelFormat
    { 0x012c, 0x00000001 }, // AcquisitionMode
    { 0x0138, 0x00009c40 }, // AcquisitionFrameRate (frame period in us)
    { 0x01f0, 0x12345678 }, // TestRegister
    { 0x064c, 0xc0a80a2a }, // GevPersistentIPAddress
    { 0x065c, 0xffffff00 }, // GevPersistentSubnetMask
    { 0x0934, 0xc0000047 }, // GevSupportedOptions
    { 0x0938, 0x00000bb8 }, // GevHeartbeatTimeout
    { 0x0940, 0x3b9aca00 }, // GevTimestampTickFrequency low
    { 0x0d04, 0x400005dc }, // GevSCPSPacketSize, not fragmented
    { 0x1008, 0x07735940 }, // DeviceLinkThroughputLimit
    { 0x1018, 0x000007d0 }, // DeviceUserTag high
    { 0x1044, 0x00000200 }, // MROI_Y
    { 0x1048, 0x00000400 }, // MROI_Y
    { 0x104c, 0x00000600 }, // MROI_Y
    { 0x1050, 0x00000080 }, // MROI_H
    { 0x1054, 0x00000080 }, // MROI_H
    { 0x1058, 0x00000080 }, // MROI_H
    { 0x105c, 0x00000080 }, // MROI_H
    { 0x1060, 0x0000000a }, // AcquisitionFrameCount
    { 0x10a8, 0x0000000c }, // Gain of the colours in 0.1 dB
    { 0x10b0, 0x0000000f }, // Gain of the colours in 0.1 dB
    { 0x10e8, 0x00000001 }, // DefectivePixelCorrection
    { 0x1100, 0x0000803f }, // ColorTransformationValue 1.0, little endian
    { 0x1108, 0x000000be }, // ColorTransformationValue -0.125, little endian
    { 0x110c, 0x000080be }, // ColorTransformationValue -0.25, little endian
    { 0x1110, 0x0000a03f }, // ColorTransformationValue 1.25, little endian
    { 0x111c, 0x000000bf }, // ColorTransformationValue -0.5, little endian
    { 0x1120, 0x0000c03f }, // ColorTransformationValue 1.5, little endian
    { 0x116c, 0x00000001 }, // LineMode
    { 0x1170, 0x00000001 }, // LineMode
    { 0x118c, 0x00000001 }, // LineSource
    { 0x1190, 0x00000002 }, // LineSource
    { 0x11dc, 0x00000001 }, // CounterDuration
    { 0x11e0, 0x00000001 }, // CounterDuration
    { 0x1220, 0x00000001 }, // DecimationHorizontal
    { 0x1224, 0x00000001 }, // DecimationVertical
    { 0x1254, 0x00000001 }, // ChunkEnable of FrameID
    { 0x1258, 0x00000001 }, // ChunkEnable of Timestamp
    { 0x125c, 0x00000001 }, // ChunkEnable of ExposureTime
    { 0x1260, 0x00000001 }, // ChunkEnable of Gain
    { 0x2020, 0x0000a501 }, // DeviceHardwareID high
    { 0x2024, 0x02030405 }, // DeviceHardwareID low
    { 0x2088, 0x00001267 }, // DeviceOperatingTime
    { 0x208c, 0x11000000 }, // DeviceBootCount, little endian
    { 0x20d0, 0x0000002a }, // CounterValue
    { 0x20d4, 0x00000007 }, // CounterValue
};

constexpr std::initializer_list<PowerUpValue<float>> floats = {
    { 0x1070, 50.0f }, // ExposureAutoTarget
    { 0x10b8, -2.5f }, // BlackLevel
    { 0x10c0, 0.25f }, // BlackLevel
    { 0x10c4, -0.25f }, // BlackLevel
    { 0x10d0, 1.625f }, // BalanceRatio
    { 0x10d4, 1.0f }, // BalanceRatio
    { 0x10d8, 1.875f }, // BalanceRatio
};

constexpr std::initializer_list<PowerUpValue<double>> doubles = {
    { 0x1078, 10.0 }, // ExposureAutoLowerLimit
    { 0x1080, 100000.0 }, // ExposureAutoUpperLimit
    { 0x10e0, 1.0 }, // Gamma
    { 0x1198, 0.5 }, // LineDebouncerTime
    { 0x11a0, 0.5 }, // LineDebouncerTime
    { 0x11e8, 100.0 }, // TimerDuration
    { 0x11f0, 100.0 }, // TimerDuration
    { 0x2080, 12.0625 }, // DeviceSupplyVoltage
    { 0x20a0, 3.45 }, // SensorPixelWidth
};

constexpr std::initializer_list<PowerUpValue<const char*>> texts = {
    { 0x0048, "ZQ" }, // DeviceVendorName
    { 0x0068, "AreaScan2K" }, // DeviceModelName
    { 0x0088, "1.0" }, // DeviceVersion
    { 0x00a8, "Simulated camera, no hardware" }, // DeviceManufacturerInfo
    { 0x00d8, "SIM-0001" }, // DeviceSerialNumber
    { simulated::deviceUserId, "Bench camera" },
    { simulated::firmwareVersion, "1.0.3" },
    { simulated::userSetDescription, "As delivered" },
    { simulated::userSetDescription + 0x20, "Free" },
    { simulated::userSetDescription + 0x40, "Free" },
};

// Every table starts as a straight line from 0 to 4095.
void writeLookUpTables(RegisterMemory& memory)
{
    constexpr std::uint32_t tables = 4;
    constexpr std::uint32_t entries = 256;
    std::uint64_t address = simulated::lookUpTables;
    for (std::uint32_t i = 0; i < tables * entries; ++i, address += 4) {
        writeWord(memory, address, i % entries * 4095 / (entries - 1));
    }
}

} // namespace

void writePowerUpValues(RegisterMemory& memory)
{
    for (const auto& [address, value] : words) {
        writeWord(memory, address, value);
    }
    for (const auto& [address, value] : floats) {
        writeFloat(memory, address, value);
    }
    for (const auto& [address, value] : doubles) {
        writeDouble(memory, address, value);
    }
    for (const auto& [address, value] : texts) {
        writeText(memory, address, value);
    }
    writeLookUpTables(memory);
}

} // namespace zqcameralib
