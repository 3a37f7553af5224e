#pragma once

#include "featurebrowser/IEventFeatureReceiver.h"
#include "featurebrowser/ZQCamera.h"
#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQFeatureBrowser.h"

#include <QTreeView>

#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

/// The application's ear: one line for every call.
class Receiver : public featurebrowser::IEventFeatureReceiver {
public:
    /// What an application does with the commands that are left to it; may be null.
    featurebrowser::ICameraDevice* executor = nullptr;

    /// The lines heard since the last call, without selection changes.
    std::vector<std::string> take() { return std::exchange(m_heard, {}); }

    void FeatureIntModified(std::string name, long value) override { hear("int", name, value); }
    void FeatureEnumModified(std::string name, std::string entry, int index) override
    {
        hear("enum", name, entry, index);
    }
    void FeatureBoolModified(std::string name, int value) override { hear("bool", name, value); }
    void FeatureStringModified(std::string name, std::string value) override
    {
        hear("string", name, value);
    }
    void FeatureIPModified(std::string name, const std::string& text) override
    {
        hear("ip", name, text);
    }
    void FeatureDoubleModified(std::string name, double value) override
    {
        hear("double", name, std::to_string(value));
    }
    void FeatureExecCommand(std::string name) override
    {
        hear("command", name);
        if (executor) {
            executor->ExecuteCommand(name.c_str(), 1);
        }
    }
    void ItemSelectionChanged(std::string) override { }
    void ItemColumnResized(int, int) override { }
    void FeatureCloseDialog(int, int, featurebrowser::TYPE_LEVEL) override { }
    void SendError(int code, std::string text) override { hear(code ? "error:" : "done:", text); }
    void FeatureLevelChanged(featurebrowser::TYPE_LEVEL) override { }
    void AllConfigChanged() override { hear("all changed"); }

private:
    template <class... Words> void hear(const char* what, const Words&... words)
    {
        std::ostringstream line;
        line << what;
        ((line << ' ' << words), ...);
        m_heard.push_back(line.str());
    }

    std::vector<std::string> m_heard;
};

/// A browser on the simulated camera in a real window, used as a person uses it: by keyboard and
/// mouse. All three libraries are the real ones.
class Browser {
public:
    enum class Ear { present, absent };

    explicit Browser(Ear ear = Ear::present);
    ~Browser();

    Receiver receiver;

    featurebrowser::ZQCameraDevice& device() { return *m_device; }
    featurebrowser::ZQFeatureBrowser& browser() { return *m_browser; }

    /// What stands in the row.
    std::string shown(const char* name) const;
    QVariant role(const char* name, const char* role) const;
    bool isReadOnly(const char* name) const { return role(name, "readOnly").toBool(); }
    /// Every text on the screen outside of the tree's cells: message strips, description.
    bool showsText(const char* text) const;

    /// Brings the row into view and clicks its value.
    void click(const char* name);
    void select(const char* name);
    /// Selects the row and presses the key that opens its editor or presses its button.
    void open(const char* name);
    /// Opens the editor by key, replaces its text and presses Enter.
    void type(const char* name, const char* text);
    /// Opens the list of an enumeration or boolean by key and chooses the entry by its letters.
    void choose(const char* name, const char* entry);
    void press(Qt::Key key);

    /// The camera's own values, past the browser.
    long integer(const char* name);
    double number(const char* name);

private:
    QModelIndex row(const char* name) const;
    QPoint place(const char* name) const;
    QWidget* editor() const;

    std::unique_ptr<zqcameralib::ZQCamera> m_camera;
    std::unique_ptr<featurebrowser::ZQCameraDevice> m_device;
    std::unique_ptr<featurebrowser::ZQFeatureBrowser> m_browser;
    QTreeView* m_tree = nullptr;
};
