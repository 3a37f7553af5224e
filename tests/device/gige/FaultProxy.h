#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <random>
#include <thread>
#include <vector>

/// What the proxy does to control packets. Shares are per packet, 0 to 1.
struct Faults {
    double loseRequests = 0.0;
    double loseReplies = 0.0;
    double duplicateRequests = 0.0;
    double duplicateReplies = 0.0;
    double reorderReplies = 0.0; ///< a reply waits for the next one
    double corruptReplies = 0.0; ///< a bit of the header flips
    double truncateReplies = 0.0;
    std::chrono::microseconds delay { 0 }; ///< of replies
    int status = 0; ///< replies refuse with this status code
    bool pendingForever = false; ///< every request is answered with "wait", again and again
    int pendingMs = 0; ///< every request is answered with one "wait" and, so much later, for good
};

/// Stands between a client and the GigE Vision camera on 127.0.0.1 as a camera on 127.0.0.2, and
/// does seeded harm to the control packets that pass.
class FaultProxy {
public:
    static constexpr const char* address = "127.0.0.2";

    explicit FaultProxy(std::uint32_t seed);
    FaultProxy(const FaultProxy&) = delete;
    FaultProxy& operator=(const FaultProxy&) = delete;
    ~FaultProxy();

    void set(const Faults& faults);

private:
    using Packet = std::vector<std::uint8_t>;

    void run();
    void onRequest(Packet packet, const Faults& faults);
    void onReply(Packet packet, const Faults& faults);
    void reply(const Packet& packet) const;
    void wait(const Packet& request) const;
    bool happens(double share);
    Packet receive(int handle, void* from, unsigned* size) const;

    std::mt19937 m_random;
    std::mutex m_mutex;
    Faults m_faults;
    int m_front = -1; ///< towards the client
    int m_back = -1; ///< towards the camera
    std::vector<std::uint8_t> m_client; ///< its address
    Packet m_held;
    Packet m_pending; ///< request that is answered with "wait"
    std::atomic<bool> m_stop { false };
    std::thread m_thread;
};
