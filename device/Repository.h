#pragma once

#include "Camera.h"
#include "FeatureReader.h"

#include "featurebrowser/ZQCameraRepository.h"

#include <chrono>
#include <unordered_map>

namespace featurebrowser {

/// The records of one camera over its features.
class ZQCameraRepository::Impl {
public:
    using ItemPointer = std::shared_ptr<FeatureItem>;
    using ItemList = std::list<ItemPointer>;

    /// `camera` has to outlive the repository.
    explicit Impl(zqcameralib::ZQCamera::Impl& camera);

    bool isLoaded() const { return m_loaded; }
    int load();
    void clear();
    int updateStates();
    ItemPointer find(const std::string& name) const;
    bool read(const ItemPointer& item);
    ItemList invalidatedBy(const std::string& name) const;
    ItemList selectedBy(const std::string& name) const;
    ItemList& items() { return m_items; }
    std::map<std::string, FEATURE_STATE>& states() { return m_states; }

private:
    using Clock = std::chrono::steady_clock;
    struct Record {
        ItemPointer item;
        const zqcameralib::Feature* feature = nullptr;
        bool isFresh = false; ///< just read by load(), not handed out since
        zqcameralib::ZQCamera::Impl::Registers touched; ///< when last read, where places move
    };

    /// Reads together what a load is going to read: what the last one has read or, the first time,
    /// what the description tells.
    void prefetchLoad();
    void addRecord(const zqcameralib::Feature& feature);
    void dropEmptyCategories();
    bool readRecord(Record& record);
    bool isStillFresh(Record& record);
    bool touchesMoving(const zqcameralib::Feature& feature) const;
    bool touchesWritten(const Record& record, const zqcameralib::Feature& written) const;
    void explain(Record& record, FEATURE_STATE state);
    ItemList affectedBy(const zqcameralib::Feature& feature) const;

    zqcameralib::ZQCamera::Impl& m_camera;
    zqcameralib::FeatureReader m_reader;
    bool m_loaded = false;
    ItemList m_items;
    std::unordered_map<std::string, Record> m_records;
    std::map<std::string, FEATURE_STATE> m_states;
    /// What was read last in whole passes, to be read together the next time.
    zqcameralib::ZQCamera::Impl::Registers m_loadRegisters;
    zqcameralib::ZQCamera::Impl::Registers m_stateRegisters;
    std::uint64_t m_changesAtLoad = 0;
    Clock::time_point m_loadedAt;
};

} // namespace featurebrowser
