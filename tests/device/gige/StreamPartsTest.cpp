#include "StreamFixture.h"
#include "stream/ImagePart.h"
#include "stream/StreamWords.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

/// Sends image packets in a camera's name.
class Packets {
public:
    explicit Packets(std::uint16_t port)
        : m_handle(socket(AF_INET, SOCK_DGRAM, 0))
    {
        m_target.sin_family = AF_INET;
        m_target.sin_port = htons(port);
        m_target.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    }
    Packets(const Packets&) = delete;
    Packets& operator=(const Packets&) = delete;
    ~Packets() { ::close(m_handle); }

    void send(std::uint32_t kind, std::uint32_t number, const std::string& data)
    {
        const std::string head = bytes(0, 4) + bytes(0x80000000U | kind, 4) + bytes(7, 8);
        const std::string packet = head + bytes(number, 4) + data;
        sendto(m_handle, packet.data(), packet.size(), 0,
            reinterpret_cast<const sockaddr*>(&m_target), sizeof m_target);
    }
    /// In the order of the network.
    static std::string bytes(std::uint64_t value, std::size_t count)
    {
        std::string text;
        for (std::size_t i = count; i > 0; --i) {
            text += i > sizeof value ? '\0' : static_cast<char>(value >> (8 * (i - 1)) & 0xFFU);
        }
        return text;
    }
    static std::string part(std::uint64_t type, std::uint64_t size, std::uint64_t side)
    {
        return bytes(type, 2) + bytes(size, 6) + bytes(0x01080001, 4) + bytes(0, 12)
            + bytes(side, 4) + bytes(side, 4) + bytes(0, 16);
    }

private:
    int m_handle;
    sockaddr_in m_target {};
};

TEST_F(Streams, ShowTheImageAmongOtherPartsAndNoMoreOfItThanCame)
{
    open();
    ASSERT_EQ(m_device->SetIntegerValue("Width", 64, 1), STATUS_OK);
    ASSERT_EQ(m_device->SetIntegerValue("Height", 16, 1), STATUS_OK);
    ASSERT_EQ(payload(), 1024U);
    ASSERT_EQ(m_device->SetEnumValue("TriggerMode", "On", 0), STATUS_OK); // sends none of its own
    std::atomic<int> height { 0 };
    std::atomic<int> first { 0 };
    ASSERT_EQ(m_acquisition->start([&](const ZQFrame& frame) {
        first = frame.data[0];
        height = frame.height;
    }),
        STATUS_OK);
    std::array<std::uint8_t, 4> port {};
    ASSERT_TRUE(m_camera->impl()
                    .port()
                    .read({ 0x0D00, port.size() }, port.data(), AccessKind::Register)
                    .isOk());

    // 16 bytes of something else, then an image that claims more than the buffer holds.
    Packets packets(static_cast<std::uint16_t>(port[2] << 8U | port[3]));
    packets.send(0x01000002, 0,
        Packets::bytes(0x0000000A, 4) + Packets::bytes(1, 8) + Packets::part(0x000A, 16, 0)
            + Packets::part(0x0001, 2048, 64));
    packets.send(0x07000000, 1, Packets::bytes(0, 8) + std::string(16, 'x'));
    packets.send(
        0x07000000, 2, Packets::bytes(1, 2) + Packets::bytes(16, 6) + std::string(1008, 'i'));
    packets.send(
        0x07000000, 3, Packets::bytes(1, 2) + Packets::bytes(1024, 6) + std::string(16, 'i'));
    packets.send(0x02000000, 4, Packets::bytes(0x0000000A, 8));
    EXPECT_TRUE(eventually([&] { return height != 0; }));
    EXPECT_EQ(height, 1008 / 64);
    EXPECT_EQ(first, 'i');
}

TEST(Chunks, BeginWithTheOneThatAllOthersFollow)
{
    const std::string image(10, 'i');
    const std::string tagged = image + Packets::bytes(1, 4) + Packets::bytes(10, 4);
    const auto first = [](const std::string& text) {
        return firstChunk(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    };
    EXPECT_EQ(first(tagged), 10U);
    EXPECT_EQ(first(tagged + "1234" + Packets::bytes(2, 4) + Packets::bytes(4, 4)), 10U);
    EXPECT_EQ(first(tagged + "1234" + Packets::bytes(2, 4) + Packets::bytes(0xFFFFFFFF, 4)), 0U);
    EXPECT_EQ(first("12" + tagged), 0U);
    EXPECT_EQ(first(image), 0U);
    EXPECT_EQ(first(""), 0U);
}

struct WordsCase {
    const char* name;
    StreamFacts facts;
    StreamArrivals arrivals;
    const char* expected;
};

void PrintTo(const WordsCase& test, std::ostream* stream)
{
    *stream << test.name;
}

class StreamWords : public testing::TestWithParam<WordsCase> { };

TEST_P(StreamWords, NameWhatIsKnown)
{
    const std::string words = noImageWords(GetParam().facts, GetParam().arrivals);
    EXPECT_NE(words.find(GetParam().expected), std::string::npos) << words;
}

constexpr std::uint64_t mega = 1U << 20U;

INSTANTIATE_TEST_SUITE_P(Of, StreamWords,
    testing::Values(WordsCase { "Nothing", { mega, 0, 0, 1500, "192.168.0.1, port 5", false }, {},
                        "192.168.0.1, port 5. The camera may not send" },
        WordsCase { "UnknownDestination", { mega, 0, 0, 0, "", false }, {}, "arrives. The" },
        WordsCase { "Trigger", { mega, 0, 0, 1500, "", true }, {}, "waits for its trigger" },
        WordsCase { "SmallBuffer", { mega, 8 * mega, 212992, 1500, "", false },
            { 1000, 1400000, 3, 0 }, "208 KiB, but one image takes 1024 KiB" },
        WordsCase { "LargeBuffer", { mega, 8 * mega, 4 * mega, 1500, "", false },
            { 1000, 1400000, 3, 0 }, "(packet size 1500 bytes)" },
        WordsCase { "LargePacketsMissing", { mega, 8 * mega, 212992, 9000, "", false },
            { 6, 300, 3, 0 }, "packets of 9000 bytes" },
        WordsCase { "NoImageKind", { mega, 0, 0, 1500, "", false }, { 900, 900000, 3, 3 },
            "holds no image" }),
    [](const auto& test) { return std::string(test.param.name); });

} // namespace
