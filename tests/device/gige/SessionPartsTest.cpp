// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Datagram.h"
#include "base/AravisVersions.h"
#include "base/StatusCodes.h"
#include "link/CameraLink.h"
#include "network/GigeProbe.h"
#include "network/Ipv4.h"
#include "network/SourceFilter.h"
#include "session/DeviceErrors.h"
#include "session/DeviceOpening.h"
#include "session/Discovery.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <future>
#include <map>
#include <tuple>

using namespace zqcameralib;

namespace {

TEST(DeviceErrors, SayInWordsOfTheUserWhatTheLibraryTells)
{
    const char* const silent = "the camera does not answer";
    const char* const stopped
        = "the camera stopped answering while it was opened; packets to or from it get lost";
    const char* const undelivered = "the camera's description did not arrive; packets to or from "
                                    "it get lost, or it has none that can be read";
    const char* const busy = "the camera is busy";
    const char* const nowhere = "the camera has no such register";
    const char* const unwritable = "the camera does not let the register be written";
    const char* const unusual = "the camera does not take such an access";
    const char* const denied = "access denied by the camera; another application may control it";
    const std::vector<std::tuple<int, const char*, const char*>> cases {
        { ARV_DEVICE_ERROR_TIMEOUT, silent, stopped },
        { ARV_DEVICE_ERROR_NOT_CONNECTED, silent, stopped },
        { ARV_DEVICE_ERROR_GENICAM_NOT_FOUND, "its own", undelivered },
        { ARV_DEVICE_ERROR_PROTOCOL_ERROR_BUSY, busy, busy },
        { ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED, denied, denied },
        { ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_ADDRESS, nowhere, nowhere },
        { ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT, unwritable, unwritable },
        { ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_PARAMETER, unusual, unusual },
        { ARV_DEVICE_ERROR_PROTOCOL_ERROR_BAD_ALIGNMENT, unusual, unusual },
        { ARV_DEVICE_ERROR_PROTOCOL_ERROR_NOT_IMPLEMENTED, unusual, unusual },
        { ARV_DEVICE_ERROR_NOT_FOUND, "its own", "its own" },
    };
    for (const auto& [code, access, opening] : cases) {
        GlibError error;
        g_set_error_literal(error.out(), arv_device_error_quark(), code, "its own");
        EXPECT_EQ(accessFailure(error).text(), access);
        EXPECT_EQ(accessFailure(error).code(), deviceErrorBase + code);
        EXPECT_EQ(openingFailure(error).text(), opening);
        EXPECT_EQ(openingFailure(error).code(), deviceErrorBase + code);
        EXPECT_EQ(isAnswerMissing(*error.get()), opening == stopped);
        EXPECT_EQ(isDescriptionMissing(error), opening == undelivered);
        // The same number of another domain is something else.
        g_set_error_literal(error.out(), G_IO_ERROR, code, "other");
        EXPECT_EQ(accessFailure(error).text() + openingFailure(error).text(), "otherother");
        EXPECT_FALSE(isAnswerMissing(*error.get()) || isDescriptionMissing(error));
    }
    const int unknown = deviceErrorBase + ARV_DEVICE_ERROR_UNKNOWN;
    EXPECT_EQ(accessFailure({}).text(), "the camera refused the access");
    EXPECT_EQ(openingFailure({}).text(), "it cannot be opened");
    EXPECT_EQ(accessFailure({}).code(), unknown);
    EXPECT_EQ(openingFailure({}).code(), unknown);
    EXPECT_FALSE(isDescriptionMissing({}));
}

/// Answers at a camera's port with what it was told for requests of a number, which is their last
/// byte before the data; the first so many of them get lost.
class Answering {
public:
    using Answers = std::map<int, std::vector<Datagram>>;

    Answering(const char* address, Answers answers, int lost = 0)
        : m_socket(endpoint(address))
        , m_answers(std::move(answers))
        , m_lost(lost)
        , m_requests(std::async(std::launch::async, [this] { return answer(); }))
    {
    }
    ~Answering() { m_stop = true; }

    /// The last request of each number. Then it answers no more.
    std::map<int, Datagram> end()
    {
        m_stop = true;
        return m_requests.get();
    }

private:
    std::map<int, Datagram> answer()
    {
        std::map<int, Datagram> requests;
        pollfd ready { m_socket.handle(), POLLIN, 0 };
        while (!m_stop) {
            sockaddr_in from {};
            const Datagram request = poll(&ready, 1, 20) == 1 ? m_socket.receive(from) : Datagram();
            if (request.size() < 8 || m_lost-- > 0) {
                continue;
            }
            requests[request[7]] = request;
            for (const Datagram& packet : m_answers[request[7]]) {
                m_socket.send(packet, from);
            }
        }
        return requests;
    }

    Socket m_socket;
    Answers m_answers;
    int m_lost;
    std::atomic<bool> m_stop { false };
    std::future<std::map<int, Datagram>> m_requests;
};

constexpr std::uint8_t readAck = 0x85;
constexpr std::uint8_t writeAck = 0x87;
constexpr std::uint8_t pendingAck = 0x89;

Datagram acknowledge(std::uint8_t kind, std::uint8_t number, std::size_t size,
    const std::string& text = {}, std::uint8_t status = 0)
{
    Datagram packet { status, 0, 0, kind, 0, 0, 0, number };
    packet.resize(size);
    std::copy(text.begin(), text.end(), packet.begin() + (text.empty() ? 0 : 12));
    return packet;
}

struct ProbeCase {
    std::string name;
    std::vector<Datagram> onModel;
    std::vector<Datagram> onUrl;
    GigeProbe::Answer answer;
    std::uint64_t size;
    int lost = 0;
    Datagram onSecond = acknowledge(readAck, 3, 8, {}, 0x80);
};

TEST(GigeProbes, TellWhatAnswersAtAnAddress)
{
    const Datagram forModel { 0x42, 1, 0, 0x84, 0, 8, 0, 1, 0, 0, 0, 0x68, 0, 0, 0, 32 };
    const Datagram forUrl { 0x42, 1, 0, 0x84, 0, 8, 0, 2, 0, 0, 2, 0, 0, 0, 2, 0 };
    using Answer = GigeProbe::Answer;
    const auto url = [](const char* text, std::uint8_t number = 2) {
        return acknowledge(readAck, number, 12 + 512, text);
    };
    const Datagram model = acknowledge(readAck, 1, 12 + 32);
    const Datagram wait = acknowledge(pendingAck, 1, 12);
    const Datagram sized = url("Local:name.zip;8000;1D8F2");
    const std::vector<ProbeCase> cases {
        { "Sized", { model }, { sized }, Answer::Given, 0x1D8F2 },
        { "NoSize", { model }, { url("FACADE.xml") }, Answer::Given, 0 },
        { "SecondUrl", { model }, { url("") }, Answer::Given, 7, 0, url("b;7", 3) },
        { "NoUrl", { model }, { acknowledge(readAck, 2, 8, {}, 0x80) }, Answer::Given, 0 },
        { "Refused", { acknowledge(readAck, 1, 8, {}, 0x80) }, {}, Answer::Refused, 0 },
        { "WaitThenAnswer", { wait, model }, { sized }, Answer::Given, 0x1D8F2 },
        { "FirstLost", { model }, { sized }, Answer::Given, 0x1D8F2, 1 },
        { "OthersFirst",
            { acknowledge(readAck, 9, 8, {}, 0x80), acknowledge(writeAck, 1, 8, {}, 0x80),
                acknowledge(writeAck, 1, 44), acknowledge(readAck, 1, 43),
                acknowledge(readAck, 1, 7, {}, 0x80), {}, model },
            { model, acknowledge(readAck, 2, 12 + 511, "a;7"), url("a;1") }, Answer::Given, 1 },
        { "OnlyWaits", { wait }, {}, Answer::Waits, 0 },
        { "NotItsAnswer", { acknowledge(readAck, 2, 44) }, {}, Answer::None, 0 },
    };
    for (const ProbeCase& test : cases) {
        SCOPED_TRACE(test.name);
        const bool isGiven = test.answer == Answer::Given;
        Answering camera("127.0.0.8",
            { { 1, test.onModel }, { 2, test.onUrl }, { 3, { test.onSecond } } }, test.lost);
        const GigeProbe probe = probeGige("127.0.0.8", false);
        EXPECT_EQ(probe.answer, test.answer);
        EXPECT_EQ(probe.descriptionSize, test.size);
        auto requests = camera.end();
        EXPECT_EQ(requests[1], forModel);
        EXPECT_EQ(requests[2], isGiven ? forUrl : Datagram());
    }
}

TEST(Places, ThatCannotBeProbed)
{
    const auto files
        = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
    const std::ptrdiff_t before = files();
    EXPECT_EQ(probeGige("127.0.0.8", true).answer, GigeProbe::Answer::None);
    EXPECT_EQ(probeGige("10.1.2.3", false).answer, GigeProbe::Answer::NoWay);
    EXPECT_EQ(probeGige("camera", false).answer, GigeProbe::Answer::NoWay);
    EXPECT_EQ(files(), before);
    OpeningProgress progress;
    EXPECT_TRUE(askForAnswer({ "USB3Vision", "camera" }, progress).isOk()); // has no address
    EXPECT_EQ(askForAnswer({ "GigEVision", "10.1.2.3" }, progress).text(),
        "10.1.2.3: no network of this computer leads to this address");
    EXPECT_EQ(progress.step, OpeningProgress::Step::Asking);
}

TEST(Places, ThatOnlyAnswerAProbeAreNoCameras)
{
    const Answering camera("127.0.0.8", { { 1, { acknowledge(readAck, 1, 12 + 32) } } }, 1);
    const auto progress = std::make_shared<OpeningProgress>();
    const auto opened = CameraLink::open(
        { "GigEVision", "127.0.0.8" }, CameraAccess::ControlOrReadOnly, progress);
    EXPECT_EQ(opened.status().text(),
        "127.0.0.8: the camera stopped answering while it was opened; packets to or from it get "
        "lost");
    EXPECT_FALSE(opened.value());
    EXPECT_GT(progress->expectedMs, 0); // as the first packet was lost
    EXPECT_EQ(progress->step, OpeningProgress::Step::Reading);
}

TEST(Places, ThatStateADescriptionNobodyHasMemoryFor)
{
    const Answering camera("127.0.0.8",
        { { 1, { acknowledge(readAck, 1, 12 + 32) } },
            { 2, { acknowledge(readAck, 2, 12 + 512, "Local:a.xml;0;FFFFFFFFFFFF") } },
            { 3, { acknowledge(readAck, 3, 8, {}, 0x80) } } });
    OpeningProgress progress;
    EXPECT_EQ(askForAnswer({ "GigEVision", "127.0.0.8" }, progress).text(),
        "127.0.0.8: the camera states an impossible size of its description, 281474976710655 "
        "bytes");
}

TEST(SourceFilters, FindTheSocketsThatHearEverybody)
{
    const std::vector<int> before = looseSockets("127.0.0.1");
    const sockaddr_in here = endpoint("127.0.0.1", 0);
    const Socket unbound;
    const Socket elsewhere(endpoint("127.0.0.8", 0));
    const Socket connected(here);
    const sockaddr_in peer = endpoint("127.0.0.8");
    ASSERT_EQ(
        connect(connected.handle(), reinterpret_cast<const sockaddr*>(&peer), sizeof peer), 0);
    const Socket listening(here, SOCK_STREAM);
    const Socket loose(here);
    std::vector<int> added;
    for (const int one : looseSockets("127.0.0.1")) {
        if (std::count(before.begin(), before.end(), one) == 0) {
            added.push_back(one);
        }
    }
    EXPECT_EQ(added, std::vector<int> { loose.handle() });
    EXPECT_TRUE(looseSockets("camera").empty());
}

TEST(SourceFilters, LetTheControlPortOfTheCameraThroughAndNobodyElse)
{
    const Socket ear(endpoint("127.0.0.1", 5000));
    EXPECT_FALSE(hearOnly(ear.handle(), "camera"));
    EXPECT_FALSE(hearOnly(-1, "127.0.0.8"));
    EXPECT_TRUE(hearOnly(ear.handle(), "127.0.0.8"));
    for (const sockaddr_in& mouth :
        { endpoint("127.0.0.8", 3957), endpoint("127.0.0.9"), endpoint("127.0.0.8") }) {
        Socket(mouth).send(Datagram(1500), endpoint("127.0.0.1", 5000));
    }
    sockaddr_in from {};
    EXPECT_EQ(ear.receive(from).size(), 1500U);
    EXPECT_EQ(from.sin_addr.s_addr, endpoint("127.0.0.8").sin_addr.s_addr);
    EXPECT_EQ(ntohs(from.sin_port), 3956);
    EXPECT_TRUE(ear.receive(from).empty());
}

TEST(Ipv4, SuggestsAnAddressInTheSameNetwork)
{
    for (const auto& [own, mask, beside] :
        { std::tuple("192.168.0.5", "255.255.255.0", "192.168.0.6"),
            { "192.168.0.254", "255.255.255.0", "192.168.0.1" },
            { "10.1.255.255", "255.0.0.0", "10.2.0.0" },
            { "10.0.0.1", "255.255.255.252", "10.0.0.2" },
            { "10.0.0.1", "255.255.255.254", "" } }) {
        const auto address = addressBeside(*parseIpv4(own), *parseIpv4(mask));
        EXPECT_EQ(address ? ipv4Text(*address) : "", beside) << own;
    }
    EXPECT_FALSE(parseIpv4("192.168.0"));
}

Datagram discovered(const std::string& serial, const Datagram& address)
{
    Datagram packet { 0, 0, 0, 3, 0, 0xF8, 0xFF, 0xFF };
    packet.resize(8 + 0xF8);
    const auto put = [&](std::ptrdiff_t at, auto text) {
        std::copy(text.begin(), text.end(), packet.begin() + 8 + at);
    };
    put(0x24, address);
    put(0x48, std::string("Maker"));
    put(0x68, std::string("Model"));
    put(0xD8, serial);
    return packet;
}

TEST(Discoveries, LeadToCamerasThatCanBeReachedAndSayWhyOthersCannot)
{
    CameraPlace place;
    std::string error;
    EXPECT_TRUE(findCamera("10.1.2.3", place, error)); // as it is, found or not
    EXPECT_EQ(place.protocol + place.address, "GigEVision10.1.2.3");
    Answering cameras("255.255.255.255",
        { { 0xFF, { discovered("S1", { 10, 1, 2, 3 }), discovered("S2", { 127, 9, 9, 9 }) } } });
    EXPECT_FALSE(findCamera("Nobody", place, error)); // has searched
    EXPECT_EQ(error, "Nobody: no such camera found");
    cameras.end();
    EXPECT_FALSE(findCamera("Maker-Model-S1", place, error));
    EXPECT_EQ(error,
        "Maker-Model-S1: the camera has the address 10.1.2.3, which no network of this computer "
        "leads to; no network is up in which a camera could be");
    EXPECT_TRUE(findCamera("Maker-Model-S2", place, error)) << error;
    EXPECT_EQ(place.protocol + place.address, "GigEVision127.9.9.9");
    EXPECT_TRUE(discoverCameras({ "nothing" }).empty());
    EXPECT_FALSE(findCamera("Maker-Model-S2", place, error)); // not among those found last
}

} // namespace
