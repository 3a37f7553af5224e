#pragma once

#include <cstdint>
#include <string>

namespace zqcameralib {

/// Decimal text, independent of any locale.
std::string integerText(std::int64_t value);
/// The shortest decimal text that reads back to the same double; empty for NaN and the infinities,
/// which no reader of a decimal number takes.
std::string floatText(double value);
/// Limits as a slider can use them: infinities and NaN become the largest finite doubles.
double finiteMinimum(double value);
double finiteMaximum(double value);
/// Two hex digits per byte, blanks between bytes. Only the first 64 bytes of longer data, then
/// how long it is.
std::string hexText(const std::uint8_t* bytes, std::size_t size);

} // namespace zqcameralib
