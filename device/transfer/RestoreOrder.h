#pragma once

#include "camera/Camera.h"

#include <cstdint>
#include <functional>
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

    Effect effectOn(const Feature& feature, const std::vector<bool>& affected) const;
    std::size_t columnOf(const Feature& feature) const;

    ZQCamera::Impl& m_camera;
    Features m_written;
    Features m_all; ///< sorted
    std::vector<std::vector<Effect>> m_effects; ///< by written feature, of all
};

} // namespace zqcameralib
