// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"
#include "camera/ReadAhead.h"
#include "capture/LineTargets.h"
#include "capture/SelectorPositions.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace zqcameralib {

/// Reads settings in small steps: features at every position of their selectors, and lines each at
/// its own. All that selectors choose at one position is read while they stand there.
class SettingsReading {
public:
    /// An integer selector with more positions is not moved through, nor a feature with more.
    static constexpr std::size_t mostOfInteger = 256;
    static constexpr std::size_t mostOfFeature = 4096;

    /// `camera` and `positions` have to outlive it; the latter's owner puts them back.
    SettingsReading(ZQCamera::Impl& camera, SelectorPositions& positions,
        const std::vector<const Feature*>& features, std::vector<LineTarget> targets);
    ~SettingsReading();
    SettingsReading(const SettingsReading&) = delete;
    SettingsReading& operator=(const SettingsReading&) = delete;

    /// Reads one thing, or moves on; false when all is read.
    bool step();
    /// Whether the camera is being asked beside the caller, and nothing else can be done meanwhile.
    bool isWaiting() const { return m_isWaiting; }
    /// Values read, and to be read as far as known.
    std::size_t done() const { return m_done; }
    std::size_t total() const { return m_total; }

    /// What was read of the features, in the order of the tree; each once.
    std::vector<ZQSettingsLine> takeLines();
    /// What was read of the features, or could not be, by label.
    const std::vector<ZQSettingsLeftOut>& leftOut() const { return m_leftOut; }
    /// By index of the line: what was read for a target, or why nothing was.
    const std::map<std::size_t, Result<std::string>>& targets() const { return m_read; }

    /// Whether the feature, which was read, could not be written then at one of its positions.
    bool isLocked(const Feature& feature) const { return m_locked.count(&feature) != 0; }

private:
    struct Group;
    struct Frame;

    void beginAhead(const std::vector<const Feature*>& features);
    void stepAhead();
    void add(const Feature& feature);
    void planTargets();
    bool stepFeatures();
    bool stepTargets();
    // False where the camera did not answer: to be asked again.
    bool readFeature(const Feature& feature);
    bool open(const Feature& selector, const Group& group);
    bool isToBeAskedAgain(const Status& status);
    Result<std::string> readAt(const Feature& feature, const SelectorPath& path);
    Result<std::vector<std::string>> positionsOf(const Feature& selector);
    Result<std::vector<std::string>> integerPositions(const Feature& selector);
    Status movability(const Feature& selector, const std::string& present,
        const std::vector<std::string>& positions);
    void leaveOut(const Group& group, const std::string& reason);
    std::string labelOf(const Feature& feature, const SelectorPath& path) const;

    ZQCamera::Impl& m_camera;
    SelectorPositions& m_positions;
    RegisterPort::Pass m_pass;
    /// Of a camera that is far: what no selector chooses is read beside the caller first.
    std::unique_ptr<ReadAhead> m_ahead;
    bool m_isWaiting = false;
    std::unique_ptr<Group> m_root;
    std::vector<Frame> m_frames; ///< from the root to where it is
    SelectorPath m_path;
    std::map<std::string, std::string> m_values; ///< by label, of features
    std::vector<std::pair<const Feature*, ZQSettingsLine>> m_lines;
    std::vector<ZQSettingsLeftOut> m_leftOut;
    std::vector<LineTarget> m_targets;
    std::size_t m_nextTarget = 0;
    std::map<std::size_t, Result<std::string>> m_read;
    std::set<const Feature*> m_locked;
    std::size_t m_done = 0;
    std::size_t m_total = 0;
};

/// Reads one value; once more when an access failed.
Result<std::string> readSettingSurely(ZQCamera::Impl& camera, const Feature& feature);

} // namespace zqcameralib
