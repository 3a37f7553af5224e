// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "frames/FrameSource.h"
#include "memory/SceneFeed.h"
#include "scene/Picture.h"

#include <memory>

namespace zqcameralib {

/// Images of a camera that exists in process only, as its settings are at that moment: by the
/// clock, or when triggered. Without a frame rate ten a second.
class SimulatedFrames : public FrameSource {
public:
    /// `feed` tells the settings; never null.
    SimulatedFrames(const ImageFormat& format, std::shared_ptr<SceneFeed> feed);

    Outcome next(featurebrowser::ZQFrame& frame) override;
    std::uint64_t lost() const override { return m_lost; }
    std::string whyNothing() const override;

private:
    using Clock = std::chrono::steady_clock;

    void follow(const SceneFeed::Order& order);
    void begin(Clock::time_point firstDue);
    bool hasTakenAll() const;
    bool isReady(const SceneFeed::Order& order);
    bool awaitTurn();
    void take(featurebrowser::ZQFrame& frame);

    ImageFormat m_format;
    std::shared_ptr<SceneFeed> m_feed;
    Picture m_picture;
    SceneSettings m_settings;
    std::uint64_t m_settingsNumber = 0;
    Clock::duration m_period {};
    Clock::time_point m_start; ///< a period before the first frame is due
    std::uint64_t m_turn = 0; ///< frames since m_start, with those lost
    bool m_isGoing = false;
    std::uint64_t m_ofTrigger = 0; ///< frames still to come of the last one
    std::uint64_t m_number = 0; ///< of the next frame
    std::uint64_t m_taken = 0;
    std::uint64_t m_lost = 0;
};

} // namespace zqcameralib
