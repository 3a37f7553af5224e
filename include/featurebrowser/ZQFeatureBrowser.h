// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "Export.h"
#include "FeatureTypes.h"
#include "ForwardQWidget.h"
#include "IEventFeatureReceiver.h"

#include <list>
#include <memory>
#include <string>
#include <vector>

namespace zqcameralib {
class ZQCamera;
}

namespace featurebrowser {

class ICameraDevice;
class ZQCameraRepository;
struct FeatureItem;

/// A ready-made browser for the features of one camera: a tree through which a user reads and
/// changes settings and runs commands. The only class that an application needs.
///
/// Needs a QApplication. All calls on the user-interface thread, on which the application's
/// receiver is called too. No operation throws because of a camera; a value text that is no number
/// can let std::invalid_argument or std::out_of_range through to the caller of the load, reload and
/// refresh operations, and of the receiver's events (see ZQCameraRepository: a well-behaved camera
/// side never delivers one; the widget catches what comes out of an event).
///
/// Do not destroy a browser inside a call of its receiver; destroy it later, from a queued call.
class ZQ_EXPORT ZQFeatureBrowser {
public:
    /// Builds a device of its own over `camera`, which has to outlive the browser. `receiver` may
    /// be null; it is not owned and has to outlive the browser.
    ZQFeatureBrowser(zqcameralib::ZQCamera* camera, IEventFeatureReceiver* receiver);
    /// Uses the application's device, which must be a ZQCameraDevice, is not owned, may not be null
    /// and has to outlive the browser.
    ZQFeatureBrowser(ICameraDevice* device, IEventFeatureReceiver* receiver);
    ZQFeatureBrowser(const ZQFeatureBrowser&) = delete;
    ZQFeatureBrowser& operator=(const ZQFeatureBrowser&) = delete;
    /// Closes the window without a word to the receiver, and the device where it is its own.
    ~ZQFeatureBrowser();

    /// Shows the browser as a dialog at that visibility level. `a` and `b` are the window's width
    /// and height, `columns` the widths of its columns from the left, all in device-independent
    /// pixels: 0, negative or empty leave the choice to the widget. What
    /// IEventFeatureReceiver::FeatureCloseDialog and ItemColumnResized tell fits in here. When the
    /// browser is visible already it is only brought to the front.
    void ShowDialog(int a, int b, std::vector<int> columns, TYPE_LEVEL level);
    /// As ShowDialog, as a window of its own; does nothing when the browser is visible already.
    void ShowStandalone(int a, int b, std::vector<int> columns, TYPE_LEVEL level);
    /// Shows the dialog as it was last.
    void Show();
    /// Hides the window. Nothing is forgotten, and the receiver does not hear of it.
    void Hide();
    /// Closes the window where it is visible; the receiver hears FeatureCloseDialog.
    void CloseDialog();

    /// Empties the widget and the repository. Only LoadFeatureBrowser brings the tree back.
    void ClearFeatureBrowser();
    /// Pushes the repository's feature states to the widget when that is visible.
    void RefreshStates();
    /// Reads one feature from the camera and shows it and what depends on it.
    void RefreshFeature(std::string name);
    /// Builds the tree from the repository and shows every value. Returns 0, or -1 when the
    /// repository is not loaded (ZQCameraRepository::Load).
    int LoadFeatureBrowser();
    /// Reads the repository again and shows every value, keeping the tree. Returns as
    /// LoadFeatureBrowser.
    int ReloadFeatureBrowser();

    /// The browser's window, for embedding in an application's own; owned by the browser, which
    /// takes notice when the application's window has deleted it.
    QWidget* GetWidget();
    /// The camera's features; owned by the device, and valid as long as that.
    ZQCameraRepository* GetCameraRepository();

private:
    class ZQFeatureBrowserImpl;
    std::unique_ptr<ZQFeatureBrowserImpl> impl;
};

/// What kind of value the widget edits for a record's type code; CAM_TYPE_NONE for any code outside
/// FEATURE_INTEGER..FEATURE_READ_ONLY_STRING. Any thread.
ZQ_EXPORT CAM_TYPE_VALUE getType(int type);

/// Description of a feature for a user: its text, limits, type and visibility level. `item` may not
/// be null. Lines end in CR LF. Any thread.
ZQ_EXPORT std::string getTextDescription(const std::shared_ptr<FeatureItem>& item);

/// Names of the floating-point features that get a logarithmic slider; {"ExposureTime"} when the
/// library is loaded. Change it before LoadFeatureBrowser.
ZQ_EXPORT extern std::list<std::string> listOfLogarithmicControls;

} // namespace featurebrowser

/// Reads a floating-point number as the camera side writes it, whatever the process locale: decimal
/// point '.', thousands separator ',', text after the number ignored, 0.0 when there is none, the
/// largest finite double beyond the range. Any thread.
ZQ_EXPORT double customatof(std::string text);
