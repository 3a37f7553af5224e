// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "program/CameraChoice.h"

#include "program/Words.h"

#include <QFileInfo>

namespace zqviewer {

QString CameraChoice::origin() const
{
    if (isReal()) {
        return {};
    }
    return description.isEmpty() ? Words::tr("simulated") : QFileInfo(description).fileName();
}

} // namespace zqviewer
