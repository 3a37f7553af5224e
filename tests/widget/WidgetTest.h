#pragma once

#include "featurebrowser/CameraFeatureBrowser.h"

#include <QPersistentModelIndex>
#include <QTreeView>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <functional>
#include <sstream>

namespace featurebrowser {

/// Writes down every event as one line and then does what the test wants to happen in it.
class Journal : public IEventFeatureReceiver {
public:
    std::vector<std::string> lines;
    std::function<void(const std::string& line)> answer;

    /// The lines since the last call.
    std::vector<std::string> take() { return std::exchange(lines, {}); }

    void FeatureIntModified(std::string name, long value) override { add("Int", name, value); }
    void FeatureEnumModified(std::string name, std::string entry, int index) override
    {
        add("Enum", name, entry, index);
    }
    void FeatureBoolModified(std::string name, int value) override { add("Bool", name, value); }
    void FeatureStringModified(std::string name, std::string value) override
    {
        add("String", name, value);
    }
    void FeatureIPModified(std::string name, const std::string& text) override
    {
        add("IP", name, text);
    }
    void FeatureDoubleModified(std::string name, double value) override
    {
        add("Double", name, value);
    }
    void FeatureExecCommand(std::string name) override { add("Command", name); }
    void ItemSelectionChanged(std::string name) override
    {
        if (hearsSelection) {
            add("Selection", name);
        }
    }
    void ItemColumnResized(int column, int width) override { add("Column", column, width); }
    void FeatureCloseDialog(int width, int height, TYPE_LEVEL level) override
    {
        add("Close", width, height, level);
    }
    void SendError(int code, std::string text) override { add("Error", code, text); }
    void FeatureLevelChanged(TYPE_LEVEL level) override { add("Level", level); }
    void AllConfigChanged() override { add("AllConfigChanged"); }

    bool hearsSelection = false;

private:
    template <typename... T> void add(const T&... parts)
    {
        std::ostringstream text;
        text.precision(17);
        ((text << (text.tellp() > 0 ? " " : "") << parts), ...);
        lines.push_back(text.str());
        if (answer) {
            answer(text.str());
        }
    }
};

using Lines = std::vector<std::string>;

/// A browser with one feature of every kind in the category "Camera", used as its users do: by
/// its operations, keyboard and mouse, and through the names that it promises to automation.
class WidgetTest : public ::testing::Test {
protected:
    WidgetTest();

    void show();
    void addInteger(const std::string& category, const std::string& name, long value = 1,
        TYPE_LEVEL level = LEVEL_BEGINNER, const std::string& selectors = "") const;
    void setText(const std::string& name, const char* value, bool readOnly = false) const;
    void setChoice(const std::string& name, const char* index, std::list<std::string> entries,
        bool readOnly = false) const;
    void setStates(std::map<std::string, FEATURE_STATE> states) const;
    QTreeView* tree() const;
    template <typename T> T* child(const char* name = nullptr) const
    {
        return browser->GetWidget()->findChild<T*>(
            name != nullptr ? QString::fromLatin1(name) : QString());
    }
    QModelIndex row(const std::string& name, int column = 0) const;
    QVariant role(const std::string& name, const char* roleName) const;
    std::string text(const std::string& name) const;
    std::string message() const; ///< of the callout; empty when none is to be seen
    bool isShown(const std::string& name) const;

    void select(const std::string& name) const;
    static void press(Qt::Key key);
    static void type(const char* text);
    /// Opens the row's editor by keyboard, replaces its text and leaves it with `key`.
    void edit(const std::string& name, const char* text, Qt::Key key = Qt::Key_Return) const;
    void click(const std::string& name, int column = 1, QPoint fromLeft = {}) const;
    bool isEditing() const;

    Journal journal;
    std::unique_ptr<CameraFeatureBrowser> browser;
};

} // namespace featurebrowser
