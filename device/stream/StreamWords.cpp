// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "stream/StreamWords.h"

#include "words/Words.h"

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

Words nothingArrives(const StreamFacts& facts)
{
    const Words begin = facts.destination.empty()
        ? translated("Nothing of an image arrives.")
        : worded("Nothing of an image arrives at %s.", facts.destination.c_str());
    if (facts.isTriggered) {
        return begin + " " + translated("TriggerMode is On: the camera waits for its trigger.");
    }
    return begin + " "
        + (facts.isUsb ? translated("The camera may not send any.")
                       : translated("The camera may not send any, or a firewall holds it back on "
                                    "the way."));
}

Words reasonOfIncomplete(const StreamFacts& facts, const StreamArrivals& arrivals)
{
    if (facts.isUsb) {
        return translated("The connection may be too slow or disturbed: use a USB 3 port and "
                          "cable, and no hub.");
    }
    const std::string size = std::to_string(facts.packetSize);
    if (areSmallOnesOnly(facts, arrivals)) {
        return worded("Their large packets are missing: the network between may not take packets "
                      "of %s bytes.",
            size.c_str());
    }
    if (std::string buffer = receiveBufferWords(facts); !buffer.empty()) {
        return buffer;
    }
    return worded(
        "Packets get lost on the way or come too fast (packet size %s bytes).", size.c_str());
}

Words nothingIsComplete(const StreamFacts& facts, const StreamArrivals& arrivals)
{
    return worded("Images arrive, but none is complete (%s are not).",
               std::to_string(arrivals.incomplete).c_str())
        + " " + reasonOfIncomplete(facts, arrivals);
}

} // namespace

std::string receiveBufferWords(const StreamFacts& facts)
{
    if (facts.wantedBuffer == 0 || facts.grantedBuffer >= facts.imageBytes) {
        return {};
    }
    return worded(
        "The system grants a receive buffer of %s, but one image takes %s, so that images "
        "can arrive incomplete: raise net.core.rmem_max to %s.",
        kibibytes(facts.grantedBuffer).c_str(), kibibytes(facts.imageBytes).c_str(),
        std::to_string(facts.wantedBuffer).c_str())
        .text();
}

std::string noImageWords(const StreamFacts& facts, const StreamArrivals& arrivals)
{
    if (arrivals.withoutImage != 0) {
        return translated("What the camera sends holds no image.").text();
    }
    const Words words
        = arrivals.packets == 0 ? nothingArrives(facts) : nothingIsComplete(facts, arrivals);
    return words.text();
}

} // namespace zqcameralib
