// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "registers/RegisterBackend.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace zqcameralib {

/// The one way to a camera's registers: every access of the node map passes here.
///
/// Registers read are kept in a snapshot until the next write, for at most 100 ms (longer where one
/// access takes long itself), or as long as a Pass lives. Whoever evaluates several nodes learns
/// by a FailureScope whether any access failed.
class RegisterPort {
public:
    /// Decides before an access whether it shall fail instead; for tests. `write` tells the kind.
    using FaultHook = std::function<bool(std::uint64_t address, std::size_t size, bool write)>;

    explicit RegisterPort(std::unique_ptr<RegisterBackend> backend);
    RegisterPort(const RegisterPort&) = delete;
    RegisterPort& operator=(const RegisterPort&) = delete;
    ~RegisterPort();

    /// `buffer` has, or receives, as many bytes as the place.
    Status read(const Register& place, std::uint8_t* buffer);
    Status write(const Register& place, const std::uint8_t* buffer);

    /// Reads registers that are going to be read anyway into the snapshot, where reading them
    /// together costs less. Failures are left to the reading proper.
    void prefetch(const Registers& registers);

    /// Another number says that what was read before may have changed since.
    std::uint64_t snapshotNumber();
    /// Tells the recorders of registers that would have been read from the snapshot.
    void noteAgain(const Registers& registers);

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

    /// While one lives, what is written, or invalidates, forgets only the registers of which
    /// `isChanged`. For one who knows how far a write reaches.
    class Keeping {
    public:
        using IsChanged = std::function<bool(const Register& place)>;

        Keeping(RegisterPort& port, IsChanged isChanged);
        Keeping(const Keeping&) = delete;
        Keeping& operator=(const Keeping&) = delete;
        ~Keeping();

    private:
        friend class RegisterPort;
        RegisterPort& m_port;
        IsChanged m_isChanged;
    };

    /// While one lives, it collects the registers read (from the snapshot or not) and written.
    class Recorder {
    public:
        explicit Recorder(RegisterPort& port);
        Recorder(const Recorder&) = delete;
        Recorder& operator=(const Recorder&) = delete;
        ~Recorder();

        Registers read;
        Registers written;

    private:
        RegisterPort& m_port;
    };

    /// Registers that were read beside the caller, by place.
    struct Known {
        std::vector<std::uint8_t> bytes;
        Status status; ///< a success where the bytes hold
    };
    using KnownRegisters = std::unordered_map<Register, Known, RegisterHash>;

    /// Tells what failed while it lives.
    class FailureScope {
    public:
        explicit FailureScope(const RegisterPort& port)
            : m_port(port)
            , m_before(port.m_failures)
        {
        }

        bool hasFailed() const { return m_port.m_failures != m_before; }
        /// The last failure; a success when there was none.
        Status status() const { return hasFailed() ? m_port.m_lastFailure : Status(); }

    private:
        const RegisterPort& m_port;
        std::uint64_t m_before;
    };

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
    /// How the camera wants registers of four bytes to be accessed.
    void setFourByteKind(AccessKind kind) { m_fourByteKind = kind; }
    /// How the camera wants this register to be accessed.
    AccessKind kindOf(const Register& place) const
    {
        return place.size == 4 ? m_fourByteKind : AccessKind::Memory;
    }
    /// Registers that were read.
    std::uint64_t answers() const { return m_answers; }
    /// Accesses that reached the camera.
    std::uint64_t reads() const { return m_reads; }
    std::uint64_t writes() const { return m_writes; }
    /// Grows with every invalidate() and write: tells whether anything was changed since.
    std::uint64_t changes() const { return m_changes; }

    void setFaultHook(FaultHook hook) { m_faultHook = std::move(hook); }

private:
    using Clock = std::chrono::steady_clock;

    /// Notes a failure for the scopes that are open.
    Status noted(Status status);
    std::optional<Status> readAhead(const Register& place, AccessKind kind, std::uint8_t* buffer);
    void note(const Register& place);
    bool snapshotExpired() const;
    /// Learns how long an access takes.
    void noteTime(std::chrono::nanoseconds taken);
    void keep(const Register& place, const std::uint8_t* bytes);
    void clearSnapshot();
    void forgetChanged();

    std::unique_ptr<RegisterBackend> m_backend;
    std::unordered_map<Register, std::size_t, RegisterHash> m_snapshot;
    std::vector<std::uint8_t> m_bytes; ///< of the snapshot, which holds offsets
    Clock::time_point m_snapshotStart;
    std::chrono::nanoseconds m_accessTime { 0 }; ///< of one register, on the average of the last
    std::uint64_t m_snapshotNumber = 1;
    int m_passes = 0;
    std::uint64_t m_failures = 0;
    std::uint64_t m_answers = 0;
    std::uint64_t m_reads = 0;
    std::uint64_t m_writes = 0;
    std::uint64_t m_changes = 0;
    Status m_lastFailure;
    AccessKind m_fourByteKind = AccessKind::Memory; ///< what this camera wants for four bytes
    FaultHook m_faultHook;
    std::vector<Recorder*> m_recorders;
    Ahead* m_ahead = nullptr;
    const Keeping* m_keeping = nullptr;
};

} // namespace zqcameralib
