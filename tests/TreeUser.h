// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QTreeView>
#include <QtTest/QTest>

#include <string>

/// Uses a tree of features as a person does, by keyboard and mouse, and reads it through the names
/// that it promises to automation.
class TreeUser {
public:
    virtual ~TreeUser() = default;

    template <typename T> T* child(const char* name = nullptr) const
    {
        return window()->findChild<T*>(name ? QString::fromLatin1(name) : QString());
    }
    QTreeView* tree() const { return child<QTreeView>("featureTree"); }
    QModelIndex row(const std::string& name, int column = 0) const;
    QVariant role(const std::string& name, const char* roleName) const;
    std::string text(const std::string& name) const;
    std::string message() const; ///< of the callout; empty when none is to be seen

    /// Until keys go to the window. Qt's own waiting is content where they go to a dialog of it, or
    /// for a dialog, to the window below.
    static bool waitForActive(const QWidget* window);
    void select(const std::string& name) const;
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    static void type(const char* text);
    /// Opens the row's editor by keyboard, presses its button, or opens its list.
    void open(const std::string& name) const;
    /// Presses the button of a command and says yes where it asks.
    void run(const std::string& command) const;
    /// Opens the row's editor, replaces its text and leaves it with `key`.
    void edit(const std::string& name, const char* text, Qt::Key key = Qt::Key_Return) const;
    /// Clicks into the middle, or beside the left edge.
    void click(const std::string& name, int column = 1, QPoint fromLeft = {}) const;
    /// Of the list of entries or the menu that is open; null when there is none.
    static QWidget* popup();
    /// Opens the row's list and chooses the entry by its letters.
    void choose(const std::string& name, const char* entry) const;
    bool isEditing() const;

protected:
    virtual QWidget* window() const = 0;
};
