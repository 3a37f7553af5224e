// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "images/ImageFile.h"

#include "program/Words.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>

namespace zqviewer {

QString saveImage(const QImage& image, const QString& name)
{
    const QByteArray suffix = QFileInfo(name).suffix().toLower().toLatin1();
    if (!QImageWriter::supportedImageFormats().contains(suffix)
        || (suffix != "png" && suffix != "tif" && suffix != "tiff")) {
        return Words::tr("Cannot write '%1': its name must end in .png, .tif or .tiff.").arg(name);
    }
    QBuffer bytes; // the writer of pictures itself does not notice a full disk
    QSaveFile file(name);
    QImageWriter writer(&bytes, suffix);
    if (!writer.write(image)) {
        return Words::tr("Cannot write '%1': %2.").arg(name, writer.errorString());
    }
    const bool isWritten = file.open(QFile::WriteOnly)
        && file.write(bytes.data()) == bytes.data().size() && file.commit();
    return isWritten ? QString()
                     : Words::tr("Cannot write '%1': %2.").arg(name, file.errorString());
}

} // namespace zqviewer
