// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/CameraFeatureBrowser.h"
#include "featurebrowser/FeatureItem.h"

#include <deque>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace featurebrowser {
class ZQCameraRepository;
}

namespace doubles {

using Items = std::list<std::shared_ptr<featurebrowser::FeatureItem>>;

/// What the doubles answer. Everything not scripted succeeds.
struct Script {
    // Device
    std::map<std::string, std::deque<int>> statuses; ///< by operation, one per call, then 0
    std::optional<long> integerValue; ///< none: the read fails and leaves the result untouched
    std::optional<double> floatValue;
    bool booleanValue = false;
    int lastError = 0;
    std::string errorText = "refused"; ///< written without a terminator when it fills the buffer
    int grabbing = 0;

    // Repository
    bool loaded = true;
    Items features;
    std::map<std::string, Items> invalidated;
    std::map<std::string, Items> selected;
    std::map<std::string, featurebrowser::FEATURE_STATE> states;
    std::function<bool(featurebrowser::FeatureItem&)> onRead = [](auto&) { return true; };

    // Widget
    bool visible = false;
    featurebrowser::IEventFeatureReceiver* shownTo = nullptr; ///< set by the show operations
    featurebrowser::TYPE_SELECTOR selectorState = featurebrowser::SELECTOR_NONE;
    std::map<double, int> decimals; ///< answers of getNumberOfDecimals, 0 for others

    // Pause
    std::deque<int> pauseErrors; ///< errno of each nanosleep that fails, then success
};

/// The script of the running test.
Script& script();

/// Empties script and journal.
void reset();

/// The repository of one device double.
std::unique_ptr<featurebrowser::ZQCameraRepository> makeRepository();

} // namespace doubles
