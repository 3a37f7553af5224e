#include "Repository.h"

#include "StatusCodes.h"

namespace featurebrowser {

using zqcameralib::Feature;
using zqcameralib::RegisterPort;

namespace {
/// How long what a load has read may be handed out without reading it once more.
constexpr std::chrono::seconds freshAfterLoad(3);
} // namespace

ZQCameraRepository::Impl::Impl(zqcameralib::ZQCamera::Impl& camera)
    : m_camera(camera)
    , m_reader(camera.port())
{
}

int ZQCameraRepository::Impl::load()
{
    clear();
    const RegisterPort::Pass pass(m_camera.port());
    for (const Feature& feature : m_camera.features()) {
        if (feature.type == FEATURE_CATEGORY || m_reader.isImplemented(feature)) {
            addRecord(feature);
        }
    }
    dropEmptyCategories();
    m_changesAtLoad = m_camera.port().changes();
    m_loadedAt = Clock::now();
    m_loaded = true;
    return STATUS_OK;
}

void ZQCameraRepository::Impl::addRecord(const Feature& feature)
{
    Record record { std::make_shared<FeatureItem>(staticItem(feature)), &feature, false };
    record.isFresh = readRecord(record);
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
    m_loaded = false;
    m_items.clear();
    m_records.clear();
    m_states.clear();
}

ZQCameraRepository::Impl::ItemPointer ZQCameraRepository::Impl::find(const std::string& name) const
{
    const auto found = m_records.find(name);
    return found == m_records.end() ? nullptr : found->second.item;
}

bool ZQCameraRepository::Impl::readRecord(Record& record)
{
    FEATURE_STATE state = FEATURE_AVAILABLE;
    const bool done = m_reader.read(*record.feature, *record.item, state);
    m_states[record.feature->name] = state;
    return done;
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
    if (!item) {
        return false;
    }
    const auto found = m_records.find(item->name);
    if (found == m_records.end() || found->second.item != item) {
        return false;
    }
    return isStillFresh(found->second) || readRecord(found->second);
}

int ZQCameraRepository::Impl::updateStates()
{
    if (!m_loaded) {
        return zqcameralib::notLoaded;
    }
    const RegisterPort::Pass pass(m_camera.port());
    const std::uint64_t failures = m_camera.port().failures();
    for (auto& [name, record] : m_records) {
        m_states[name] = m_reader.state(*record.feature);
    }
    return m_camera.port().failures() == failures ? STATUS_OK : m_camera.port().lastFailure().code;
}

} // namespace featurebrowser
