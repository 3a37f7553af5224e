#pragma once

#include "featurebrowser/CameraFeatureBrowser.h"

#include <QPersistentModelIndex>
#include <QTreeView>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <functional>

namespace featurebrowser {

/// Writes down every event as one line and then does what the test wants to happen in it.
class Journal : public IEventFeatureReceiver {
public:
    std::vector<std::string> lines;
    std::function<void(const std::string& line)> answer;

    /// The lines since the last call.
    std::vector<std::string> take() { return std::exchange(lines, {}); }

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

    bool hearsSelection = false;

private:
    void add(const std::string& text);
};

using Lines = std::vector<std::string>;

/// A browser with one feature of every kind in the category "Camera", used as its users do: by
/// its operations, keyboard and mouse, and through the names that it promises to automation.
class WidgetTest : public ::testing::Test {
protected:
    WidgetTest();

    void show();
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
