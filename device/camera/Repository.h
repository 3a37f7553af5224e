// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"
#include "camera/ReadAhead.h"
#include "features/FeatureReader.h"

#include "featurebrowser/ZQCameraRepository.h"

#include <chrono>
#include <unordered_map>

namespace featurebrowser {

/// The records of one camera over its features.
class __attribute__((visibility("hidden"))) ZQCameraRepository::Impl {
public:
    using ItemPointer = std::shared_ptr<FeatureItem>;
    using ItemList = std::list<ItemPointer>;

    /// `camera` has to outlive the repository.
    explicit Impl(zqcameralib::ZQCamera::Impl& camera);

    bool isLoaded();
    int load();
    void clear();
    int updateStates();
    ItemPointer find(const std::string& name);
    bool read(const ItemPointer& item);
    ItemList invalidatedBy(const std::string& name);
    ItemList selectedBy(const std::string& name);
    std::chrono::milliseconds pollingTime(const std::string& name);
    ItemList& items();
    std::map<std::string, FEATURE_STATE>& states() { return m_states; }
    std::string reason(const std::string& name) const;
    bool hasOutstanding() const;

    /// Begins to read beside the caller what the next load() takes: all features, or those that are
    /// outstanding. The object is replaced by the next call and gone after the load.
    void beginReadAhead(bool onlyOutstanding);
    void endReadAhead() { m_ahead.reset(); }
    /// Null when none goes on.
    zqcameralib::ReadAhead* readAhead() { return m_ahead.get(); }
    std::string errorText(int status) { return m_camera.errorText(status); }
    /// The error of a reading ahead that has failed, or cannot begin.
    std::string lossText() { return m_camera.port().backend().loss().text(); }

private:
    using Clock = std::chrono::steady_clock;
    using Registers = zqcameralib::Registers;
    struct Record {
        ItemPointer item;
        const zqcameralib::Feature* feature = nullptr;
        std::string reason; ///< why it is as its state says; empty while it is available
        bool isFresh = false; ///< just read by load(), not handed out since
        bool isUnread = false; ///< what the item holds was not confirmed by the last reading
        bool isOutstanding = false; ///< unread only because there was no time left
        Registers touched; ///< when last read, where places move
    };
    using Records = std::unordered_map<std::string, Record>;

    zqcameralib::RegisterBackend& backend() { return m_camera.port().backend(); }
    /// Records of a camera that was exchanged are void.
    void dropOtherCamera();
    /// Waits for the reading ahead as long as one operation may.
    zqcameralib::Status awaitReadAhead();
    int readAll();
    int failLoad(const zqcameralib::Status& failure);
    /// Reads together what a load is going to read: what the last one has read or, the first time,
    /// what the description tells.
    void prefetchLoad();
    bool takesOver(const zqcameralib::Feature& feature) const;
    void addRecord(const zqcameralib::Feature& feature);
    void dropEmptyCategories();
    void setCategoryLevels();
    bool readRecord(Record& record);
    bool isStillFresh(Record& record);
    bool touchesVariableAddress(const zqcameralib::Feature& feature) const;
    bool touchesWritten(const Record& record, const zqcameralib::Feature& written) const;
    /// `failure`: why nothing was read, where the state says that.
    void explain(Record& record, FEATURE_STATE state, const std::string& failure);
    /// Writes the description with the reason behind it.
    static void describe(Record& record);
    ItemList affectedBy(const zqcameralib::Feature& feature) const;

    zqcameralib::ZQCamera::Impl& m_camera;
    std::unique_ptr<zqcameralib::ReadAhead> m_ahead;
    std::uint64_t m_generation = 0;
    bool m_loaded = false;
    ItemList m_items;
    Records m_records;
    Records m_previous; ///< what was known before it was cleared
    std::map<std::string, FEATURE_STATE> m_states;
    std::map<std::string, FEATURE_STATE> m_previousStates;
    /// What was read last in whole passes, to be read together the next time.
    Registers m_loadRegisters;
    Registers m_stateRegisters;
    std::uint64_t m_changesAtLoad = 0;
    Clock::time_point m_loadedAt;
};

} // namespace featurebrowser
