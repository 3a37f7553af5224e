// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "camera/Repository.h"

#include "base/StatusCodes.h"
#include "camera/StateReasons.h"
#include "words/Words.h"

#include <utility>

namespace featurebrowser {

using zqcameralib::Feature;
using zqcameralib::RegisterPort;

namespace {

/// How long what a load has read may be handed out without reading it once more.
constexpr std::chrono::seconds freshAfterLoad(3);

} // namespace

ZQCameraRepository::Impl::Impl(zqcameralib::ZQCamera::Impl& camera)
    : m_camera(camera)
    , m_generation(camera.generation())
{
}

void ZQCameraRepository::Impl::dropOtherCamera()
{
    if (m_generation == m_camera.generation()) {
        return;
    }
    m_generation = m_camera.generation();
    clear();
    m_previous.clear();
    m_previousStates.clear();
    m_loadRegisters.clear();
    m_stateRegisters.clear();
    m_ahead.reset();
}

bool ZQCameraRepository::Impl::isLoaded()
{
    dropOtherCamera();
    return m_loaded;
}

ZQCameraRepository::Impl::ItemList& ZQCameraRepository::Impl::items()
{
    dropOtherCamera();
    return m_items;
}

void ZQCameraRepository::Impl::clear()
{
    if (m_loaded) {
        m_previous = std::move(m_records);
        m_previousStates = std::move(m_states);
    }
    m_loaded = false;
    m_items.clear();
    m_records.clear();
    m_states.clear();
}

ZQCameraRepository::Impl::ItemPointer ZQCameraRepository::Impl::find(const std::string& name)
{
    dropOtherCamera();
    const auto found = m_records.find(name);
    return found == m_records.end() ? nullptr : found->second.item;
}

bool ZQCameraRepository::Impl::readRecord(Record& record)
{
    FEATURE_STATE state = FEATURE_AVAILABLE;
    // Registers that move may be others by now.
    if (m_camera.port().backend().prefersBatches() && !touchesVariableAddress(*record.feature)) {
        m_camera.port().prefetch(record.touched);
    }
    const RegisterPort::FailureScope failures(m_camera.port());
    RegisterPort::Recorder recorder(m_camera.port());
    const bool done = m_camera.reader().read(*record.feature, *record.item, state);
    record.touched = std::move(recorder.read);
    m_states[record.feature->name] = state;
    record.isUnread = state == FEATURE_READ_FAILED;
    record.isOutstanding = !done && failures.status().code() == zqcameralib::cameraSlow;
    explain(record, state, done ? m_camera.reader().reason().text() : failures.status().text());
    return done;
}

void ZQCameraRepository::Impl::explain(
    Record& record, FEATURE_STATE state, const std::string& failure)
{
    zqcameralib::Words reason;
    if (state == FEATURE_READ_FAILED) {
        reason = zqcameralib::translated("Cannot be read") + ": " + failure;
    } else if (state == FEATURE_LOCKED) {
        reason = zqcameralib::translated("Cannot be changed now") + ": "
            + lockReason(m_camera, *record.feature);
    } else if (state == FEATURE_NOT_AVAILABLE) {
        reason = zqcameralib::translated("Cannot be used") + ": "
            + unavailableReason(m_camera, *record.feature);
    }
    record.reason = reason.text();
    if (!reason.empty() && record.reason.back() != '.') {
        record.reason += '.';
    }
    describe(record);
}

void ZQCameraRepository::Impl::describe(Record& record)
{
    const std::string& text = record.feature->description;
    record.item->description
        = text + (text.empty() || record.reason.empty() ? "" : "\n") + record.reason;
}

std::string ZQCameraRepository::Impl::reason(const std::string& name) const
{
    const auto found = m_records.find(name);
    return found == m_records.end() ? std::string() : found->second.reason;
}

bool ZQCameraRepository::Impl::isStillFresh(Record& record)
{
    const bool fresh = record.isFresh && m_camera.port().changes() == m_changesAtLoad
        && Clock::now() - m_loadedAt < freshAfterLoad;
    record.isFresh = false;
    return fresh;
}

bool ZQCameraRepository::Impl::read(const ItemPointer& item)
{
    dropOtherCamera();
    if (!item) {
        return false;
    }
    const auto found = m_records.find(item->name);
    if (found == m_records.end() || found->second.item != item) {
        return false;
    }
    const zqcameralib::CallScope call(backend());
    return isStillFresh(found->second) || readRecord(found->second);
}

int ZQCameraRepository::Impl::updateStates()
{
    dropOtherCamera();
    if (!m_loaded) {
        return zqcameralib::notLoaded;
    }
    RegisterPort& port = m_camera.port();
    const RegisterPort::Pass pass(port);
    const RegisterPort::FailureScope failuresOfAll(port);
    port.prefetch(m_stateRegisters);
    RegisterPort::Recorder recorder(port);
    for (auto& [name, record] : m_records) {
        const RegisterPort::FailureScope failures(port);
        const FEATURE_STATE state = m_camera.reader().state(*record.feature);
        // Once a feature could not be asked, only a fresh value takes the mark away.
        if (!record.isUnread) {
            explain(record, state,
                failures.hasFailed() ? failures.status().text()
                                     : m_camera.reader().reason().text());
        }
        record.isUnread = record.isUnread || state == FEATURE_READ_FAILED;
        record.isFresh = record.isFresh && !record.isUnread;
        m_states[name] = record.isUnread ? FEATURE_READ_FAILED : state;
        record.isOutstanding
            = record.isOutstanding || failures.status().code() == zqcameralib::cameraSlow;
    }
    m_stateRegisters = distinct(std::move(recorder.read));
    if (backend().isLost()) {
        return m_camera.note(backend().loss());
    }
    return failuresOfAll.hasFailed() ? m_camera.note(failuresOfAll.status()) : STATUS_OK;
}

} // namespace featurebrowser
