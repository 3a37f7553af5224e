// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "row/EditValue.h"

#include <QWidget>

#include <optional>

QT_BEGIN_NAMESPACE
class QHBoxLayout;
QT_END_NAMESPACE

namespace featurebrowser {

class UnitField;

/// How a user leaves an editor.
enum class Leave {
    Accept, ///< Enter: the value is written
    Next, ///< Tab: written, then the next row is edited
    Previous, ///< Shift+Tab
    Revert, ///< Escape
    FocusLost, ///< went elsewhere: written when it is a value
    KeepOpen ///< written while the editor stays, for example by a slider that moves
};

/// Base of the editors: one row's value, opened in its value cell when the user asks for it. The
/// text that the user has typed is theirs: updates of the row do not touch it.
class RowEditor : public QWidget {
    Q_OBJECT

public:
    RowEditor(const FeatureRow& row, QWidget* parent);

    const std::string& rowName() const { return m_rowName; }
    /// Whether this is an editor for the row as it is now.
    bool isFor(const FeatureRow& row) const { return m_kind == row.kind; }
    /// The user has changed something since the last write.
    bool isTouched() const { return m_touched; }
    void setTouched(bool touched) { m_touched = touched; }
    /// Its text was not let out, and the row says why.
    bool hasComplained() const { return m_complained; }
    void setComplained() { m_complained = true; }
    /// Ignores the focus from now on: the editor is about to go.
    void finish() { m_finished = true; }

    /// Shows the row's value and limits, or only the limits when the user has typed something.
    void update(const FeatureRow& row);
    /// The entered value; nothing, and why, when it is none.
    virtual std::optional<EditValue> value(QString& problem) const = 0;
    /// Replaces the whole text, as if the user had typed or pasted this. Without a text, nothing.
    virtual void startWith(const QString& text);

Q_SIGNALS:
    void left(featurebrowser::RowEditor* editor, featurebrowser::Leave how);

protected:
    /// The editor's one text field; what the user types into it touches the value.
    UnitField* makeTextField();
    UnitField* textField() const { return m_textField; } ///< null before it is made
    /// `field` takes the focus and its keys, and the room that what else comes into the editor's
    /// layout leaves. Returns that layout.
    QHBoxLayout* addField(QWidget* field);
    void touch() { m_touched = true; }
    void leave(Leave how);
    virtual void showLimits(const FeatureRow& row) = 0;
    /// Fills the text field and selects its text.
    virtual void showValue(const FeatureRow& row);
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool keyPressed(int key);
    void focusLost(Qt::FocusReason reason);

    std::string m_rowName;
    RowKind m_kind;
    UnitField* m_textField = nullptr;
    bool m_touched = false;
    bool m_complained = false;
    bool m_finished = false;
};

} // namespace featurebrowser
