// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "formats/PixelFormat.h"
#include "rows/Pixel.h"

#include <QImage>
#include <QRgb>
#include <QRgba64>

#include <cstdint>

namespace featurebrowser {

/// Where pixels go; what readers get is inlined into them, so that a pixel passes through registers
/// alone.
///
/// Colours of the screen; red for the brightest where `isMarking`.
template <bool isMarking> class ScreenSink {
public:
    explicit ScreenSink(const PixelFormat& format)
        : m_shift(format.bits - 8)
        , m_white(format.white())
    {
    }
    void setLine(QRgb* out) { m_out = out; }
    QRgb* line() const { return m_out; }
    void setLineOf(QImage& image, int y) { m_out = reinterpret_cast<QRgb*>(image.scanLine(y)); }
    void put(int i, const Pixel& pixel) const
    {
        const QRgb colour
            = 0xFF000000U | toByte(pixel.red) << 16 | toByte(pixel.green) << 8 | toByte(pixel.blue);
        m_out[i] = isMarking && pixel.level >= m_white ? mark : colour;
    }
    /// The same of a format of 8 bits.
    void putBytes(int i, const Pixel& pixel) const
    {
        const QRgb colour = 0xFF000000U | static_cast<unsigned>(pixel.red) << 16
            | static_cast<unsigned>(pixel.green) << 8 | pixel.blue;
        m_out[i] = isMarking && pixel.level >= m_white ? mark : colour;
    }

private:
    unsigned toByte(unsigned value) const { return value >> m_shift; }

    static constexpr QRgb mark = 0xFFFF0000;

    int m_shift;
    std::uint32_t m_white;
    QRgb* m_out = nullptr;
};

/// 16 bits a channel, so that black and white of the format become those of the image.
class WordSink {
public:
    explicit WordSink(const PixelFormat& format)
        : m_left(16 - format.bits)
        , m_right(2 * format.bits - 16)
    {
    }
    void setLineOf(QImage& image, int y) { m_out = reinterpret_cast<QRgba64*>(image.scanLine(y)); }
    void put(int i, const Pixel& pixel) const
    {
        m_out[i] = QRgba64::fromRgba64(
            toWord(pixel.red), toWord(pixel.green), toWord(pixel.blue), 0xFFFF);
    }
    quint16 toWord(std::uint32_t value) const
    {
        return static_cast<quint16>(value << m_left | value >> m_right);
    }

private:
    int m_left;
    int m_right;
    QRgba64* m_out = nullptr;
};

} // namespace featurebrowser
