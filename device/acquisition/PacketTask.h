// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "acquisition/Acquisition.h"
#include "acquisition/PacketSearch.h"
#include "words/Words.h"

#include "featurebrowser/ZQCameraTask.h"

namespace zqcameralib {

/// Tries packets of several sizes and delays with images, and sets the best; see
/// ZQAcquisition::FindPacketSettings.
class PacketTask final : public ZQCameraTask {
public:
    using Acquisition = featurebrowser::ZQAcquisition::Impl;

    /// `acquisition` has to outlive it.
    PacketTask(Acquisition& acquisition, double framesPerSecond);
    ~PacketTask() override { PacketTask::cancel(); }

    State poll() override;
    Progress progress() const override;
    void cancel() override;
    std::string error() const override { return m_error; }

private:
    using Clock = std::chrono::steady_clock;
    enum class Step { Reading, Setting, Starting, Watching, Over };

    /// Why it cannot be done; empty when it can.
    Words refusal();
    State advance();
    State read();
    Status readFacts(const ImageFormat& format);
    void forbidFragments();
    void allowFragments();
    State beginTrial();
    State startTrial();
    State watchTrial();
    State endTrial(bool isGood);
    State finish();
    State fail(const std::string& reason);
    void stopImages();
    void restore();
    bool write(const char* name, std::int64_t value, std::int64_t& present);
    bool set(const PacketTrial& trial);
    std::int64_t integer(const char* name, std::int64_t otherwise);

    Acquisition& m_acquisition;
    double m_framesPerSecond;
    std::unique_ptr<FormatReading> m_reading;
    PacketFacts m_facts;
    std::optional<PacketSearch> m_search;
    PacketTrial m_present; ///< as the camera is set
    PacketTrial m_trial;
    Clock::time_point m_begun; ///< the trial's images
    Step m_step = Step::Reading;
    bool m_isSlow = false; ///< an answer did not come in time
    bool m_mayFragment = false; ///< the camera let large packets be cut before
    bool m_isMeasuring = false; ///< the acquisition is kept for this
    State m_outcome = State::Running;
    std::string m_words; ///< what was found
    std::string m_error;
};

} // namespace zqcameralib
