// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "../EventJournal.h"
#include "../TreeUser.h"

#include "featurebrowser/CameraFeatureBrowser.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>

namespace featurebrowser {

/// What steady clocks say, in the whole program, while a test sets it.
extern std::optional<std::chrono::steady_clock::time_point> heldTime;

/// A browser with one feature of every kind in the category "Camera", used as its users do: by
/// its operations, keyboard and mouse.
class WidgetTest : public ::testing::Test, protected TreeUser {
protected:
    WidgetTest();
    ~WidgetTest() override { heldTime.reset(); }
    QWidget* window() const override { return browser->GetWidget(); }

    /// The rows of Tables.txt under a heading, by columns.
    static std::vector<QStringList> table(const char* heading);

    void show();
    /// Answers an event as a camera that takes every value. The journal does so unless a test wants
    /// something else to happen.
    void confirm(const std::string& event) const;
    void addInteger(const std::string& category, const std::string& name, long value = 1,
        TYPE_LEVEL level = LEVEL_BEGINNER, const std::string& selectors = "") const;
    void addSelector(const std::string& category, const std::string& name,
        std::list<std::string> entries, int index = 0) const;
    void setInteger(const std::string& name, long value, long min = 16, long max = 4096,
        unsigned int inc = 16, bool readOnly = false, bool flag = true) const;
    void setFloat(const std::string& name, double value, double min = 1, double max = 1e6,
        double inc = 0, bool readOnly = false, bool flag = true) const;
    void setText(const std::string& name, const char* value, bool readOnly = false) const;
    void setChoice(const std::string& name, const char* index, std::list<std::string> entries,
        bool readOnly = false) const;
    void setStates(std::map<std::string, FEATURE_STATE> states) const;
    std::string said(const std::string& name, int role = Qt::ToolTipRole) const;
    bool isShown(const std::string& name) const;
    void find(const char* what) const; ///< in the field for it

    EventJournal journal;
    std::unique_ptr<CameraFeatureBrowser> browser;
};

} // namespace featurebrowser
