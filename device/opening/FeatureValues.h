// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"

#include <initializer_list>
#include <optional>
#include <string>

namespace zqcameralib {

/// Present values of a camera's features by their names; of several names the first one counts that
/// can be read.
class FeatureValues {
public:
    using Names = std::initializer_list<const char*>;

    /// A feature, with its value as a number.
    struct Value {
        const Feature* feature = nullptr;
        double number = 0.0;
    };

    explicit FeatureValues(ZQCamera::Impl& camera)
        : m_camera(camera)
    {
    }

    std::optional<Value> find(Names names);
    double number(Names names, double otherwise);
    std::int64_t integer(Names names, std::int64_t otherwise);
    bool isOn(Names names);
    /// Name of the present entry; empty when there is none.
    std::string entry(Names names);
    Limits limits(const Feature& feature);
    ZQCamera::Impl& camera() { return m_camera; }

private:
    ZQCamera::Impl& m_camera;
};

/// While one lives, features read as if a selector stood at one of its entries.
class AsIfSelected {
public:
    /// Without a selector of that name, nothing changes. `entry` is one of those of the selector.
    AsIfSelected(ZQCamera::Impl& camera, const char* selector, const std::string& entry);
    /// The same of a selector that is a number.
    AsIfSelected(ZQCamera::Impl& camera, const Feature& selector, std::int64_t value);

    /// Whether it does: not where the camera has the selector, but no such entry, or where more
    /// than a register stands behind it and it is not there at present.
    bool isPossible() const { return m_isPossible; }
    /// Whether the selector stands there indeed.
    bool isPresent() const { return m_isPresent; }

private:
    bool choose(ZQCamera::Impl& camera, const Feature& selector, std::int64_t value);

    bool m_isPossible = true;
    bool m_isPresent = true;
    RegisterPort::KnownRegisters m_known;
    std::optional<RegisterPort::Ahead> m_ahead;
};

} // namespace zqcameralib
