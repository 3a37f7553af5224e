#pragma once

#include "Description.h"
#include "Feature.h"
#include "RegisterPort.h"

#include <vector>

namespace zqcameralib {

/// The registers that a load reads whatever they hold: those of conditions, and those of features
/// without conditions, at places that the description fixes.
std::vector<RegisterPort::Register> certainReads(
    const Description& description, const std::vector<Feature>& features);

} // namespace zqcameralib
