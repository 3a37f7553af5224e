// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include <featurebrowser/ZQImageView.h>

#include <QApplication>

#include <cstdint>

// What a first user writes: two grey pixels in a window. Succeeds when they are shown.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const std::uint8_t pixels[] = { 0, 255 };
    featurebrowser::ZQImage image;
    image.data = pixels;
    image.size = sizeof pixels;
    image.width = 2;
    image.height = 1;
    image.pixelFormat = 0x01080001; // Mono8
    featurebrowser::ZQImageView view;
    view.setImage(image);
    view.show();
    QApplication::processEvents();
    const QImage shown = view.grab().toImage();
    return shown.pixelColor(shown.width() - 1, shown.height() / 2) == Qt::white ? 0 : 1;
}
