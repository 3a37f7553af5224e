// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/Description.h"
#include "features/Feature.h"
#include "registers/RegisterPort.h"

#include <vector>

namespace zqcameralib {

/// The registers that a load is bound to read, as far as the description tells their places, so
/// that they can be read together.
struct PrefetchPlan {
    PrefetchPlan() = default;
    PrefetchPlan(const Description& description, const std::vector<Feature>& features);

    /// Those of conditions, and those of features without conditions.
    Registers always;
    /// For features with conditions, each in its place: those of the feature when it is available.
    /// Empty for the others.
    std::vector<Registers> whenAvailable;
};

} // namespace zqcameralib
