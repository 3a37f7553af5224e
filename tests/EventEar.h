// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/IEventFeatureReceiver.h"

#include <string>

/// A receiver that tells `Ear::hear` every event: its name in the interface and its arguments.
template <class Ear> class EventEar : public featurebrowser::IEventFeatureReceiver {
    using Text = std::string;
    using Level = featurebrowser::TYPE_LEVEL;

public:
    void FeatureIntModified(Text name, long value) override { tell(__func__, name, value); }
    void FeatureEnumModified(Text n, Text e, int index) override { tell(__func__, n, e, index); }
    void FeatureBoolModified(Text name, int value) override { tell(__func__, name, value); }
    void FeatureStringModified(Text name, Text value) override { tell(__func__, name, value); }
    void FeatureIPModified(Text name, const Text& text) override { tell(__func__, name, text); }
    void FeatureDoubleModified(Text name, double value) override { tell(__func__, name, value); }
    void FeatureExecCommand(Text name) override { tell(__func__, name); }
    void ItemSelectionChanged(Text name) override { tell(__func__, name); }
    void ItemColumnResized(int column, int width) override { tell(__func__, column, width); }
    void FeatureCloseDialog(int w, int h, Level level) override { tell(__func__, w, h, level); }
    void SendError(int code, Text text) override { tell(__func__, code, text); }
    void FeatureLevelChanged(Level level) override { tell(__func__, level); }
    void AllConfigChanged() override { tell(__func__); }

private:
    template <class... T> void tell(const char* event, const T&... arguments)
    {
        static_cast<Ear*>(this)->hear(event, arguments...);
    }
};
