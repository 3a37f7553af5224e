// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"
#include "words/Words.h"

#include <string>

namespace zqcameralib {

/// Why a feature that exists cannot be used or written now, found by walking the description from
/// its conditions to the features behind them: "locked by TLParamsLocked: stop the acquisition to
/// change it". May read registers.
Words lockReason(ZQCamera::Impl& camera, const Feature& feature);
Words unavailableReason(ZQCamera::Impl& camera, const Feature& feature);

} // namespace zqcameralib
