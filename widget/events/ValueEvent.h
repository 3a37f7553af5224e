// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "events/EventPort.h"
#include "row/EditValue.h"

namespace featurebrowser {

/// The event that tells a receiver of an entered value. `value` fits the row, whose kind decides
/// which event it is.
ReceiverEvent eventFor(const FeatureRow& row, const EditValue& value);

} // namespace featurebrowser
