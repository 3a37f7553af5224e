// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"
#include "features/FeatureReader.h"

#include <memory>
#include <optional>
#include <vector>

namespace zqcameralib {

/// Reads the registers that all features need beside the caller, so that the features can be read
/// afterwards without waiting for the camera.
///
/// Which registers these are only shows while features are evaluated: each round evaluates what is
/// not complete yet over what is known, and asks for the first register that each feature lacks.
/// A write meanwhile makes it read everything again.
class ReadAhead {
public:
    enum class State { Running, Done, Failed };

    /// `expected`: registers that were read for this before; may be empty. `wanted`: by feature,
    /// whether it is to be read; empty for all. `camera` has to outlive it.
    ReadAhead(ZQCamera::Impl& camera, const Registers& expected, std::vector<bool> wanted);

    /// Goes on as far as it can without waiting.
    State step();
    /// Whether what was read still holds: nothing was written since, and it was just read.
    bool isCurrent() const;
    const RegisterPort::KnownRegisters& known() const { return m_known; }
    /// Whether only some features are wanted.
    bool isPartial() const { return !m_wanted.empty(); }
    /// Registers read, and to be read as far as known.
    std::size_t done() const { return m_known.size(); }
    std::size_t total() const { return m_known.size() + m_pending; }

private:
    using Requests = RegisterBackend::Requests;

    void begin(const Registers& registers);
    void request(Requests requests);
    void collect();
    Requests missing();
    /// What features with conditions need, once it is known which of them are available.
    Requests conditional();
    Requests unknown(const Registers& registers) const;
    bool isComplete(std::size_t index, RegisterPort::Ahead& ahead);

    ZQCamera::Impl& m_camera;
    std::optional<FeatureReader> m_reader; ///< with answers of its own
    RegisterPort::KnownRegisters m_known;
    std::unique_ptr<RegisterBackend::Reading> m_reading;
    std::size_t m_pending = 0; ///< asked for and not answered
    std::vector<bool> m_wanted;
    std::vector<bool> m_isComplete; ///< by feature
    bool m_isDone = false;
    bool m_wantsConditional = false;
    std::uint64_t m_changes = 0;
    std::uint64_t m_generation = 0;
    std::chrono::steady_clock::time_point m_doneAt;
};

} // namespace zqcameralib
