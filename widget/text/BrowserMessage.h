// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace featurebrowser {

/// A message of the feature browser, which speaks English only, in the reader's language. Other
/// messages, and those that are not translated, as they are.
QString browserMessage(const QString& message);

} // namespace featurebrowser
