// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "camera/Repository.h"

#include "base/StatusCodes.h"
#include "words/Words.h"

#include <algorithm>
#include <optional>
#include <thread>

namespace featurebrowser {

using zqcameralib::Feature;
using zqcameralib::RegisterPort;

void ZQCameraRepository::Impl::beginReadAhead(bool onlyOutstanding)
{
    dropOtherCamera();
    if (!onlyOutstanding || !m_loaded) {
        m_ahead = std::make_unique<zqcameralib::ReadAhead>(
            m_camera, m_loadRegisters, std::vector<bool>());
        return;
    }
    std::vector<bool> wanted;
    Registers expected;
    for (const Feature& feature : m_camera.features()) {
        const auto found = m_records.find(feature.name);
        wanted.push_back(found != m_records.end() && found->second.isOutstanding);
        if (wanted.back()) {
            const Registers& touched = found->second.touched;
            expected.insert(expected.end(), touched.begin(), touched.end());
        }
    }
    m_ahead = std::make_unique<zqcameralib::ReadAhead>(m_camera, expected, std::move(wanted));
}

bool ZQCameraRepository::Impl::hasOutstanding() const
{
    return std::any_of(m_records.begin(), m_records.end(),
        [](const auto& entry) { return entry.second.isOutstanding; });
}

zqcameralib::Status ZQCameraRepository::Impl::awaitReadAhead()
{
    if (!m_ahead) {
        beginReadAhead(false);
    }
    for (;;) {
        const zqcameralib::ReadAhead::State state = m_ahead->step();
        if (state == zqcameralib::ReadAhead::State::Done) {
            return {};
        }
        if (state == zqcameralib::ReadAhead::State::Failed || backend().isLost()) {
            return backend().loss();
        }
        if (backend().isTimeOver()) {
            return { zqcameralib::stillWorking,
                zqcameralib::worded(
                    "the camera is slow: %zu of %zu registers read, the rest follows",
                    m_ahead->done(), m_ahead->total()) };
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

int ZQCameraRepository::Impl::failLoad(const zqcameralib::Status& failure)
{
    clear();
    // Who shows what was known before has to show as well that nobody knows it now.
    for (const Feature& feature : m_camera.features()) {
        if (feature.type != FEATURE_CATEGORY) {
            m_states[feature.name] = FEATURE_READ_FAILED;
        }
    }
    return m_camera.note(failure);
}

int ZQCameraRepository::Impl::load()
{
    dropOtherCamera();
    const bool hasAhead = m_ahead && m_ahead->isCurrent();
    if (backend().isLost()) {
        return failLoad(backend().loss());
    }
    if (!hasAhead && m_ahead && m_ahead->isPartial()) {
        m_ahead.reset();
    }
    if (!hasAhead && backend().isLimited() && backend().prefersBatches()) {
        if (const zqcameralib::Status read = awaitReadAhead(); !read.isOk()) {
            return failLoad(read);
        }
    }
    const int status = readAll();
    m_ahead.reset();
    return status;
}

int ZQCameraRepository::Impl::readAll()
{
    RegisterPort& port = m_camera.port();
    const bool isAhead = m_ahead && m_ahead->isCurrent();
    clear();
    port.invalidate();
    const RegisterPort::Pass pass(port);
    std::optional<RegisterPort::Ahead> ahead;
    if (isAhead) {
        ahead.emplace(port, m_ahead->known());
    }
    const RegisterPort::FailureScope failures(port);
    const std::uint64_t answers = port.answers();
    RegisterPort::Recorder recorder(port);
    if (!isAhead) {
        backend().check(); // a restart leaves no other trace than lost control
        m_ahead.reset();
        prefetchLoad();
    }
    for (const Feature& feature : m_camera.features()) {
        if (feature.type == FEATURE_CATEGORY || takesOver(feature)
            || m_camera.reader().canBeImplemented(feature)) {
            addRecord(feature);
        }
    }
    if (backend().isLost()) {
        return failLoad(backend().loss());
    }
    if (failures.hasFailed()) {
        if (port.answers() == answers) {
            return failLoad(failures.status());
        }
        m_camera.note(failures.status());
    }
    if (!m_ahead || !m_ahead->isPartial()) {
        m_loadRegisters = distinct(std::move(recorder.read));
    }
    dropEmptyCategories();
    setCategoryLevels();
    m_previous.clear();
    m_previousStates.clear();
    m_changesAtLoad = port.changes();
    m_loadedAt = Clock::now();
    m_loaded = true;
    return STATUS_OK;
}

void ZQCameraRepository::Impl::prefetchLoad()
{
    RegisterPort& port = m_camera.port();
    if (!m_loadRegisters.empty()) {
        port.prefetch(m_loadRegisters);
        return;
    }
    const zqcameralib::PrefetchPlan& plan = m_camera.prefetchPlan();
    port.prefetch(plan.always);
    Registers conditional;
    for (std::size_t i = 0; i < plan.whenAvailable.size(); ++i) {
        const auto& registers = plan.whenAvailable[i];
        if (!registers.empty()
            && m_camera.reader().state(m_camera.features()[i]) != FEATURE_NOT_AVAILABLE) {
            conditional.insert(conditional.end(), registers.begin(), registers.end());
        }
    }
    port.prefetch(conditional);
}

/// Whether only others are read anew, and the feature's record is as good as it was.
bool ZQCameraRepository::Impl::takesOver(const Feature& feature) const
{
    const auto known = m_previous.find(feature.name);
    return m_ahead && m_ahead->isPartial() && known != m_previous.end()
        && !known->second.isOutstanding;
}

void ZQCameraRepository::Impl::addRecord(const Feature& feature)
{
    const auto known = m_previous.find(feature.name);
    if (takesOver(feature)) {
        Record& record = m_records.emplace(feature.name, known->second).first->second;
        record.isFresh = true;
        m_states[feature.name] = m_previousStates[feature.name];
        m_items.push_back(record.item);
        return;
    }
    Record record;
    record.item = std::make_shared<FeatureItem>(staticItem(feature));
    record.feature = &feature;
    record.isFresh = readRecord(record);
    if (!record.isFresh && known != m_previous.end()) {
        *record.item = *known->second.item; // the last known value, which the state marks
        describe(record);
    }
    m_items.push_back(record.item);
    m_records.emplace(feature.name, std::move(record));
}

void ZQCameraRepository::Impl::dropEmptyCategories()
{
    // Backwards, a category is empty when what follows it is not deeper.
    int depthBehind = -1;
    for (auto at = m_items.end(); at != m_items.begin();) {
        --at;
        const FeatureItem& item = **at;
        if (item.type == FEATURE_CATEGORY && depthBehind <= item.depth) {
            m_states.erase(item.name);
            m_records.erase(item.name);
            at = m_items.erase(at);
            continue;
        }
        depthBehind = item.depth;
    }
}

/// A category is seen as soon as anything in it is.
void ZQCameraRepository::Impl::setCategoryLevels()
{
    std::vector<FeatureItem*> around;
    for (const ItemPointer& item : m_items) {
        around.resize(std::min<std::size_t>(around.size(), item->depth));
        if (item->type == FEATURE_CATEGORY) {
            item->level = LEVEL_GURU;
            around.push_back(item.get());
        }
        for (FeatureItem* category : around) {
            category->level = item->type == FEATURE_CATEGORY
                ? category->level
                : std::min(category->level, item->level);
        }
    }
}

} // namespace featurebrowser
