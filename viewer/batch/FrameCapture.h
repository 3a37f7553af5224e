// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"

namespace zqviewer {

/// Acquires `count` images and writes each with all its bits. Of several ones, "%d" in `file` is
/// the number, from 1; without it the number stands before the end of the name. Returns why not, in
/// a sentence; empty when all are written.
QString captureFrames(OpenedCamera& camera, int count, const QString& file);

} // namespace zqviewer
