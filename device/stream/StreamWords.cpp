// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "stream/StreamWords.h"

namespace zqcameralib {

namespace {

std::string kibibytes(std::uint64_t bytes)
{
    return std::to_string((bytes + 1023) / 1024) + " KiB";
}

/// Without those that carry the image, a few small packets make up its beginning and end.
bool areSmallOnesOnly(const StreamFacts& facts, const StreamArrivals& arrivals)
{
    return facts.imageBytes > 16 * facts.packetSize
        && arrivals.bytes / arrivals.packets < facts.packetSize / 4;
}

std::string nothingArrives(const StreamFacts& facts)
{
    const std::string to = facts.destination.empty() ? "" : " at " + facts.destination;
    const std::string otherwise = facts.isUsb
        ? ". The camera may not send any."
        : ". The camera may not send any, or a firewall holds it back on the way.";
    return "Nothing of an image arrives" + to
        + (facts.isTriggered ? ". TriggerMode is On: the camera waits for its trigger."
                             : otherwise);
}

std::string nothingIsComplete(const StreamFacts& facts, const StreamArrivals& arrivals)
{
    const std::string begin = "Images arrive, but none is complete ("
        + std::to_string(arrivals.incomplete) + " are not). ";
    if (facts.isUsb) {
        return begin
            + "The connection may be too slow or disturbed: use a USB 3 port and cable, and no "
              "hub.";
    }
    const std::string size = std::to_string(facts.packetSize);
    if (areSmallOnesOnly(facts, arrivals)) {
        return begin
            + "Their large packets are missing: the network between may not take packets of " + size
            + " bytes.";
    }
    const std::string buffer = receiveBufferWords(facts);
    return begin
        + (buffer.empty()
                ? "Packets get lost on the way or come too fast (packet size " + size + " bytes)."
                : buffer);
}

} // namespace

std::string receiveBufferWords(const StreamFacts& facts)
{
    if (facts.wantedBuffer == 0 || facts.grantedBuffer >= facts.imageBytes) {
        return {};
    }
    return "The system grants a receive buffer of " + kibibytes(facts.grantedBuffer)
        + ", but one image takes " + kibibytes(facts.imageBytes)
        + ", so that images can arrive incomplete: raise net.core.rmem_max to "
        + std::to_string(facts.wantedBuffer) + ".";
}

std::string noImageWords(const StreamFacts& facts, const StreamArrivals& arrivals)
{
    if (arrivals.withoutImage != 0) {
        return "What the camera sends holds no image.";
    }
    return arrivals.packets == 0 ? nothingArrives(facts) : nothingIsComplete(facts, arrivals);
}

} // namespace zqcameralib
