// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "stream/UsbStream.h"

#include "base/GlibError.h"
#include "base/StatusCodes.h"
#include "words/Words.h"

#include <string>

namespace zqcameralib {

namespace {

constexpr int noStream = deviceErrorBase + ARV_DEVICE_ERROR_NO_STREAM_CHANNEL;

// GenCP 1.3 and USB3 Vision 1.1: the tables that lead to the stream's registers, and those.
constexpr guint64 tablePlace = 0x01D8;
constexpr guint64 streamTable = 0x20;
constexpr guint64 information = 0x00;
constexpr guint64 payloadSize = 0x08;
constexpr guint64 leaderSize = 0x10;
constexpr guint64 trailerSize = 0x14;
constexpr unsigned alignmentShift = 24; ///< of its exponent, in the information

// What the library has room for, whatever the camera says.
constexpr std::uint32_t mostAlignment = 20;
constexpr std::uint32_t mostOfPacket = 1U << 20U;
constexpr std::uint64_t mostOfImage = std::uint64_t(1) << 31U;

/// Little endian, as all of them are.
template <typename Number> bool read(ArvDevice* device, guint64 address, Number& value)
{
    GlibError error;
    Number raw = 0;
    const bool done = arv_device_read_memory(device, address, sizeof raw, &raw, error.out()) != 0;
    value = sizeof raw == sizeof(guint64) ? static_cast<Number>(GUINT64_FROM_LE(raw))
                                          : static_cast<Number>(GUINT32_FROM_LE(raw));
    return done;
}

struct Required {
    guint32 information = 0;
    guint64 payload = 0;
    guint32 leader = 0;
    guint32 trailer = 0;
};

bool readAll(ArvDevice* device, Required& required)
{
    guint64 table = 0;
    guint64 stream = 0;
    return read(device, tablePlace, table) && read(device, table + streamTable, stream)
        && read(device, stream + information, required.information)
        && read(device, stream + payloadSize, required.payload)
        && read(device, stream + leaderSize, required.leader)
        && read(device, stream + trailerSize, required.trailer);
}

Status refuse(const Words& what)
{
    return { noStream,
        translated("the camera requires a stream that cannot be made") + ": " + what };
}

} // namespace

Status checkUsbStream(ArvDevice* device, StreamFacts& facts)
{
    Required required;
    if (!readAll(device, required)) {
        return { noStream, translated("the camera does not tell what its images require") };
    }
    // The library divides by the first and by what the second leaves of its transfers.
    if (required.payload == 0 || required.payload > mostOfImage) {
        return refuse(worded("of images of %s bytes", std::to_string(required.payload).c_str()));
    }
    if (required.information >> alignmentShift > mostAlignment) {
        return refuse(translated("of too large an alignment"));
    }
    if (required.leader > mostOfPacket || required.trailer > mostOfPacket) {
        return refuse(translated("of too large packets around the images"));
    }
    // It takes images of that size only, whatever the size of its buffers.
    facts.imageBytes = required.payload;
    facts.isUsb = true;
    return {};
}

} // namespace zqcameralib
