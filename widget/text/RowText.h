// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace featurebrowser {

struct FeatureRow;

/// "Width=640"; a category gives the rows that are to be seen in it one to a line, sub-categories
/// headed "[Name]".
QString rowAsText(const FeatureRow& row);

/// The text in one line, control characters as blanks: how texts of the camera are shown.
QString oneLine(QString text);

} // namespace featurebrowser
