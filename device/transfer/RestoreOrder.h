// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"

#include <cstdint>
#include <functional>
#include <unordered_map>
#include <vector>

namespace zqcameralib {

/// In which order features are written: what unlocks others, or moves their limits, before them;
/// what may lock others behind them, as long as they are not locked. Found from what depends on
/// what, one feature at each step.
class RestoreOrder {
public:
    using Features = std::vector<const Feature*>;

    /// Whether a feature cannot be written now, and why.
    struct Closed {
        bool isLocked = false;
        bool isUnavailable = false;
    };
    using ClosedOf = std::function<Closed(const Feature& feature)>;

    /// `written` are among `all`; both without doubles. `camera` has to outlive it.
    RestoreOrder(ZQCamera::Impl& camera, Features written, Features all);

    /// False when all is known.
    bool step();
    /// Whether writing the feature can change the other one.
    bool affects(const Feature& written, const Feature& other) const;
    /// Whether it can change what a register holds; a register of which that cannot be told counts.
    bool affects(const Feature& written, const Register& place) const;
    /// The features to be written, in their order.
    Features order(const ClosedOf& closedOf) const;

private:
    /// What writing one feature can change of another one.
    struct Effect {
        bool onLock = false;
        bool onAvailability = false;
        bool onLimits = false;
        bool onValue = false;
    };

    class Sorting;

    void findPlaces();
    /// Of a feature that is written; m_written.size() where it is not.
    std::size_t rowOf(const Feature& feature) const;
    Effect effectOn(const Feature& feature, const std::vector<bool>& affected) const;
    std::size_t columnOf(const Feature& feature) const;

    ZQCamera::Impl& m_camera;
    Features m_written;
    Features m_all; ///< sorted
    std::vector<std::vector<Effect>> m_effects; ///< by written feature, of all
    std::vector<std::vector<bool>> m_affected; ///< by written feature, of nodes
    /// The nodes whose value stands there, as far as their places are fixed.
    std::unordered_map<Register, std::vector<std::size_t>, RegisterHash> m_places;
};

} // namespace zqcameralib
