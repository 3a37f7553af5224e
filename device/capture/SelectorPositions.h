// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"

#include "featurebrowser/ZQSettings.h"

#include <string>
#include <vector>

namespace zqcameralib {

/// Where a selector shall stand.
struct SelectorPosition {
    const Feature* selector = nullptr;
    std::string value;

    bool operator==(const SelectorPosition& other) const
    {
        return selector == other.selector && value == other.value;
    }
};
/// Outermost first.
using SelectorPath = std::vector<SelectorPosition>;

std::vector<ZQSelectorState> statesOf(const SelectorPath& path);

/// Moves selectors and remembers where they stood. One that is selected itself stands somewhere
/// under each position of the outer one, and is put back there before the outer one moves on.
class SelectorPositions {
public:
    /// `camera` has to outlive this.
    explicit SelectorPositions(ZQCamera::Impl& camera)
        : m_camera(camera)
    {
    }
    SelectorPositions(const SelectorPositions&) = delete;
    SelectorPositions& operator=(const SelectorPositions&) = delete;
    ~SelectorPositions() { (void)putBack(); }

    /// Moves what does not stand there yet; all others that were moved go back. After a failure
    /// some of them stand elsewhere, and the next call goes on from there. To go nowhere only fails
    /// while the camera does not answer, but may again.
    Status goTo(const SelectorPath& path);
    /// Puts all back, now or never. A failure names those that could not be put back since the last
    /// call.
    Status putBack();
    /// Somebody else may have moved selectors meanwhile.
    void doubt();
    /// Forgets what was moved, as when the camera is another one.
    void forget();

private:
    struct Moved {
        const Feature* selector;
        std::string original;
        std::string present; ///< empty when not known
    };

    Status move(Moved& moved, const std::string& value);
    /// A failure while the camera does not answer, but may again.
    Status backOne();
    Status enter(const SelectorPosition& position);

    ZQCamera::Impl& m_camera;
    std::vector<Moved> m_moved; ///< outermost first
    Status m_stuck; ///< the first that could not be put back
    bool m_isLastCall = false;
};

} // namespace zqcameralib
