// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Datagram.h"
#include "StreamFixture.h"
#include "base/AravisVersions.h"
#include "frames/FrameSize.h"
#include "session/DeviceOpening.h"
#include "stream/ImagePart.h"
#include "stream/ReceiveBuffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <tuple>

using namespace zqcameralib;

namespace {

constexpr std::uint64_t mega = 1U << 20U;

/// In the order of the network.
std::string bytes(std::uint64_t value, std::size_t count)
{
    std::string text;
    for (std::size_t i = count; i > 0; --i) {
        text += i > sizeof value ? '\0' : static_cast<char>(value >> (8 * (i - 1)) & 0xFFU);
    }
    return text;
}

/// A packet's kind, its payload type or number of parts, and what follows the header.
struct Packet {
    std::uint32_t kind;
    std::string data;
};
using Packets = std::vector<Packet>;

constexpr std::uint32_t leader = 0x01000000;
constexpr std::uint32_t trailer = 0x02000000;
constexpr std::uint32_t payload = 0x03000000;
constexpr std::uint32_t partOfPayload = 0x07000000;
constexpr std::uint64_t mono8 = 0x01080001;

Packets image(int type, std::uint64_t width, std::uint64_t height, const std::string& data,
    std::uint64_t padding = 0)
{
    const std::string size = bytes(mono8, 4) + bytes(width, 4) + bytes(height, 4) + bytes(0, 8)
        + bytes(padding, 2) + bytes(0, 2);
    return { { leader, bytes(static_cast<unsigned>(type), 4) + bytes(0, 8) + size },
        { payload, data }, { trailer, bytes(0, 8) } };
}

std::string part(std::uint64_t type, std::uint64_t size, std::uint64_t side)
{
    return bytes(type, 2) + bytes(size, 6) + bytes(mono8, 4) + bytes(0, 12) + bytes(side, 4)
        + bytes(side, 4) + bytes(0, 16);
}

Packet piece(std::uint64_t part, std::uint64_t offset, const std::string& data)
{
    return { partOfPayload, bytes(part, 2) + bytes(offset, 6) + data };
}

Packets parts(const std::string& all, Packets pieces)
{
    pieces.insert(pieces.begin(), { leader | 2, bytes(0x0A, 4) + bytes(0, 8) + all });
    pieces.push_back({ trailer, bytes(0, 8) });
    return pieces;
}

std::string chunk(const std::string& data, std::uint64_t id = 1)
{
    return data + bytes(id, 4) + bytes(data.size(), 4);
}

/// "id:data " of each, ids in hexadecimal.
std::string wordsOf(const Chunks& chunks)
{
    std::ostringstream words;
    for (const featurebrowser::ZQFrameChunk& one : chunks) {
        words << std::hex << one.id << ':' << std::string(one.data, one.data + one.size) << ' ';
    }
    return words.str();
}

/// A stream of a camera that sends none of its own.
class StreamParts : public testing::Test {
protected:
    StreamParts()
        : m_device(openDevice({ "GigEVision", FakeCamera::usualAddress }, m_progress))
        , m_stream(aravis::createStream(m_device.value().get(), nullptr))
    {
        aravis::startStream(m_stream.get(), nullptr);
    }

    ArvGvDevice* device() { return ARV_GV_DEVICE(m_device.value().get()); }

    void send(const Packets& packets)
    {
        const std::string id = bytes(++m_frame, 8);
        for (std::size_t i = 0; i < packets.size(); ++i) {
            const std::string packet = bytes(0, 4) + bytes(0x80000000U | packets[i].kind, 4) + id
                + bytes(i, 4) + packets[i].data;
            Socket().send({ packet.begin(), packet.end() },
                endpoint("127.0.0.1", arv_gv_stream_get_port(ARV_GV_STREAM(m_stream.get()))));
        }
    }

    FakeCamera m_fake { ZQ_SIMULATED_CAMERA_XML };
    OpeningProgress m_progress;
    Result<GObjectPointer<ArvDevice>> m_device;
    GObjectPointer<ArvStream> m_stream;
    std::uint64_t m_frame = 0;
};

struct ImageCase {
    const char* name;
    Packets packets;
    int height; ///< 0: there is no image
    std::size_t size;
    std::string chunks {}; ///< what came along with it
};

TEST_F(StreamParts, ShowTheImageAmongOtherPartsAndNoMoreOfItThanCame)
{
    constexpr std::size_t allocated = 1024;
    const ImageFormat format { 64, 15, mono8 };
    const std::string whole(allocated, 'i');
    const std::string other(16, 'x');
    const std::string fewer = whole.substr(allocated - 960);
    const std::string more = whole.substr(0, allocated - 16);
    std::string padded;
    for (int line = 0; line < 16; ++line) {
        padded += whole.substr(0, 60) + "pad ";
    }
    const std::vector<ImageCase> cases {
        { "Whole", image(1, 64, 16, whole), 16, 1024 },
        { "MoreAnnounced", image(1, 64, 17, whole), 16, 1024 },
        { "LessSent", image(1, 64, 16, whole.substr(700)), 5, 324 },
        { "LessThanARow", image(1, 64, 16, whole.substr(allocated - 63)), 0, 63 },
        { "PaddedLines", image(1, 60, 16, padded.substr(0, 1020), 4), 16, 960 },
        { "PaddedMoreThanSent", image(1, 64, 16, whole, 4), 16, 1024 },
        { "NoRows", image(1, 64, 0, whole), 0, 0 },
        { "NegativeWidth", image(1, 0x80000000U, 16, whole), 0, 0 },
        { "WithChunksBehind", image(0x4001, 64, 16, whole), 16, 1024 },
        { "ExtendedChunks", image(5, 64, 16, whole), 16, 1024 },
        { "ImageOfChunks", image(0x4001, 64, 15, chunk(fewer) + chunk("Four", 0xA1)), 15, 960,
            "a1:Four " },
        { "ChunksOnly", image(4, 0, 0, chunk(fewer)), 15, 960 },
        { "SeveralChunks",
            image(4, 0, 0, chunk(fewer) + chunk("Four", 0xFEDCBA98) + chunk("", 2) + chunk("3", 3)),
            15, 960, "fedcba98:Four 2: 3:3 " },
        { "ChunkTooSmall", image(4, 0, 0, chunk(fewer.substr(1))), 0, 0 },
        { "NoChunks", image(4, 0, 0, whole), 0, 0 },
        { "ChunkBeyondTheBuffer", image(4, 0, 0, chunk(whole)), 0, 0 },
        { "SecondPart",
            parts(part(0x0A, 16, 0) + part(1, 2048, 64),
                { piece(0, 0, other), piece(1, 16, more), piece(1, allocated, other) }),
            15, 1008 },
        { "FirstOfTwoImages",
            parts(part(1, 1008, 16) + part(1, 16, 4), { piece(0, 0, more), piece(1, 1008, other) }),
            16, 1008 },
        { "PartBehindTheBuffer",
            parts(part(0x0A, 1024, 0) + part(1, 16, 4),
                { piece(0, 0, more), piece(1, allocated, other) }),
            0, 0 },
        { "NoImageAmongTheParts",
            parts(part(0x0A, 1008, 0) + part(0x0A, 16, 0),
                { piece(0, 0, more), piece(1, 1008, other) }),
            0, 0 },
    };
    for (const ImageCase& test : cases) {
        SCOPED_TRACE(test.name);
        arv_stream_push_buffer(m_stream.get(), arv_buffer_new_allocate(allocated));
        send(test.packets);
        const GObjectPointer<ArvBuffer> buffer(
            arv_stream_timeout_pop_buffer(m_stream.get(), 20000000));
        ASSERT_TRUE(buffer);
        ASSERT_EQ(arv_buffer_get_status(buffer.get()), ARV_BUFFER_STATUS_SUCCESS);
        featurebrowser::ZQFrame frame;
        const Chunks chunks = findChunks(buffer.get(), allocated, ChunkTags::BigEndian);
        EXPECT_EQ(findImage(buffer.get(), allocated, chunks, format, frame), test.height > 0);
        if (test.height > 0) {
            EXPECT_EQ(frame.height, test.height);
            EXPECT_EQ(frame.size, test.size);
            EXPECT_EQ(frame.pixelFormat, mono8);
            EXPECT_EQ(std::count(frame.data, frame.data + frame.size, 'i'), frame.size);
            EXPECT_EQ(
                chunks.empty() ? "" : wordsOf({ chunks.begin() + 1, chunks.end() }), test.chunks);
        }
    }
}

TEST_F(StreamParts, AskForAReceiveBufferOfSeveralImages)
{
    const std::array<std::array<std::uint64_t, 3>, 3> cases { { { 1000, 1, mega },
        { mega, 3, 3 * mega }, { 50 * mega, 2, 64 * mega } } };
    StreamFacts none { mega, 0, 0, 0, "", false };
    makeReceiveBuffer(device(), m_stream.get(), 3, none);
    const int ring = socket(PF_PACKET, SOCK_RAW, 0); // which needs none, if that is allowed
    EXPECT_EQ(none.wantedBuffer, ring < 0 ? 3 * mega : 0);
    ::close(ring);
    arv_gv_device_set_stream_options(device(), ARV_GV_STREAM_OPTION_PACKET_SOCKET_DISABLED);
    for (const auto& [image, images, wanted] : cases) {
        StreamFacts facts { image, 0, 0, 0, "", false };
        makeReceiveBuffer(device(), m_stream.get(), static_cast<int>(images), facts);
        EXPECT_EQ(facts.wantedBuffer, wanted);
        EXPECT_EQ(facts.grantedBuffer, grantedBuffer(static_cast<int>(wanted)));
        int mode = -1;
        int size = 0;
        g_object_get(m_stream.get(), "socket-buffer", &mode, "socket-buffer-size", &size, nullptr);
        EXPECT_EQ(mode, ARV_GV_STREAM_SOCKET_BUFFER_FIXED);
        EXPECT_EQ(static_cast<std::uint64_t>(size), wanted);
    }
}

TEST(Chunks, AreThereWhereDataConsistsOfNothingElse)
{
    const std::string tagged = chunk("ten bytes.");
    const std::pair<std::string, std::string> cases[] {
        { tagged, "1:ten bytes. " },
        { tagged + chunk("1234", 7), "1:ten bytes. 7:1234 " },
        { tagged + chunk(""), "1:ten bytes. 1: " },
        { tagged + "1234" + bytes(2, 4) + bytes(0xFFFFFFFF, 4), "" },
        { tagged + "1234" + bytes(2, 4) + bytes(23, 4), "" },
        { "12" + tagged, "" },
        { "i", "" },
        { "", "" },
    };
    for (const auto& [data, words] : cases) {
        const auto* all = reinterpret_cast<const std::uint8_t*>(data.data());
        EXPECT_EQ(wordsOf(splitChunks(all, data.size(), ChunkTags::BigEndian)), words);
    }
    const std::uint8_t usb[] { 'i', 5, 0, 0, 0, 1, 0, 0, 0 };
    EXPECT_EQ(wordsOf(splitChunks(usb, sizeof usb, ChunkTags::LittleEndian)), "5:i ");
}

TEST(FrameSizes, CountPixelsInWholeBytesAndRows)
{
    constexpr std::uint32_t twelveBits = 0x010C0006;
    EXPECT_EQ(imageBytes(3, 3, twelveBits), 14U); // of 13.5
    EXPECT_EQ(imageBytes(3, 3, 0), 9U);
    EXPECT_EQ(rowsWithin(99, 4, 3, mono8), 3);
    EXPECT_EQ(rowsWithin(11, 4, 3, 0), 2);
    EXPECT_EQ(rowsWithin(12, 4, 3, twelveBits), 2);
    EXPECT_EQ(rowsWithin(1, 1, 1, mono8), 1);
    EXPECT_EQ(rowsWithin(12, 0, 3, mono8), 0);
    EXPECT_EQ(rowsWithin(12, -4, 3, mono8), 0);
    EXPECT_EQ(rowsWithin(12, 4, -3, mono8), 0);
}

TEST(StreamWords, NameWhatIsKnown)
{
    const std::string none = "Images arrive, but none is complete (3 are not). ";
    const std::string lost
        = none + "Packets get lost on the way or come too fast (packet size 1500 bytes).";
    const std::string place = "192.168.0.1, port 5";
    const std::vector<std::tuple<StreamFacts, StreamArrivals, std::string>> cases {
        { { mega, 0, 0, 1500, place, false }, {},
            "Nothing of an image arrives at 192.168.0.1, port 5. The camera may not send any, or a "
            "firewall holds it back on the way." },
        { { mega, 0, 0, 1500, "", true }, {},
            "Nothing of an image arrives. TriggerMode is On: the camera waits for its trigger." },
        { { mega, 8 * mega, mega - 1024, 1500, place, true }, { 1000, 1400000, 3, 0 },
            none
                + "The system grants a receive buffer of 1023 KiB, but one image takes 1024 KiB, "
                  "so that images can arrive incomplete: raise net.core.rmem_max to 8388608." },
        { { mega, 8 * mega, mega, 1500, "", false }, { 1000, 1400000, 3, 0 }, lost },
        { { mega, 0, 0, 1500, "", false }, { 4, 1500, 3, 0 }, lost },
        { { 16 * 1500, 0, 0, 1500, "", false }, { 4, 1499, 3, 0 }, lost },
        { { 16 * 1500 + 1, 0, 0, 1500, "", false }, { 4, 1499, 3, 0 },
            none
                + "Their large packets are missing: the network between may not take packets of "
                  "1500 bytes." },
        { { mega, 0, 0, 1500, "", false }, { 900, 900000, 3, 3 },
            "What the camera sends holds no image." },
    };
    for (const auto& [facts, arrivals, words] : cases) {
        EXPECT_EQ(noImageWords(facts, arrivals), words);
    }
}

} // namespace
