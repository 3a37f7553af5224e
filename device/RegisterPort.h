#pragma once

#include "RegisterBackend.h"

#include <chrono>
#include <functional>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace zqcameralib {

/// The one way to a camera's registers: every access of the node map passes here.
///
/// Registers read are kept in a snapshot until the next write, for at most 100 ms, or as long as a
/// Pass lives. Failures are counted, because the node map swallows many of them: who reads a
/// feature compares failures() before and after.
class RegisterPort {
public:
    /// Decides before an access whether it shall fail instead; for tests. `write` tells the kind.
    using FaultHook = std::function<bool(std::uint64_t address, std::size_t size, bool write)>;
    using Register = std::pair<std::uint64_t, std::size_t>;

    explicit RegisterPort(std::unique_ptr<RegisterBackend> backend);
    RegisterPort(const RegisterPort&) = delete;
    RegisterPort& operator=(const RegisterPort&) = delete;
    ~RegisterPort();

    /// Both return false, set `error` and count a failure when the access failed.
    bool read(std::uint64_t address, std::uint8_t* buffer, std::size_t size, AccessKind kind,
        AccessError& error);
    bool write(std::uint64_t address, const std::uint8_t* buffer, std::size_t size, AccessKind kind,
        AccessError& error);

    /// Reads registers that are going to be read anyway into the snapshot, where reading them
    /// together costs less. Failures are left to the reading proper.
    void prefetch(const std::vector<Register>& registers);

    /// Another number says that what was read before may have changed since.
    std::uint64_t snapshotNumber();
    /// Tells the recorders of registers that would have been read from the snapshot.
    void noteAgain(const std::vector<Register>& registers);

    /// Forgets the snapshot; a value written without a register counts as a change as well.
    void invalidate();

    /// While one lives, the snapshot outlives its 100 ms (a write still ends it). A pass that
    /// shall see nothing older than itself starts with invalidate().
    class Pass {
    public:
        explicit Pass(RegisterPort& port);
        Pass(const Pass&) = delete;
        Pass& operator=(const Pass&) = delete;
        ~Pass();

    private:
        RegisterPort& m_port;
    };

    /// While one lives, it collects the registers read (from the snapshot or not) and written.
    class Recorder {
    public:
        explicit Recorder(RegisterPort& port);
        Recorder(const Recorder&) = delete;
        Recorder& operator=(const Recorder&) = delete;
        ~Recorder();

        std::vector<Register> read;
        std::vector<Register> written;

    private:
        RegisterPort& m_port;
    };

    RegisterBackend& backend() { return *m_backend; }
    std::uint64_t failures() const { return m_failures; }
    /// The error of the last access that failed.
    const AccessError& lastFailure() const { return m_lastFailure; }
    /// Accesses that reached the camera.
    std::uint64_t reads() const { return m_reads; }
    std::uint64_t writes() const { return m_writes; }
    /// Grows with every invalidate() and write: tells whether anything was changed since.
    std::uint64_t changes() const { return m_changes; }

    void setFaultHook(FaultHook hook) { m_faultHook = std::move(hook); }
    /// While set, every register read, from the snapshot or not, is appended to `trace`.
    void setTrace(std::vector<Register>* trace) { m_trace = trace; }

private:
    struct Hash {
        std::size_t operator()(const Register& key) const
        {
            return std::hash<std::uint64_t>()(key.first * 31U + key.second);
        }
    };
    struct Kept {
        std::size_t offset = 0;
    };
    using Clock = std::chrono::steady_clock;

    bool fail(AccessError& error);
    void note(const Register& key);
    bool snapshotExpired() const;
    void keep(const Register& key, const std::uint8_t* bytes);
    void clearSnapshot();

    std::unique_ptr<RegisterBackend> m_backend;
    std::unordered_map<Register, Kept, Hash> m_snapshot;
    std::vector<std::uint8_t> m_bytes;
    Clock::time_point m_snapshotStart;
    std::uint64_t m_snapshotNumber = 1;
    int m_passes = 0;
    std::uint64_t m_failures = 0;
    std::uint64_t m_reads = 0;
    std::uint64_t m_writes = 0;
    std::uint64_t m_changes = 0;
    AccessError m_lastFailure;
    AccessKind m_fourByteKind = AccessKind::Memory; ///< what this camera wants for four bytes
    FaultHook m_faultHook;
    std::vector<Register>* m_trace = nullptr;
    std::vector<Recorder*> m_recorders;
};

} // namespace zqcameralib
