#pragma once

#include "Journal.h"

#include "featurebrowser/IEventFeatureReceiver.h"

namespace doubles {

/// The application's receiver.
class ReceiverDouble : public featurebrowser::IEventFeatureReceiver {
    using Text = std::string;
    using Level = featurebrowser::TYPE_LEVEL;

public:
    void FeatureIntModified(Text name, long value) override { hear(__func__, name, value); }
    void FeatureEnumModified(Text n, Text e, int index) override { hear(__func__, n, e, index); }
    void FeatureBoolModified(Text name, int value) override { hear(__func__, name, value); }
    void FeatureStringModified(Text name, Text value) override { hear(__func__, name, value); }
    void FeatureIPModified(Text name, const Text& text) override { hear(__func__, name, text); }
    void FeatureDoubleModified(Text name, double value) override { hear(__func__, name, value); }
    void FeatureExecCommand(Text name) override { hear(__func__, name); }
    void ItemSelectionChanged(Text name) override { hear(__func__, name); }
    void ItemColumnResized(int column, int width) override { hear(__func__, column, width); }
    void FeatureCloseDialog(int w, int h, Level level) override { hear(__func__, w, h, level); }
    void SendError(int code, Text text) override { hear(__func__, code, text); }
    void FeatureLevelChanged(Level level) override { hear(__func__, level); }
    void AllConfigChanged() override { hear(__func__); }

private:
    template <class... Arguments> void hear(const char* event, const Arguments&... arguments)
    {
        note((std::string("receiver.") + event).c_str(), arguments...);
    }
};

} // namespace doubles
