// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQCameraRepository.h"

#include <array>
#include <string>
#include <type_traits>

/// What is done with an open camera's features, by their names.
class CameraUser {
public:
    static constexpr const char* failed = "(read failed)";

    virtual ~CameraUser() = default;

    /// Reads the feature from the camera; its value text, or `failed`.
    std::string read(const std::string& name)
    {
        const auto found = used().GetRepository()->GetFeature(name);
        return used().GetRepository()->ReadFeature(found) ? found->valueText : failed;
    }
    /// As its record has it.
    std::string value(const std::string& name)
    {
        return used().GetRepository()->GetFeature(name)->valueText;
    }
    featurebrowser::FEATURE_STATE state(const std::string& name)
    {
        return used().GetRepository()->GetFeatureStates()[name];
    }
    /// Asks the camera for an integer; the status.
    int get(const char* name)
    {
        long value = 0;
        return used().GetIntegerValue(name, &value);
    }
    template <class Number> int set(const char* name, Number value, int checked = 1)
    {
        if constexpr (std::is_floating_point_v<Number>) {
            return used().SetFloatValue(name, value);
        } else {
            return used().SetIntegerValue(name, value, checked);
        }
    }
    int set(const char* name, const char* text) { return used().SetStringValue(name, text); }
    std::string errorText(int code)
    {
        std::array<char, featurebrowser::errorTextSize> name {};
        std::array<char, featurebrowser::errorTextSize> text {};
        used().GetErrorText(code, name.data(), text.data());
        return text.data();
    }

private:
    virtual featurebrowser::ZQCameraDevice& used() = 0;
};
