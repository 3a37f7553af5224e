#pragma once

#include "registers/RegisterBackend.h"

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
/// Registers read are kept in a snapshot until the next write, for at most 100 ms (longer where one
/// access takes long itself), or as long as a Pass lives. Failures are counted, because the node
/// map swallows many of them: who reads a feature compares failures() before and after.
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

    /// Registers that were read beside the caller, by place.
    struct Known {
        std::vector<std::uint8_t> bytes;
        AccessError error; ///< code 0 where the bytes hold
    };
    struct Hash {
        std::size_t operator()(const Register& key) const
        {
            return std::hash<std::uint64_t>()(key.first * 31U + key.second);
        }
    };
    using KnownRegisters = std::unordered_map<Register, Known, Hash>;

    /// While one lives, registers are taken from `known` instead of the camera. One that is not
    /// there is read; or, with `missing`, fails and is added to that, where it is the first since
    /// begin().
    class Ahead {
    public:
        Ahead(RegisterPort& port, const KnownRegisters& known,
            RegisterBackend::Requests* missing = nullptr);
        Ahead(const Ahead&) = delete;
        Ahead& operator=(const Ahead&) = delete;
        ~Ahead();

        /// Begins another evaluation; whether anything was missing in the last one. What follows
        /// the first register that is missing was asked for in vain, perhaps.
        bool begin();

    private:
        friend class RegisterPort;
        RegisterPort& m_port;
        const KnownRegisters& m_known;
        RegisterBackend::Requests* m_missing;
        bool m_isMissing = false;
    };

    RegisterBackend& backend() { return *m_backend; }
    /// How the camera wants this register to be read, as far as that is known.
    AccessKind kindOf(const Register& place) const
    {
        return place.second == 4 ? m_fourByteKind : AccessKind::Memory;
    }
    std::uint64_t failures() const { return m_failures; }
    /// The error of the last access that failed.
    const AccessError& lastFailure() const { return m_lastFailure; }
    /// Registers that were read.
    std::uint64_t answers() const { return m_answers; }
    /// Accesses that reached the camera.
    std::uint64_t reads() const { return m_reads; }
    std::uint64_t writes() const { return m_writes; }
    /// Grows with every invalidate() and write: tells whether anything was changed since.
    std::uint64_t changes() const { return m_changes; }

    void setFaultHook(FaultHook hook) { m_faultHook = std::move(hook); }

private:
    struct Kept {
        std::size_t offset = 0;
    };
    using Clock = std::chrono::steady_clock;

    bool fail(AccessError& error);
    bool readAhead(
        const Register& key, AccessKind kind, std::uint8_t* buffer, AccessError& error, bool& done);
    void note(const Register& key);
    bool snapshotExpired() const;
    /// Learns how long an access takes.
    void noteTime(std::chrono::nanoseconds taken);
    void keep(const Register& key, const std::uint8_t* bytes);
    void clearSnapshot();

    std::unique_ptr<RegisterBackend> m_backend;
    std::unordered_map<Register, Kept, Hash> m_snapshot;
    std::vector<std::uint8_t> m_bytes;
    Clock::time_point m_snapshotStart;
    std::chrono::nanoseconds m_accessTime { 0 }; ///< of one register, on the average of the last
    std::uint64_t m_snapshotNumber = 1;
    int m_passes = 0;
    std::uint64_t m_failures = 0;
    std::uint64_t m_answers = 0;
    std::uint64_t m_reads = 0;
    std::uint64_t m_writes = 0;
    std::uint64_t m_changes = 0;
    AccessError m_lastFailure;
    AccessKind m_fourByteKind = AccessKind::Memory; ///< what this camera wants for four bytes
    FaultHook m_faultHook;
    std::vector<Recorder*> m_recorders;
    Ahead* m_ahead = nullptr;
};

} // namespace zqcameralib
