// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "simulation/SimulatedCameraRegisters.h"

#include "memory/RegisterValues.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace zqcameralib {

namespace {

using namespace simulated;

constexpr std::uint32_t automaticOnce = 1;
constexpr std::uint32_t gainAutoOff = 1; // the fake camera counts its gain modes otherwise
constexpr std::uint32_t gainAutoOnce = 3;
constexpr std::uint32_t exposureMin = 10;
constexpr std::uint32_t exposureMax = 10000000;

// Moves a value into [min, max] and down onto the grid that begins at `min`.
void fit(RegisterMemory& memory, std::uint64_t address, std::uint32_t min, std::uint32_t max,
    std::uint32_t inc)
{
    const std::uint32_t value = readWord(memory, address);
    const std::uint32_t inside = std::clamp(value, min, std::max(min, max));
    const std::uint32_t fitting = inside - (inside - min) % inc;
    if (fitting != value) {
        writeWord(memory, address, fitting);
    }
}

std::uint32_t widthMax(const RegisterMemory& memory)
{
    const std::uint32_t divisor = readWord(memory, binningHorizontal)
        * readWord(memory, decimationHorizontal) * (1 + readWord(memory, doubleRateEnable));
    return readWord(memory, sensorWidth) / divisor / 8 * 8;
}

std::uint32_t heightMax(const RegisterMemory& memory)
{
    const std::uint32_t divisor
        = readWord(memory, binningVertical) * readWord(memory, decimationVertical);
    return readWord(memory, sensorHeight) / divisor / 2 * 2;
}

void settleModes(RegisterMemory& memory)
{
    fit(memory, binningHorizontal, 1, 4, 1);
    fit(memory, binningVertical, 1, 4, 1);
    fit(memory, decimationHorizontal, 1, 4, 1);
    fit(memory, decimationVertical, 1, 4, 1);
    fit(memory, doubleRateEnable, 0, 1, 1);
}

// Bayer formats need a mosaic that binning has not mixed, the widest formats the single rate.
void settlePixelFormat(RegisterMemory& memory)
{
    constexpr std::uint32_t mono8 = 0x01080001;
    static constexpr std::initializer_list<std::uint32_t> bayer
        = { 0x01080009, 0x0110000d, 0x01100011, 0x0110002f };
    static constexpr std::initializer_list<std::uint32_t> wide
        = { 0x01100007, 0x0110002f, 0x02180014, 0x02180015 };
    const auto isOneOf
        = [format = readWord(memory, pixelFormat)](std::initializer_list<std::uint32_t> formats) {
              return std::find(std::begin(formats), std::end(formats), format) != std::end(formats);
          };
    const bool binned
        = readWord(memory, binningHorizontal) > 1 || readWord(memory, binningVertical) > 1;
    const bool doubleRate = readWord(memory, doubleRateEnable) != 0;
    if ((binned && isOneOf(bayer)) || (doubleRate && isOneOf(wide))) {
        writeWord(memory, pixelFormat, mono8);
    }
}

// Returns the rows of all bands.
std::uint32_t settleRegions(RegisterMemory& memory, std::uint32_t rows)
{
    std::uint32_t total = 0;
    for (std::uint64_t band = 0; band < 4; ++band) {
        fit(memory, mroiH + 4 * band, 2, rows / 8 * 2, 2);
        const std::uint32_t bandRows = readWord(memory, mroiH + 4 * band);
        fit(memory, mroiY + 4 * band, 0, rows - bandRows, 2);
        total += bandRows;
    }
    return total;
}

void settleImage(RegisterMemory& memory)
{
    const std::uint32_t columns = widthMax(memory);
    fit(memory, width, 8, columns, 8);
    fit(memory, offsetX, 0, columns - readWord(memory, width), 4);

    const std::uint32_t rows = heightMax(memory);
    const std::uint32_t regionRows = settleRegions(memory, rows);
    if (readWord(memory, mroiEnable) != 0) {
        writeWord(memory, height, regionRows);
        writeWord(memory, offsetY, 0);
    }
    fit(memory, height, 2, rows, 2);
    fit(memory, offsetY, 0, rows - readWord(memory, height), 2);
}

double readoutTime(const RegisterMemory& memory)
{
    return 10.0 * readWord(memory, height) / (1 + readWord(memory, doubleRateEnable)) + 100.0;
}

void settleAutomaticExposure(RegisterMemory& memory)
{
    const std::uint32_t mode = readWord(memory, exposureAuto);
    if (mode == 0) {
        return;
    }
    const double lower = readDouble(memory, exposureAutoLower);
    const double upper = std::max(lower, readDouble(memory, exposureAutoUpper));
    const double wanted = 400.0 * static_cast<double>(readFloat(memory, exposureAutoTarget));
    const double longest = readWord(memory, frameRateEnable) != 0
        ? readWord(memory, framePeriod)
        : static_cast<double>(exposureMax);
    writeWord(memory, exposureTime,
        static_cast<std::uint32_t>(std::min(std::clamp(wanted, lower, upper), longest)));
    if (mode == automaticOnce) {
        writeWord(memory, exposureAuto, 0);
    }
}

// The exposure has the right of way: the frame period makes room for it.
void settleTiming(RegisterMemory& memory)
{
    settleAutomaticExposure(memory);
    fit(memory, exposureTime, exposureMin, exposureMax, 1);
    const auto readout = static_cast<std::uint32_t>(std::ceil(readoutTime(memory)));
    fit(memory, framePeriod, std::max(readout, readWord(memory, exposureTime)), exposureMax, 1);
}

void settleAutomaticGain(RegisterMemory& memory)
{
    constexpr std::uint32_t sixDecibels = 60;
    const std::uint32_t mode = readWord(memory, gainAuto);
    if (mode == gainAutoOff) {
        return;
    }
    writeWord(memory, gainAll, sixDecibels);
    if (mode == gainAutoOnce) {
        writeWord(memory, gainAuto, gainAutoOff);
    }
}

void settleWhiteBalance(RegisterMemory& memory)
{
    const std::uint32_t mode = readWord(memory, balanceWhiteAuto);
    if (mode == 0) {
        return;
    }
    writeFloat(memory, balanceRatio, 1.75F);
    writeFloat(memory, balanceRatio + 4, 1.0F);
    writeFloat(memory, balanceRatio + 8, 2.0F);
    if (mode == automaticOnce) {
        writeWord(memory, balanceWhiteAuto, 0);
    }
}

bool lineLevel(const RegisterMemory& memory, std::uint64_t line)
{
    const std::uint32_t source = readWord(memory, lineSource + 4 * line);
    const bool fromUserOutput = source == 1 || source == 2;
    const bool driven = readWord(memory, lineMode + 4 * line) != 0 && fromUserOutput
        && readWord(memory, userOutput + std::uint64_t { 4 } * (source - 1)) != 0;
    return driven != (readWord(memory, lineInverter + 4 * line) != 0);
}

void settleLines(RegisterMemory& memory)
{
    std::uint32_t levels = 0;
    for (std::uint64_t line = 0; line < 4; ++line) {
        levels |= lineLevel(memory, line) ? 1U << line : 0U;
    }
    writeWord(memory, lineStatusAll, levels);
}

} // namespace

void settleValues(RegisterMemory& memory)
{
    settleModes(memory);
    settlePixelFormat(memory);
    settleImage(memory);
    settleTiming(memory);
    settleAutomaticGain(memory);
    settleWhiteBalance(memory);
    settleLines(memory);
}

} // namespace zqcameralib
