#include "program/CameraChoice.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace zqviewer {

QString CameraChoice::origin() const
{
    if (isReal()) {
        return {};
    }
    return description.isEmpty()
        ? QCoreApplication::translate("zqviewer::CameraChoice", "simulated")
        : QFileInfo(description).fileName();
}

} // namespace zqviewer
