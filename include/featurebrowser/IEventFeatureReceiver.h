// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "Export.h"
#include "FeatureTypes.h"

#include <string>

namespace featurebrowser {

/// Hears what a user does in a feature browser.
///
/// The browser itself listens to its widget through this interface and passes on to the
/// application's receiver what concerns the application. All calls come on the user-interface
/// thread, from inside the widget's event handling: do not destroy the browser in one of them
/// (destroy it later, for example from a queued call).
///
/// The order of declaration is part of the binary contract.
class ZQ_EXPORT IEventFeatureReceiver {
public:
    IEventFeatureReceiver() = default;
    IEventFeatureReceiver(const IEventFeatureReceiver&) = delete;
    IEventFeatureReceiver& operator=(const IEventFeatureReceiver&) = delete;
    virtual ~IEventFeatureReceiver() = default;

    /// The user entered `value` for the integer feature `name`; the camera took it as entered.
    virtual void FeatureIntModified(std::string name, long value) = 0;
    /// The user chose `entry`, the entry number `index` (from 0) of the feature's entry list.
    virtual void FeatureEnumModified(std::string name, std::string entry, int index) = 0;
    /// Any non-zero `value` means true.
    virtual void FeatureBoolModified(std::string name, int value) = 0;
    /// Sent for every edit of a text, also for one that the camera refused: the refusal follows as
    /// SendError.
    virtual void FeatureStringModified(std::string name, std::string value) = 0;
    /// `text` is the dotted address as the user typed it.
    virtual void FeatureIPModified(std::string name, const std::string& text) = 0;
    /// The user entered `value` for the floating-point feature `name`.
    virtual void FeatureDoubleModified(std::string name, double value) = 0;
    /// The user pressed the button of the command `name`. An application's receiver gets only
    /// "DeviceReset", "AcquisitionStart" and "AcquisitionStop", and then has to carry them out.
    virtual void FeatureExecCommand(std::string name) = 0;
    /// The user selected the feature or category `name`.
    virtual void ItemSelectionChanged(std::string name) = 0;
    /// The user resized a column: its index from 0 and its new width in device-independent pixels.
    virtual void ItemColumnResized(int column, int width) = 0;
    /// The browser's window closes: its width and height in device-independent pixels and its
    /// visibility level, for an application that wants to store them.
    virtual void FeatureCloseDialog(int width, int height, TYPE_LEVEL level) = 0;
    /// A result for the user: `code` 0 carries a success message, any other code an error text.
    virtual void SendError(int code, std::string text) = 0;
    /// The user chose another visibility level.
    virtual void FeatureLevelChanged(TYPE_LEVEL level) = 0;
    /// A command was run, with or without success, and may have changed any feature of the camera.
    virtual void AllConfigChanged() = 0;
};

} // namespace featurebrowser
