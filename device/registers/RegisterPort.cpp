// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "registers/RegisterPort.h"

#include "base/StatusCodes.h"
#include "words/Words.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <unordered_set>
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

Status RegisterPort::noted(Status status)
{
    if (!status.isOk()) {
        ++m_failures;
        m_lastFailure = status;
    }
    return status;
}

bool RegisterPort::snapshotExpired() const
{
    return !m_snapshot.empty() && m_passes == 0
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
    if (snapshotExpired()) {
        clearSnapshot();
    }
    return m_snapshotNumber;
}

void RegisterPort::note(const Register& place)
{
    for (Recorder* recorder : m_recorders) {
        recorder->read.push_back(place);
    }
}

void RegisterPort::noteAgain(const Registers& registers)
{
    for (const Register& place : registers) {
        note(place);
    }
}

void RegisterPort::invalidate()
{
    if (m_keeping == nullptr) {
        clearSnapshot();
    } else {
        forgetChanged();
    }
    ++m_changes;
}

void RegisterPort::forgetChanged()
{
    for (auto kept = m_snapshot.begin(); kept != m_snapshot.end();) {
        kept = m_keeping->m_isChanged(kept->first) ? m_snapshot.erase(kept) : std::next(kept);
    }
    ++m_snapshotNumber;
}

/// Nothing when the register has to be read from the camera.
std::optional<Status> RegisterPort::readAhead(
    const Register& place, AccessKind kind, std::uint8_t* buffer)
{
    const auto found = m_ahead->m_known.find(place);
    if (found != m_ahead->m_known.end()) {
        const Known& known = found->second;
        if (known.status.isOk()) {
            ++m_answers;
            std::copy(known.bytes.begin(), known.bytes.end(), buffer);
        }
        return noted(known.status);
    }
    if (m_ahead->m_missing == nullptr) {
        return std::nullopt;
    }
    if (!m_ahead->m_isMissing) {
        m_ahead->m_isMissing = true;
        m_ahead->m_missing->emplace_back(place, kind);
    }
    return noted({ notReadYet, translated("not read yet") });
}

Status RegisterPort::read(const Register& place, std::uint8_t* buffer)
{
    const AccessKind kind = kindOf(place);
    note(place);
    if (m_ahead != nullptr) {
        if (const std::optional<Status> known = readAhead(place, kind, buffer)) {
            return *known;
        }
    }
    if (snapshotExpired()) {
        clearSnapshot();
    }
    const auto kept = m_snapshot.find(place);
    if (kept != m_snapshot.end()) {
        std::memcpy(buffer, m_bytes.data() + kept->second, place.size);
        return {};
    }
    ++m_reads;
    if (m_faultHook && m_faultHook(place.address, place.size, false)) {
        return noted({ injectedFault, "injected fault" });
    }
    const bool isTimed = m_backend->prefersBatches();
    const Clock::time_point start = isTimed ? Clock::now() : Clock::time_point();
    const Status status = m_backend->read(place, buffer, kind);
    if (!status.isOk()) {
        return noted(status);
    }
    if (isTimed) {
        noteTime(Clock::now() - start);
    }
    keep(place, buffer);
    return {};
}

void RegisterPort::keep(const Register& place, const std::uint8_t* bytes)
{
    ++m_answers;
    if (m_snapshot.empty()) {
        m_snapshotStart = Clock::now();
    }
    m_snapshot[place] = m_bytes.size();
    m_bytes.insert(m_bytes.end(), bytes, bytes + place.size);
}

void RegisterPort::prefetch(const Registers& registers)
{
    if (!m_backend->prefersBatches() || m_ahead != nullptr) {
        return;
    }
    if (snapshotExpired()) {
        clearSnapshot();
    }
    RegisterBackend::Requests requests;
    std::unordered_set<Register, RegisterHash> wanted;
    for (const Register& place : registers) {
        if (m_snapshot.count(place) == 0 && wanted.insert(place).second) {
            requests.emplace_back(place, kindOf(place));
        }
    }
    if (requests.size() < 2) {
        return;
    }
    m_backend->readTogether(requests);
    for (const RegisterBackend::Request& request : requests) {
        if (request.isDone) {
            ++m_reads;
            keep(request.place, request.bytes.data());
        }
    }
}

Status RegisterPort::write(const Register& place, const std::uint8_t* buffer)
{
    invalidate();
    for (Recorder* recorder : m_recorders) {
        recorder->written.push_back(place);
    }
    ++m_writes;
    if (m_faultHook && m_faultHook(place.address, place.size, true)) {
        return noted({ injectedFault, "injected fault" });
    }
    return noted(m_backend->write(place, buffer, kindOf(place)));
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

RegisterPort::Keeping::Keeping(RegisterPort& port, IsChanged isChanged)
    : m_port(port)
    , m_isChanged(std::move(isChanged))
{
    m_port.m_keeping = this;
}

RegisterPort::Keeping::~Keeping()
{
    m_port.m_keeping = nullptr;
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
    if (m_port.snapshotExpired()) { // not within another pass
        m_port.clearSnapshot();
    }
    ++m_port.m_passes;
}

RegisterPort::Pass::~Pass()
{
    --m_port.m_passes;
}

} // namespace zqcameralib
