// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"

namespace zqviewer {

/// Writes the text that a user gave for a feature: a decimal or 0x number, an entry's name, true or
/// false, an address, a text. Returns why the camera does not hold it now; empty when it does.
QString writeValue(
    OpenedCamera& camera, const featurebrowser::FeatureItem& item, const QString& text);

} // namespace zqviewer
