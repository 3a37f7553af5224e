#pragma once

#include "camera/Camera.h"

#include <string>

namespace zqcameralib {

/// A number on its way to a register: converters in between calculate in either kind.
struct Number {
    bool isFloat = false;
    std::int64_t integer = 0;
    double real = 0.0;
};

/// Why `value` would not arrive in the register behind the feature as what it is: a formula on the
/// way cannot convert it, or the result does not fit. Empty when it would, or when nothing can be
/// said. The node map writes something all the same.
std::string conversionFault(ZQCamera::Impl& camera, const Feature& feature, Number value);

} // namespace zqcameralib
