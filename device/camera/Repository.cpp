#include "camera/Repository.h"

#include "base/StatusCodes.h"
#include "camera/StateReasons.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <thread>

namespace featurebrowser {

using zqcameralib::Feature;
using zqcameralib::RegisterPort;

namespace {
/// How long what a load has read may be handed out without reading it once more.
constexpr std::chrono::seconds freshAfterLoad(3);

/// Commands after which nothing read before can be trusted.
bool changesWholeCamera(const Feature& feature)
{
    constexpr std::array<std::string_view, 8> marks { "UserSetLoad", "DeviceReset", "FactoryReset",
        "FactoryDefault", "FactorySettings", "RestoreDefault", "LoadDefault", "ConfigurationLoad" };
    return feature.type == FEATURE_COMMAND
        && std::any_of(marks.begin(), marks.end(), [&feature](std::string_view mark) {
               return feature.name.find(mark) != std::string::npos;
           });
}

/// Acquisition locks features through a node that the description does not tie to the commands.
bool switchesAcquisition(const std::string& name)
{
    return name == "AcquisitionStart" || name == "AcquisitionStop" || name == "AcquisitionAbort";
}

zqcameralib::Registers distinct(zqcameralib::Registers registers)
{
    std::sort(registers.begin(), registers.end());
    registers.erase(std::unique(registers.begin(), registers.end()), registers.end());
    return registers;
}

/// Stands for the whole camera; not part of the tree.
std::shared_ptr<FeatureItem> wholeDevice()
{
    auto item = std::make_shared<FeatureItem>();
    item->name = "Device";
    return item;
}
} // namespace

ZQCameraRepository::Impl::Impl(zqcameralib::ZQCamera::Impl& camera)
    : m_camera(camera)
    , m_reader(camera.port())
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
                "the camera is slow: " + std::to_string(m_ahead->done()) + " of "
                    + std::to_string(m_ahead->total()) + " registers read, the rest follows" };
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
            || m_reader.isImplemented(feature)) {
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
        if (!registers.empty() && m_reader.state(m_camera.features()[i]) != FEATURE_NOT_AVAILABLE) {
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
    if (m_camera.port().backend().prefersBatches() && !touchesMoving(*record.feature)) {
        m_camera.port().prefetch(record.touched);
    }
    const RegisterPort::FailureScope failures(m_camera.port());
    RegisterPort::Recorder recorder(m_camera.port());
    const bool done = m_reader.read(*record.feature, *record.item, state);
    record.touched = std::move(recorder.read);
    m_states[record.feature->name] = state;
    record.isUnread = state == FEATURE_READ_FAILED;
    record.isOutstanding = !done && failures.status().code() == zqcameralib::cameraSlow;
    if (done) {
        explain(record, state);
    }
    return done;
}

void ZQCameraRepository::Impl::explain(Record& record, FEATURE_STATE state)
{
    std::string reason;
    if (record.feature->node->isBroken()) {
        reason = "Cannot be read: " + record.feature->node->broken;
    } else if (state == FEATURE_LOCKED) {
        reason = "Cannot be changed now: " + lockReason(m_camera, *record.feature);
    } else if (state == FEATURE_NOT_AVAILABLE) {
        reason = "Cannot be used: " + unavailableReason(m_camera, *record.feature);
    }
    if (!reason.empty()) {
        std::string& text = record.item->description;
        text += (text.empty() ? "" : "\n") + reason + ".";
    }
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

ZQCameraRepository::Impl::ItemList ZQCameraRepository::Impl::affectedBy(
    const Feature& feature) const
{
    const zqcameralib::Description& description = m_camera.description();
    std::vector<std::size_t> changed { description.find(feature.name) };
    if (switchesAcquisition(feature.name)
        && description.find("TLParamsLocked") != zqcameralib::Description::absent) {
        changed.push_back(description.find("TLParamsLocked"));
    }
    const std::vector<bool> affected = m_camera.dependencies().affectedBy(changed);
    ItemList list;
    for (const ItemPointer& item : m_items) {
        if (item->type == FEATURE_CATEGORY || item->name == feature.name) {
            continue;
        }
        const Record& record = m_records.at(item->name);
        if (affected[description.find(item->name)] || touchesWritten(record, feature)) {
            list.push_back(item);
        }
    }
    return list;
}

bool ZQCameraRepository::Impl::touchesMoving(const Feature& feature) const
{
    const auto node
        = static_cast<std::size_t>(feature.node - m_camera.description().nodes().data());
    return m_camera.dependencies().readsVariableAddress(node);
}

/// Registers at fixed places are compared, bit by bit, in the description already.
bool ZQCameraRepository::Impl::touchesWritten(const Record& record, const Feature& written) const
{
    const auto& registers = m_camera.written(written);
    if (registers.empty() || (!touchesMoving(*record.feature) && !touchesMoving(written))) {
        return false;
    }
    return std::any_of(record.touched.begin(), record.touched.end(), [&](const auto& touched) {
        return std::any_of(registers.begin(), registers.end(),
            [&](const auto& place) { return place.overlaps(touched); });
    });
}

ZQCameraRepository::Impl::ItemList ZQCameraRepository::Impl::invalidatedBy(const std::string& name)
{
    dropOtherCamera();
    const Feature* feature = m_camera.feature(name);
    if (feature == nullptr) {
        return {};
    }
    return changesWholeCamera(*feature) ? ItemList { wholeDevice() } : affectedBy(*feature);
}

ZQCameraRepository::Impl::ItemList ZQCameraRepository::Impl::selectedBy(const std::string& name)
{
    dropOtherCamera();
    const Feature* feature = m_camera.feature(name);
    return feature != nullptr && feature->isSelector ? affectedBy(*feature) : ItemList {};
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
        const FEATURE_STATE state = m_reader.state(*record.feature);
        // Once a feature could not be asked, only a fresh value takes the mark away.
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
