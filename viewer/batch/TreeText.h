// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
QT_END_NAMESPACE

namespace zqviewer {

/// The feature tree as its widget holds it, read through the names of the model's roles (see
/// CameraFeatureBrowser).
///
/// JSON: one array of rows in tree order, each with "name", "category" (names of its categories
/// from the root), "kind", "value" (the shown text), "minimum", "maximum", "increment", "entries",
/// "readOnly" and "level", as far as the row has them. UTF-8; bytes of a name that are not UTF-8
/// become U+FFFD.
QByteArray treeAsJson(const QAbstractItemModel& model);

/// Readable text: one line for a row, indented by its depth, UTF-8.
QByteArray treeAsText(const QAbstractItemModel& model);

} // namespace zqviewer
