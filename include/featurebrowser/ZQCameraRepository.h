// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "Export.h"
#include "FeatureItem.h"
#include "FeatureTypes.h"
#include "ZQCameraTask.h"

#include <chrono>
#include <list>
#include <map>
#include <memory>
#include <string>

namespace featurebrowser {

/// The features of one camera: what exists, in which order, with which value and in which state.
///
/// Owned by the ZQCameraDevice that hands it out. Lists the features under the camera's root
/// category that the camera implements and that are not Invisible; one that is not available at
/// the moment is listed and says so in its record and state. One thread at a time; nothing throws.
class ZQ_EXPORT ZQCameraRepository {
public:
    class Impl;

    /// Made by ZQCameraDevice, which keeps `impl`'s camera alive.
    explicit ZQCameraRepository(std::unique_ptr<Impl> impl);
    ZQCameraRepository(const ZQCameraRepository&) = delete;
    ZQCameraRepository& operator=(const ZQCameraRepository&) = delete;
    virtual ~ZQCameraRepository();

    /// Whether Load has read the feature list and Clear has not emptied it since.
    bool isLoaded();

    /// Reads the feature list with all values and states from the camera, each register once:
    /// waits as many round trips as there are registers, but where operations are limited
    /// (zqcameralib::ZQCamera::limitWaiting, or as part of ZQCameraDevice::Reconnect) only as long
    /// as that, and the next call continues what went on behind.
    ///
    /// Returns 0, or a device error code when the camera cannot be read; the repository is then not
    /// loaded, and its states say FEATURE_READ_FAILED for every feature. A feature that alone
    /// cannot be read keeps the value that was known before, and its state says so too.
    virtual int Load();
    /// A sentence for a status that Load or UpdateFeatureStates has returned: what was said when it
    /// last happened, else a general one. For an application that has no ZQCameraDevice of its own.
    std::string GetErrorText(int status);
    /// Forgets all records and states. What was known is compared with, and marked where it cannot
    /// be read, at the next Load.
    virtual void Clear();
    /// Recomputes the states of all features; returns 0 or a device error code.
    virtual int UpdateFeatureStates();
    /// The record of that name, null when there is none or nothing is loaded. Constant time.
    virtual std::shared_ptr<FeatureItem> GetFeature(std::string name);
    /// Brings a record up to date from the camera: value, limits, access, entries, state. On false
    /// some access failed; the record keeps its value and its state becomes FEATURE_READ_FAILED.
    /// Waits for the camera at most 1.2 s.
    virtual bool ReadFeature(const std::shared_ptr<FeatureItem>& item);
    /// Every feature that can have changed when the named one changed or ran, directly or through
    /// others, each once, in tree order, without the named feature itself. A command that changes
    /// the whole camera lists a record named "Device", which stands for all features.
    virtual std::list<std::shared_ptr<FeatureItem>> GetInvalidatedFeatures(std::string name);
    /// Every feature that the named selector selects or that can change with it, each once, in
    /// tree order.
    virtual std::list<std::shared_ptr<FeatureItem>> GetSelectedFeatures(std::string name);
    /// All records in tree order: a category stands before its members and sub-categories; each
    /// name once. The list is valid as long as the repository; Load and Clear, and another camera
    /// after a reconnection, replace its content. Records that are kept stay valid, but are not
    /// brought up to date any more.
    virtual std::list<std::shared_ptr<FeatureItem>>& GetFeatureList();
    /// Reads beside the caller: when it is done, the next Load() takes what was read and does not
    /// wait; what was loaded stays until then. `onlyOutstanding`: reads, and has the next Load()
    /// renew, only the features for which HasOutstanding() holds. One at a time: another one, or a
    /// Load(), ends it.
    std::unique_ptr<zqcameralib::ZQCameraTask> ReadAhead(bool onlyOutstanding = false);
    /// Whether features are unread only because the time of an operation was over
    /// (FEATURE_READ_FAILED).
    bool HasOutstanding();
    /// How often the feature has to be read (ReadFeature) to follow what the camera changes by
    /// itself, in milliseconds: the shortest time that the description gives for anything the
    /// record is made of (where the value comes from, at present where an index chooses; limits,
    /// conditions, declared invalidations). 0 when it gives none, for categories and unknown names;
    /// a command's own time, which is for waiting until it is done, does not count. At most a day.
    /// Nothing has to be loaded. May read the registers that choose a value, like ReadFeature, and
    /// with its limit of time; an index that cannot be read counts for all that it can choose.
    std::chrono::milliseconds GetPollingTime(const std::string& name);
    /// State by feature name, as of the last Load, ReadFeature or UpdateFeatureStates. Valid as
    /// long as the repository.
    virtual std::map<std::string, FEATURE_STATE>& GetFeatureStates();
    /// Why the feature is as GetFeatureStates says, at that same time, in a sentence: "Cannot be
    /// changed now: locked by GainAuto." The record's description ends with it. Empty for features
    /// that are available and for unknown names. Asks the camera nothing.
    std::string GetReason(const std::string& name);

private:
    std::unique_ptr<Impl> m_impl;
};

} // namespace featurebrowser
