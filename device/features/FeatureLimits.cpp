#include "features/FeatureLimits.h"

#include "base/GlibError.h"
#include "base/NumberText.h"
#include "nodemap/FormulaGuard.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace zqcameralib {

IntegerLimits integerLimits(const Feature& feature)
{
    IntegerLimits limits;
    ArvGcInteger* integer = ARV_GC_INTEGER(feature.gc);
    GlibError error;
    limits.minimum = arv_gc_integer_get_min(integer, error.out());
    if (error) {
        limits.minimum = INT64_MIN;
    }
    limits.maximum = arv_gc_integer_get_max(integer, error.out());
    if (error) {
        limits.maximum = INT64_MAX;
    }
    limits.increment = std::max<std::int64_t>(arv_gc_integer_get_inc(integer, error.out()), 0);
    if (error) {
        limits.increment = 1;
    }
    // Where the description says nothing, the register's width does.
    if (limits.minimum == INT64_MIN) {
        limits.minimum = feature.registerMin;
    }
    if (limits.maximum == INT64_MAX || limits.maximum == undefinedInteger) {
        limits.maximum = feature.registerMax;
    }
    return limits;
}

FloatLimits floatLimits(const Feature& feature)
{
    FloatLimits limits;
    ArvGcFloat* number = ARV_GC_FLOAT(feature.gc);
    GlibError error;
    limits.minimum = finiteMinimum(arv_gc_float_get_min(number, error.out()));
    if (error) {
        limits.minimum = -DBL_MAX;
    }
    limits.maximum = finiteMaximum(arv_gc_float_get_max(number, error.out()));
    if (error) {
        limits.maximum = DBL_MAX;
    }
    if (feature.hasFloatIncrement) {
        // An increment that is not defined reads as the smallest positive double.
        const double increment = arv_gc_float_get_inc(number, error.out());
        const bool isGrid = !error && std::isfinite(increment) && increment > DBL_MIN;
        limits.increment = isGrid ? increment : 0.0;
    }
    return limits;
}

std::uint32_t maxTextLength(const Feature& feature)
{
    if (feature.textRegister == nullptr) {
        return 0;
    }
    GlibError error;
    const std::uint64_t length = arv_gc_register_get_length(feature.textRegister, error.out());
    // A negative length that a camera tells comes as one beyond all others.
    return error || length > INT64_MAX
        ? 0
        : static_cast<std::uint32_t>(std::min<std::uint64_t>(length, UINT32_MAX));
}

} // namespace zqcameralib
