#include "registers/RegisterPort.h"

#include "base/StatusCodes.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace zqcameralib {

namespace {
// What one operation reads is shared by those that follow it at once, also where the camera is far.
constexpr std::chrono::milliseconds shortestLife(100);
constexpr std::chrono::milliseconds longestLife(1000);
constexpr int accessesShared = 8;
}

RegisterPort::RegisterPort(std::unique_ptr<RegisterBackend> backend)
    : m_backend(std::move(backend))
{
}

RegisterPort::~RegisterPort() = default;

bool RegisterPort::fail(AccessError& error)
{
    ++m_failures;
    m_lastFailure = error;
    return false;
}

bool RegisterPort::snapshotExpired() const
{
    return m_passes == 0
        && Clock::now() - m_snapshotStart > std::clamp<std::chrono::nanoseconds>(
               accessesShared * m_accessTime, shortestLife, longestLife);
}

void RegisterPort::noteTime(std::chrono::nanoseconds taken)
{
    m_accessTime += (taken - m_accessTime) / accessesShared;
}

void RegisterPort::clearSnapshot()
{
    m_snapshot.clear();
    m_bytes.clear();
    ++m_snapshotNumber;
}

std::uint64_t RegisterPort::snapshotNumber()
{
    if (!m_snapshot.empty() && snapshotExpired()) {
        clearSnapshot();
    }
    return m_snapshotNumber;
}

void RegisterPort::note(const Register& key)
{
    for (Recorder* recorder : m_recorders) {
        recorder->read.push_back(key);
    }
}

void RegisterPort::noteAgain(const std::vector<Register>& registers)
{
    for (const Register& key : registers) {
        note(key);
    }
}

void RegisterPort::invalidate()
{
    clearSnapshot();
    ++m_changes;
}

/// False when the register has to be read from the camera.
bool RegisterPort::readAhead(
    const Register& key, AccessKind kind, std::uint8_t* buffer, AccessError& error, bool& done)
{
    const auto found = m_ahead->m_known.find(key);
    if (found != m_ahead->m_known.end()) {
        done = found->second.error.code == 0;
        if (done) {
            ++m_answers;
            std::copy(found->second.bytes.begin(), found->second.bytes.end(), buffer);
        } else {
            error = found->second.error;
            fail(error);
        }
        return true;
    }
    if (m_ahead->m_missing == nullptr) {
        return false;
    }
    if (!m_ahead->m_isMissing) {
        m_ahead->m_isMissing = true;
        m_ahead->m_missing->push_back(
            { key.first, kind, std::vector<std::uint8_t>(key.second), false, {} });
    }
    error = { notReadYet, "not read yet" };
    done = fail(error);
    return true;
}

bool RegisterPort::read(std::uint64_t address, std::uint8_t* buffer, std::size_t size,
    AccessKind kind, AccessError& error)
{
    const Register key(address, size);
    m_fourByteKind = size == 4 ? kind : m_fourByteKind;
    note(key);
    bool done = false;
    if (m_ahead != nullptr && readAhead(key, kind, buffer, error, done)) {
        return done;
    }
    if (!m_snapshot.empty() && snapshotExpired()) {
        clearSnapshot();
    }
    const auto kept = m_snapshot.find(key);
    if (kept != m_snapshot.end()) {
        std::memcpy(buffer, m_bytes.data() + kept->second.offset, size);
        return true;
    }
    ++m_reads;
    if (m_faultHook && m_faultHook(address, size, false)) {
        error = { injectedFault, "injected fault" };
        return fail(error);
    }
    const bool isTimed = m_backend->prefersBatches();
    const Clock::time_point start = isTimed ? Clock::now() : Clock::time_point();
    if (!m_backend->read(address, buffer, size, kind, error)) {
        return fail(error);
    }
    if (isTimed) {
        noteTime(Clock::now() - start);
    }
    keep(key, buffer);
    return true;
}

void RegisterPort::keep(const Register& key, const std::uint8_t* bytes)
{
    ++m_answers;
    if (m_snapshot.empty()) {
        m_snapshotStart = Clock::now();
    }
    m_snapshot[key] = Kept { m_bytes.size() };
    m_bytes.insert(m_bytes.end(), bytes, bytes + key.second);
}

void RegisterPort::prefetch(const std::vector<Register>& registers)
{
    if (!m_backend->prefersBatches() || m_ahead != nullptr) {
        return;
    }
    if (!m_snapshot.empty() && snapshotExpired()) {
        clearSnapshot();
    }
    std::vector<RegisterBackend::Request> requests;
    std::unordered_set<Register, Hash> wanted;
    for (const Register& key : registers) {
        if (m_snapshot.count(key) == 0 && wanted.insert(key).second) {
            requests.push_back(
                { key.first, kindOf(key), std::vector<std::uint8_t>(key.second), false, {} });
        }
    }
    if (requests.size() < 2) {
        return;
    }
    m_backend->readTogether(requests);
    for (const RegisterBackend::Request& request : requests) {
        if (request.done) {
            ++m_reads;
            keep({ request.address, request.bytes.size() }, request.bytes.data());
        }
    }
}

bool RegisterPort::write(std::uint64_t address, const std::uint8_t* buffer, std::size_t size,
    AccessKind kind, AccessError& error)
{
    invalidate();
    for (Recorder* recorder : m_recorders) {
        recorder->written.emplace_back(address, size);
    }
    ++m_writes;
    if (m_faultHook && m_faultHook(address, size, true)) {
        error = { injectedFault, "injected fault" };
        return fail(error);
    }
    return m_backend->write(address, buffer, size, kind, error) || fail(error);
}

RegisterPort::Ahead::Ahead(
    RegisterPort& port, const KnownRegisters& known, RegisterBackend::Requests* missing)
    : m_port(port)
    , m_known(known)
    , m_missing(missing)
{
    m_port.m_ahead = this;
}

RegisterPort::Ahead::~Ahead()
{
    m_port.m_ahead = nullptr;
    m_port.clearSnapshot(); // nobody may build on answers of another time
}

bool RegisterPort::Ahead::begin()
{
    return std::exchange(m_isMissing, false);
}

RegisterPort::Recorder::Recorder(RegisterPort& port)
    : m_port(port)
{
    m_port.m_recorders.push_back(this);
}

RegisterPort::Recorder::~Recorder()
{
    auto& recorders = m_port.m_recorders;
    recorders.erase(std::remove(recorders.begin(), recorders.end(), this), recorders.end());
}

RegisterPort::Pass::Pass(RegisterPort& port)
    : m_port(port)
{
    if (m_port.m_passes++ == 0 && m_port.snapshotExpired()) {
        m_port.clearSnapshot();
    }
}

RegisterPort::Pass::~Pass()
{
    // What a pass has read may be older than a snapshot's usual life.
    if (--m_port.m_passes == 0 && m_port.snapshotExpired()) {
        m_port.clearSnapshot();
    }
}

} // namespace zqcameralib
