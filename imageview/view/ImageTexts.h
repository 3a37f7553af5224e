// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQImage.h"

#include <QString>

#include <vector>

namespace featurebrowser {

/// Why an image cannot be shown; empty when it can.
QString problemText(const ZQImage& image);
/// Components for a user, as "R 812"; the value alone of grey.
QString componentsText(const std::vector<ZQPixelComponent>& components);

} // namespace featurebrowser
