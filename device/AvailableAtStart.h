#pragma once

#include "Feature.h"
#include "RegisterMemory.h"
#include "RegisterPort.h"

#include <vector>

namespace zqcameralib {

/// Gives registers that decide whether features are implemented or available values that make them
/// so, as far as features do not contradict each other. Registers with another say stay zero.
void makeAvailable(
    const std::vector<Feature>& features, RegisterPort& port, RegisterMemory& memory);

} // namespace zqcameralib
