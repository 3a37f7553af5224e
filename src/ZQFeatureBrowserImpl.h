// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/CameraFeatureBrowser.h"
#include "featurebrowser/FeatureItem.h"
#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQCameraRepository.h"
#include "featurebrowser/ZQFeatureBrowser.h"

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <vector>

namespace featurebrowser {

/// What stands behind a ZQFeatureBrowser: it owns the widget, knows the device and its repository,
/// and is the receiver that the widget reports every user action to. The application's receiver
/// only sees what is passed on from here.
///
/// Everything runs on the user-interface thread. Nothing here throws because of the device; errors
/// of the standard text-to-number conversions pass through.
class __attribute__((visibility("hidden"))) ZQFeatureBrowser::ZQFeatureBrowserImpl final
    : public IEventFeatureReceiver {
public:
    ZQFeatureBrowserImpl(zqcameralib::ZQCamera* camera, IEventFeatureReceiver* applicationReceiver);
    ZQFeatureBrowserImpl(ICameraDevice* cameraDevice, IEventFeatureReceiver* applicationReceiver);
    ZQFeatureBrowserImpl(const ZQFeatureBrowserImpl&) = delete;
    ZQFeatureBrowserImpl& operator=(const ZQFeatureBrowserImpl&) = delete;
    ~ZQFeatureBrowserImpl() override;

    void showDialog(int a, int b, std::vector<int> columns, TYPE_LEVEL level);
    void showStandalone(int a, int b, std::vector<int> columns, TYPE_LEVEL level);

    /// Builds the widget's tree unless it stands already, then pushes every record's value.
    /// 0, or -1 when the repository is not loaded.
    int loadFeatureBrowser();
    /// Reads the repository again, then as loadFeatureBrowser; a tree that stands is kept.
    int reloadRepository();

    /// Reads one feature from the camera, shows it and what it invalidates.
    void refreshFeature(std::string name);
    /// Pushes the repository's states to the widget if that is visible.
    void refreshStates();

    // Events of the widget.
    void FeatureIntModified(std::string name, long value) override;
    void FeatureEnumModified(std::string name, std::string entry, int index) override;
    void FeatureBoolModified(std::string name, int value) override;
    void FeatureStringModified(std::string name, std::string value) override;
    void FeatureIPModified(std::string name, const std::string& text) override;
    void FeatureDoubleModified(std::string name, double value) override;
    void FeatureExecCommand(std::string name) override;
    void ItemSelectionChanged(std::string name) override;
    void ItemColumnResized(int column, int width) override;
    void FeatureCloseDialog(int width, int height, TYPE_LEVEL level) override;
    void SendError(int code, std::string text) override;
    void FeatureLevelChanged(TYPE_LEVEL level) override;
    void AllConfigChanged() override;

private:
    friend class ZQFeatureBrowser;

    ZQFeatureBrowserImpl(
        ZQCameraDevice* cameraDevice, bool takeDevice, IEventFeatureReceiver* applicationReceiver);

    void applyShowSettings(TYPE_LEVEL level);

    // Filling the tree.
    void addFeatureItems(const std::list<std::shared_ptr<FeatureItem>>& items);
    void addCategoryItem(const FeatureItem& item);
    /// Adds the record to the widget, in the innermost open category.
    void addFeatureItem(const std::shared_ptr<FeatureItem>& item, int level);

    // Bringing the widget up to date.
    /// Has the repository read the record and pushes the outcome to the widget. Nothing happens
    /// for a null record, for one that cannot be read, and for categories.
    void updateFeature(const std::shared_ptr<FeatureItem>& item);
    void updateFeature(const std::string& name);
    void updateInteger(const FeatureItem& item);
    /// Shows every feature that the selector selects; not recursive.
    void updateSelectors(std::string name);
    /// Shows every feature that the named one invalidates, then the fixed dependents; not
    /// recursive.
    void updateInvalidators(std::string name);
    void updateMultiRoiDependents();
    /// Recomputes the states in the repository, then as refreshStates.
    void recomputeStates();

    /// Dotted text of an IPv4 address held as decimal text, "" for "". Only the low 32 bits count.
    /// Throws std::invalid_argument or std::out_of_range ("stoul").
    std::string getIPAddressV4Text(const char* text) const;
    /// Value of a dotted IPv4 address; 0 when the text is none.
    std::uint32_t getIPAddressV4Value(const char* text) const;

    // What follows a write of a number.
    void acceptInteger(const std::string& name, long value);
    void resetInteger(const std::string& name, long value);
    void adjustInteger(const std::string& name, long value);
    void retryInteger(const FeatureItem& item, const std::string& name, long value, long current);
    void acceptDouble(const std::string& name, double value);
    void resetDouble(const std::string& name, double value);
    void refuseDouble(const std::string& name, double value, int status);

    // Commands.
    void executeCommand(const std::string& name);
    /// Lets the application carry the command out; without a receiver the device does.
    void handOverCommand(const std::string& name, const char* announcement);
    void resetDevice(const std::string& name);
    void refreshAfterCommand(const std::string& name);

    /// The device's text for an error code, always terminated.
    std::string errorText(int code);
    /// Sends `status` with the text of the device's *last error* to the application's receiver, if
    /// there is one, and returns that text.
    std::string reportRefusedWrite(int status);

    ZQCameraDevice* device; ///< owned only when ownsDevice
    ZQCameraRepository* repository; ///< the device's
    CameraFeatureBrowser* widget; ///< owned
    bool loaded = false; ///< the widget holds a tree built from the repository
    std::vector<std::string> categoryPath; ///< open categories by depth while the tree is filled
    IEventFeatureReceiver* receiver; ///< the application's, may be null
    bool ownsDevice = false;
};

} // namespace featurebrowser
