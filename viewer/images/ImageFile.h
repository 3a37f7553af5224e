// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QString>

namespace zqviewer {

/// Writes the image with all its bits; the name's end says the format (.png, .tif, .tiff). Returns
/// why not, in a sentence; empty when it has. Any thread.
QString saveImage(const QImage& image, const QString& name);

} // namespace zqviewer
