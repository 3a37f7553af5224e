// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "featurebrowser/ZQImageView.h"

#include "formats/ImageLines.h"
#include "rows/PixelFacts.h"
#include "rows/SavedImage.h"
#include "view/ImageTexts.h"

namespace featurebrowser {

QImage convertImage(const ZQImage& image)
{
    return faultOf(image) == ImageFault::None ? savedImage(ImageLines(image)) : QImage();
}

ZQImage rawMosaic(const ZQImage& image)
{
    ZQImage raw = image;
    if (const PixelFormat* format = findFormat(image.pixelFormat)) {
        raw.pixelFormat = greyOf(*format).code;
    }
    return raw;
}

QString imageProblem(const ZQImage& image)
{
    return problemText(image);
}

std::vector<ZQPixelComponent> componentsAt(const ZQImage& image, int x, int y)
{
    const bool isWithin = x >= 0 && y >= 0 && x < image.width && y < image.height;
    if (!isWithin || faultOf(image) != ImageFault::None) {
        return {};
    }
    return pixelComponents(ImageLines(image), x, y);
}

std::vector<std::uint32_t> histogramOf(const ZQImage& image)
{
    if (faultOf(image) != ImageFault::None) {
        return {};
    }
    return valueCounts(ImageLines(image));
}

} // namespace featurebrowser
