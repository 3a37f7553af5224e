// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// The image view against a plain copy of the pixels it shows and against converting whole images,
// in one run: xvfb-run -a, or QT_QPA_PLATFORM=offscreen.
#include "featurebrowser/ZQImageView.h"

#include <QApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <utility>

namespace {

using namespace featurebrowser;

constexpr QSize viewSize(900, 750);
constexpr std::pair<std::uint32_t, const char*> formats[] = {
    { 0x01080001, "Mono8" },
    { 0x01100005, "Mono12" },
    { 0x010C0047, "Mono12p" },
    { 0x010C0006, "Mono12Packed" },
    { 0x01080009, "BayerRG8" },
    { 0x01100011, "BayerRG12" },
    { 0x010A0058, "BayerRG10p" },
    { 0x010C002B, "BayerRG12Packed" },
    { 0x02180014, "RGB8" },
    { 0x02300018, "RGB10" },
    { 0x02100032, "YUV422_8" },
    { 0x020C001E, "YUV411_8_UYYVYY" },
};

double medianMs(const std::function<void()>& work)
{
    std::vector<double> times(9);
    for (double& time : times) {
        QElapsedTimer timer;
        timer.start();
        work();
        time = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    }
    std::nth_element(times.begin(), times.begin() + 4, times.end());
    return times[4];
}

ZQImage noise(std::uint32_t format, const QSize& size)
{
    const std::size_t bits = format >> 16 & 0xFF;
    const auto pixels = static_cast<std::size_t>(size.width() * size.height());
    auto bytes = std::make_shared<std::vector<std::uint8_t>>(pixels * bits / 8);
    std::uint32_t state = 1;
    for (std::uint8_t& byte : *bytes)
        byte = static_cast<std::uint8_t>((state = state * 1664525 + 1013904223) >> 24);
    ZQImage image;
    image.data = bytes->data();
    image.size = bytes->size();
    image.owner = bytes;
    image.width = size.width();
    image.height = size.height();
    image.pixelFormat = format;
    return image;
}

double paintMs(ZQImageView& view)
{
    QImage target(viewSize, QImage::Format_RGB32);
    return medianMs([&] { view.render(&target, {}, {}, QWidget::DrawWindowBackground); });
}

void measure(ZQImageView& view, const ZQImage& image, const char* name)
{
    QImage from(viewSize, QImage::Format_RGB32);
    QImage to = from.copy();
    from.fill(1);
    const double copy = medianMs([&] {
        std::memcpy(to.bits(), from.constBits(), static_cast<std::size_t>(from.sizeInBytes()));
    });
    view.setImage(image);
    view.fitToWindow();
    const double fitted = paintMs(view);
    view.setZoom(1);
    const double single = paintMs(view);
    view.setZoom(8);
    const double enlarged = paintMs(view);
    const double whole = medianMs([&] { convertImage(image); });
    std::printf("%-16s %3d MP %8.2f ms %7.1f %7.1f %7.1f %12.1f %12.1f\n", name,
        image.width * image.height / 1'000'000, fitted, fitted / copy, single / copy,
        enlarged / copy, whole / copy, whole / fitted);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    ZQImageView view;
    view.resize(viewSize);
    view.show();
    QApplication::processEvents();
    std::puts(
        "                                      times a copy of the shown pixels      times fitted");
    std::puts("                        fitted  fitted     1:1     8:1  whole image  whole image");
    for (const QSize size : { QSize(2448, 2048), QSize(5472, 3648) })
        for (const auto& [code, name] : formats)
            measure(view, noise(code, size), name);
    return 0;
}
