// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "Datagram.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

/// What the proxy does to control packets. Shares are per packet, 0 to 1.
struct Faults {
    double loseRequests = 0.0;
    double loseReplies = 0.0;
    int status = 0; ///< replies refuse with this status code
    std::uint32_t refusedWrite = 0; ///< only writes to this register are refused
    std::chrono::microseconds requestDelay { 0 }; ///< of each request by itself
    std::chrono::microseconds delay { 0 }; ///< of each reply by itself
    std::chrono::microseconds jitter { 0 }; ///< and up to so much more
    double duplicate = 0.0; ///< requests as well as replies
    double reorderReplies = 0.0; ///< a reply waits for the next one
    double corruptReplies = 0.0; ///< a bit of the header flips
    double truncateReplies = 0.0;
    double wrongIds = 0.0; ///< a reply tells the number of another request
    double forgeReplies = 0.0; ///< before what was read comes something else from `forger`
    bool pendingForever = false; ///< every request is answered with "wait", again and again
    int pendingMs = 0; ///< every request is answered with one "wait" and, so much later, for good

    static Faults requestsLost() { return { 1 }; }
    /// What is asked for is done all the same.
    static Faults repliesLost() { return { 0, 1 }; }
    static Faults refusing(int status, std::uint32_t write = 0) { return { 0, 0, status, write }; }
    static Faults slow(std::chrono::microseconds each) { return { 0, 0, 0, 0, each, each }; }
};

/// Stands between clients and a GigE Vision camera, at first the one on 127.0.0.1, as a camera on
/// 127.0.0.2, and does seeded harm to the control packets that pass.
class FaultProxy {
public:
    static constexpr const char* address = "127.0.0.2";
    static constexpr const char* forger = "127.0.0.3"; ///< sends forged replies, from its port 3956

    explicit FaultProxy(std::uint32_t seed);
    FaultProxy(const FaultProxy&) = delete;
    FaultProxy& operator=(const FaultProxy&) = delete;
    ~FaultProxy();

    void set(const Faults& faults);
    /// Requests go to the camera at this address from now on; replies under way still arrive.
    void switchTo(const std::string& camera);
    /// Packets of clients that have come so far.
    std::uint64_t requests() const { return m_requests; }
    /// Of them, those that read or write registers, and not memory.
    std::uint64_t registerRequests() const { return m_registerRequests; }

private:
    using Clock = std::chrono::steady_clock;
    using Packet = Datagram;
    /// Each client has a socket of its own towards the camera: so the camera tells them apart, and
    /// a reply finds back.
    struct Client {
        sockaddr_in address {};
        Socket back;
        Packet held; ///< reply that waits for the next one
        Packet pending; ///< request that is answered with "wait"
    };
    struct Departure {
        const Socket* socket;
        sockaddr_in to;
        Packet packet;
    };

    void run();
    void awaitPackets() const;
    void pass(const Faults& faults);
    void sendDue();
    void onRequest(Client& client, Packet packet, const Faults& faults);
    void onReply(Client& client, Packet packet, const Faults& faults);
    void harm(Packet& reply, const Faults& faults);
    void reply(const Client& client, const Packet& packet, Clock::time_point due);
    void forge(const Client& client, Packet packet, Clock::time_point due);
    bool happens(double share);
    Clock::time_point replyTime(const Faults& faults);

    std::mt19937 m_random;
    std::mutex m_mutex; ///< of the next two
    Faults m_faults;
    sockaddr_in m_camera;
    const Socket m_front { endpoint(address) }; ///< towards the clients
    const Socket m_forger { endpoint(forger) };
    std::map<std::pair<in_addr_t, in_port_t>, Client> m_clients;
    std::multimap<Clock::time_point, Departure> m_departures;
    std::atomic<std::uint64_t> m_requests { 0 };
    std::atomic<std::uint64_t> m_registerRequests { 0 };
    std::atomic<bool> m_stop { false };
    std::thread m_thread;
};
