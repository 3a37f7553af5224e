// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "Export.h"
#include "FeatureItem.h"
#include "FeatureTypes.h"
#include "ForwardQWidget.h"
#include "IEventFeatureReceiver.h"

#include <functional>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace featurebrowser {

/// The tree of features with its editors and description pane. It knows nothing of cameras: it
/// shows what it is told and reports every user action to the receiver given when it was shown.
///
/// Needs a QApplication; all calls on the user-interface thread. Names are byte-exact keys; texts
/// are UTF-8 and shown as plain text. Unknown categories and names are tolerated: a feature of an
/// unknown category stands at the top level, changes of unknown features do nothing.
///
/// A change made through these operations never comes back as an event.
///
/// For automation, GetWidget() contains a QTreeView with the object name "featureTree". Its model
/// names its roles (QAbstractItemModel::roleNames): "name" (QByteArray), "kind" (category, integer,
/// float, string, enumeration, command, boolean, ipv4, mac, readonly-string), "value" (the shown
/// text), "minimum", "maximum" (qlonglong or double, invalid for other kinds), "increment" (uint or
/// double, likewise), "entries" (QStringList), "readOnly" (bool), "level" (int), "state" (int,
/// FEATURE_STATE), "description" (last text of setItemDescription), "selectors" (names of the
/// features that select this one, comma separated).
///
/// The features that the user has pinned are the property "pinnedFeatures" of GetWidget()
/// (QByteArrayList of names, in order, notified by pinnedFeaturesChanged): an application may store
/// it and set it again after loading.
///
/// Commands that throw settings away (DeviceReset, UserSetLoad and their like) ask at their row
/// before they are run. Their names are the property "confirmedCommands" of GetWidget()
/// (QStringList of wildcard patterns, case-insensitive), which an application may extend; with an
/// empty list nothing asks.
///
/// The line below the tree that tells what the last write has done is the property "statusLine" of
/// GetWidget() (QWidget*): an application may move it into its own status bar, which then owns it.
///
/// An application that has lost the camera sets the property "cameraLost" of GetWidget() (bool):
/// the rows go on showing what the camera held last, and nothing can be edited until it is false
/// again.
///
/// Everything that the user has written and run is the property "changeLog" of GetWidget()
/// (QAbstractItemModel*, owned by it), the newest last. Its roles (roleNames): "time" (QDateTime),
/// "feature", "from", "to" (as entered), "held" (as read back, empty where no answer has come),
/// "result" (QString each, in the user's language) and "isGood" (bool: taken, be it adjusted). The
/// last line of a feature may change as long as its slider moves.
class ZQ_EXPORT CameraFeatureBrowser {
public:
    /// `parent` may be null. The widget is not shown yet.
    explicit CameraFeatureBrowser(QWidget* parent);
    CameraFeatureBrowser(const CameraFeatureBrowser&) = delete;
    CameraFeatureBrowser& operator=(const CameraFeatureBrowser&) = delete;
    /// Deletes the window, also when an application has embedded it.
    ~CameraFeatureBrowser();

    /// Adds a category at the top level. One of that name is left as it is.
    void addCategory(std::string name, TYPE_LEVEL level);
    /// Adds a category within `parent`, or at the top level where that is not known.
    void addSubCategory(std::string parent, std::string name, TYPE_LEVEL level);
    /// Adds an integer. In all add operations: the feature is shown from `level` on; `readOnly`
    /// blocks editing; `flag` is true when there is a value to show, otherwise the row shows an em
    /// dash; `selector` is its role among selectors, and `selectorText` names the features that
    /// select it, comma separated. The values that can be entered are `min` + k * `inc` up to
    /// `max`; `inc` 0: all of them.
    void addIntFeature(std::string category, std::string name, long value, long min, long max,
        unsigned int inc, TYPE_LEVEL level, bool readOnly, bool flag, TYPE_SELECTOR selector,
        std::string selectorText);
    /// Adds a floating-point number; `inc` 0: no grid. `slider` is the scale of its slider, which
    /// both limits have to be finite for.
    void addDoubleFeature(std::string category, std::string name, double value, double min,
        double max, double inc, TYPE_LEVEL level, TYPE_SLIDER slider, bool readOnly, bool flag,
        TYPE_SELECTOR selector, std::string selectorText);
    /// Adds a text. `maxLength` in bytes of UTF-8, 0 = no limit known; `address` says what the text
    /// stands for, and so how it is edited.
    void addStringFeature(std::string category, std::string name, std::string value,
        TYPE_LEVEL level, unsigned int maxLength, bool readOnly, bool flag, TYPE_ADDRESS address,
        TYPE_SELECTOR selector, std::string selectorText);
    /// Adds an enumeration, or with `isBoolean` a check box, whose `entries` are then the words for
    /// false and true. `index` counts from 0 in `entries`; one outside of it shows no entry.
    void addEnumFeature(std::string category, std::string name, int index,
        std::list<std::string> entries, TYPE_LEVEL level, bool readOnly, bool isBoolean, bool flag,
        TYPE_SELECTOR selector, std::string selectorText);
    /// Adds a command; `text` is the caption of its button.
    void addCommandFeature(std::string category, std::string name, std::string text,
        TYPE_LEVEL level, bool readOnly, bool flag, TYPE_SELECTOR selector,
        std::string selectorText);

    /// Shows another value, limits and access of an integer; `flag` as in the add operations.
    void modifyFeature(std::string name, long value, long min, long max, unsigned int inc,
        bool readOnly, bool flag);
    /// The same for a floating-point number.
    void modifyFeature(std::string name, double value, double min, double max, double inc,
        bool readOnly, bool flag);
    /// The same for all other kinds; `kind` says what `value` is. Enumerations and booleans: the
    /// decimal index of the entry in `entries`, which replace those shown. Texts and addresses: the
    /// text. Commands: the caption. `entries` is empty for these.
    void modifyFeature(std::string name, std::string value, CAM_TYPE_VALUE kind,
        std::list<std::string> entries, bool readOnly, bool flag);

    /// Sets the shown integer back after the camera refused or moved an edit and shows `message` at
    /// the row, without blocking.
    void setDefaultValue(std::string name, long value, std::string message);
    /// The same for a floating-point number.
    void setDefaultValue(std::string name, double value, std::string message);

    /// Shows `text` in the description pane.
    void setItemDescription(std::string name, std::string text);
    /// Shows which features are locked, not available or unread; names not in the map are
    /// available.
    void modifyFeatureStates(std::map<std::string, FEATURE_STATE>& states);

    /// Number of steps of the sliders over their whole range.
    void setNumberOfSteps(int steps);
    /// Shows features of this level and below. The receiver does not hear of it.
    void setVisibility(TYPE_LEVEL level);

    /// Shows the browser as a non-modal dialog. `receiver` hears all user actions until another one
    /// is given; it is not owned and may be null. `width` and `height` in device-independent
    /// pixels and `columns` (column widths); 0, negative or empty leave the widget's own choice.
    void showDialog(IEventFeatureReceiver* receiver, int width, int height,
        std::vector<int> columns, std::map<std::string, FEATURE_STATE> states);
    /// As showDialog, as a window of its own with an entry in the task bar.
    void showStandalone(IEventFeatureReceiver* receiver, int width, int height,
        std::vector<int> columns, std::map<std::string, FEATURE_STATE> states);
    /// Shows the browser again and brings it to the front.
    void showDialog();
    /// Hides the window; the receiver does not hear of it.
    void hideDialog();
    /// Closes the window; the receiver hears FeatureCloseDialog.
    void closeDialog();
    /// Whether the window is shown, be it behind others.
    bool isVisible();
    /// The browser's window, for embedding; owned by this object. Embed it first and call
    /// showStandalone or showDialog then: they show it where it is and set the receiver. When the
    /// application's window deletes it, all operations do nothing from then on.
    QWidget* GetWidget();
    /// Removes all categories and features.
    void clearFeatureItems();

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

/// Tells the browser in `window` (CameraFeatureBrowser::GetWidget, ZQFeatureBrowser::GetWidget)
/// what its features are for before the user selects them: from then on units stand at all values,
/// the search finds words of all descriptions, and the reason why a row cannot be changed is the
/// right one. `features`: the camera's records (ZQCameraRepository::GetFeatureList), of which
/// description and access mode are copied. `isOpenedForReading`: the application may not change the
/// camera (zqcameralib::ZQCamera::isReadOnly). Call it after each load. Does nothing with another
/// widget, or for features that are not in the tree; user-interface thread.
ZQ_EXPORT void describeFeatures(QWidget* window,
    const std::list<std::shared_ptr<FeatureItem>>& features, bool isOpenedForReading = false);
/// The same, and from then on, until the next call, `reason` is asked by feature name whenever it
/// is shown why a row is locked, not available or unread: in the tool tip, the description pane and
/// to screen readers. It answers at once, with a sentence (ZQCameraRepository::GetReason) that
/// holds then; empty where it knows none. A description that ends with it is shown without it.
ZQ_EXPORT void describeFeatures(QWidget* window,
    const std::list<std::shared_ptr<FeatureItem>>& features, bool isOpenedForReading,
    std::function<std::string(const std::string& name)> reason);

/// Selector role of a record: whether it selects others, is selected, both or neither.
ZQ_EXPORT TYPE_SELECTOR getSelectorState(FeatureItem* item);

/// What the row of a record shows as its value, in UTF-8 and without the unit: an entry's name,
/// an address, a number with 9 significant digits, a text in one line. For programs without a
/// window.
ZQ_EXPORT std::string getShownValue(const FeatureItem& item);

/// MAC address text of the low 48 bits: six upper-case hex pairs with colons, most significant
/// first.
ZQ_EXPORT std::string convertToMACAddress(long address);

/// The fewest decimals (0 to 15) that show `value` to 9 significant digits without trailing zeros.
ZQ_EXPORT int getNumberOfDecimals(double value);

} // namespace featurebrowser
