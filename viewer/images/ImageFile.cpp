#include "images/ImageFile.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>

namespace zqviewer {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("zqviewer::ImageFile", text);
}

} // namespace

QString saveImage(const QImage& image, const QString& name)
{
    const QByteArray suffix = QFileInfo(name).suffix().toLower().toLatin1();
    if (!QImageWriter::supportedImageFormats().contains(suffix)
        || (suffix != "png" && suffix != "tif" && suffix != "tiff")) {
        return tr("Cannot write '%1': its name must end in .png, .tif or .tiff.").arg(name);
    }
    QBuffer bytes; // the writer of pictures itself does not notice a full disk
    QSaveFile file(name);
    QImageWriter writer(&bytes, suffix);
    if (!writer.write(image)) {
        return tr("Cannot write '%1': %2.").arg(name, writer.errorString());
    }
    const bool isWritten = file.open(QFile::WriteOnly)
        && file.write(bytes.data()) == bytes.data().size() && file.commit();
    return isWritten ? QString() : tr("Cannot write '%1': %2.").arg(name, file.errorString());
}

} // namespace zqviewer
