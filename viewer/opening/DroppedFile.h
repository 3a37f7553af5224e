// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QMimeData>
#include <QUrl>

namespace zqviewer {

/// The file that is dragged; empty when it is no single one.
inline QString fileOf(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

} // namespace zqviewer
