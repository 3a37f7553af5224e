#pragma once

#include "Journal.h"

#include "featurebrowser/IEventFeatureReceiver.h"

namespace doubles {

/// The application's receiver.
class ReceiverDouble : public featurebrowser::IEventFeatureReceiver {
public:
    void FeatureIntModified(std::string name, long value) override
    {
        note("receiver.FeatureIntModified", name, value);
    }
    void FeatureEnumModified(std::string name, std::string entry, int index) override
    {
        note("receiver.FeatureEnumModified", name, entry, index);
    }
    void FeatureBoolModified(std::string name, int value) override
    {
        note("receiver.FeatureBoolModified", name, value);
    }
    void FeatureStringModified(std::string name, std::string value) override
    {
        note("receiver.FeatureStringModified", name, value);
    }
    void FeatureIPModified(std::string name, const std::string& text) override
    {
        note("receiver.FeatureIPModified", name, text);
    }
    void FeatureDoubleModified(std::string name, double value) override
    {
        note("receiver.FeatureDoubleModified", name, value);
    }
    void FeatureExecCommand(std::string name) override
    {
        note("receiver.FeatureExecCommand", name);
    }
    void ItemSelectionChanged(std::string name) override
    {
        note("receiver.ItemSelectionChanged", name);
    }
    void ItemColumnResized(int column, int width) override
    {
        note("receiver.ItemColumnResized", column, width);
    }
    void FeatureCloseDialog(int width, int height, featurebrowser::TYPE_LEVEL level) override
    {
        note("receiver.FeatureCloseDialog", width, height, level);
    }
    void SendError(int code, std::string text) override { note("receiver.SendError", code, text); }
    void FeatureLevelChanged(featurebrowser::TYPE_LEVEL level) override
    {
        note("receiver.FeatureLevelChanged", level);
    }
    void AllConfigChanged() override { note("receiver.AllConfigChanged"); }
};

} // namespace doubles
