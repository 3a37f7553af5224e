// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "camera/ReadAhead.h"

#include <algorithm>
#include <functional>
#include <unordered_set>
#include <utility>

namespace zqcameralib {

using namespace featurebrowser;

namespace {
/// How long what was read may be used without reading it once more.
constexpr std::chrono::seconds currentFor(3);
} // namespace

ReadAhead::ReadAhead(ZQCamera::Impl& camera, const Registers& expected, std::vector<bool> wanted)
    : m_camera(camera)
    , m_wanted(std::move(wanted))
{
    begin(expected);
}

void ReadAhead::begin(const Registers& registers)
{
    m_known.clear();
    m_reading = nullptr;
    m_pending = 0;
    m_changes = m_camera.port().changes();
    m_generation = m_camera.generation();
    m_reader.emplace(m_camera.description(), m_camera.nodes(), m_camera.port());
    m_isDone = false;
    m_isComplete.assign(m_camera.features().size(), false);
    if (isPartial()) {
        std::transform(m_wanted.begin(), m_wanted.end(), m_isComplete.begin(), std::logical_not());
    }
    m_wantsConditional = registers.empty() && !isPartial();
    m_camera.port().backend().check();
    request(unknown(m_wantsConditional ? m_camera.prefetchPlan().always : registers));
}

void ReadAhead::request(Requests requests)
{
    m_pending = requests.size();
    m_reading = m_camera.port().backend().readBeside(std::move(requests));
}

void ReadAhead::collect()
{
    for (RegisterBackend::Request& request : m_reading->takeFinished()) {
        --m_pending;
        m_known[request.place] = { std::move(request.bytes), std::move(request.status) };
    }
}

RegisterBackend::Requests ReadAhead::unknown(const Registers& registers) const
{
    Requests requests;
    std::unordered_set<Register, RegisterHash> wanted;
    for (const Register& place : registers) {
        if (m_known.count(place) == 0 && wanted.insert(place).second) {
            requests.emplace_back(place, m_camera.port().kindOf(place));
        }
    }
    return requests;
}

RegisterBackend::Requests ReadAhead::conditional()
{
    Requests ignored;
    const RegisterPort::Ahead ahead(m_camera.port(), m_known, &ignored);
    const std::vector<Registers>& byFeature = m_camera.prefetchPlan().whenAvailable;
    Registers registers;
    for (std::size_t i = 0; i < byFeature.size(); ++i) {
        if (!byFeature[i].empty()
            && m_reader->state(m_camera.features()[i]) != FEATURE_NOT_AVAILABLE) {
            registers.insert(registers.end(), byFeature[i].begin(), byFeature[i].end());
        }
    }
    return unknown(registers);
}

bool ReadAhead::isComplete(std::size_t index, RegisterPort::Ahead& ahead)
{
    const Feature& feature = m_camera.features()[index];
    ahead.begin();
    if (feature.type != FEATURE_CATEGORY && m_reader->canBeImplemented(feature)) {
        FeatureItem item;
        FEATURE_STATE state = FEATURE_AVAILABLE;
        m_reader->read(feature, item, state);
    }
    return !ahead.begin();
}

RegisterBackend::Requests ReadAhead::missing()
{
    Requests requests;
    RegisterPort::Ahead ahead(m_camera.port(), m_known, &requests);
    for (std::size_t i = 0; i < m_isComplete.size(); ++i) {
        m_isComplete[i] = m_isComplete[i] || isComplete(i, ahead);
    }
    const auto isBefore = [](const auto& a, const auto& b) { return a.place < b.place; };
    const auto isSame = [](const auto& a, const auto& b) { return a.place == b.place; };
    std::sort(requests.begin(), requests.end(), isBefore);
    requests.erase(std::unique(requests.begin(), requests.end(), isSame), requests.end());
    return requests;
}

ReadAhead::State ReadAhead::step()
{
    RegisterPort& port = m_camera.port();
    if (port.backend().isGivenUp()) {
        return State::Failed;
    }
    if (m_changes != port.changes()) {
        Registers registers;
        for (const auto& [place, known] : m_known) {
            registers.push_back(place);
        }
        const bool isSameCamera = m_generation == m_camera.generation();
        m_wanted.resize(isSameCamera ? m_wanted.size() : 0);
        begin(isSameCamera ? registers : Registers());
    }
    if (!port.backend().prefersBatches()) { // reading it then costs no more
        m_pending = 0;
        m_isDone = true;
    }
    while (!m_isDone) {
        collect();
        if (m_pending > 0) {
            return State::Running;
        }
        Requests next;
        if (std::exchange(m_wantsConditional, false)) {
            next = conditional();
        }
        if (next.empty()) {
            next = missing();
        }
        m_isDone = next.empty();
        m_doneAt = std::chrono::steady_clock::now();
        if (!m_isDone) {
            request(std::move(next));
        }
    }
    m_reading = nullptr;
    return State::Done;
}

bool ReadAhead::isCurrent() const
{
    return m_isDone && m_changes == m_camera.port().changes()
        && std::chrono::steady_clock::now() - m_doneAt < currentFor;
}

} // namespace zqcameralib
