// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "IEventFeatureReceiver.h"

namespace featurebrowser {

/// A receiver that does nothing: derive from it and override what concerns the application.
///
/// Calls, thread and what may be done inside of them are those of IEventFeatureReceiver.
/// An application that runs acquisitions overrides FeatureExecCommand(), since the browser leaves
/// "AcquisitionStart", "AcquisitionStop" and "DeviceReset" to it.
class ZQ_EXPORT FeatureReceiverAdapter : public IEventFeatureReceiver {
public:
    void FeatureIntModified(std::string, long) override { }
    void FeatureEnumModified(std::string, std::string, int) override { }
    void FeatureBoolModified(std::string, int) override { }
    void FeatureStringModified(std::string, std::string) override { }
    void FeatureIPModified(std::string, const std::string&) override { }
    void FeatureDoubleModified(std::string, double) override { }
    void FeatureExecCommand(std::string) override { }
    void ItemSelectionChanged(std::string) override { }
    void ItemColumnResized(int, int) override { }
    void FeatureCloseDialog(int, int, TYPE_LEVEL) override { }
    void SendError(int, std::string) override { }
    void FeatureLevelChanged(TYPE_LEVEL) override { }
    void AllConfigChanged() override { }
};

} // namespace featurebrowser
