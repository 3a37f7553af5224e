// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "events/ValueWriter.h"
#include "history/Stands.h"

#include <QUndoCommand>

namespace featurebrowser {

/// One write that the camera has taken, as a step of the history. It only keeps the books: whoever
/// goes through the history writes first and moves on once the camera has taken it, so that a
/// refused step stays where it was. A step whose feature has gone leaves the history when its turn
/// comes.
class WriteStep : public QUndoCommand {
public:
    /// `row` holds what was read back. `model` is not owned and has to outlive the step.
    WriteStep(const FeatureModel& model, const FeatureRow& row, const WriteResult& result);

    const std::string& name() const { return m_name; }
    const RowValue& before() const { return m_before; }
    const RowValue& after() const { return m_after; }
    /// Where the selectors stood.
    const Stands& stands() const { return m_stands; }
    /// Whether the feature is still there, of the same kind.
    bool isThere() const;

    void undo() override { close(); }
    void redo() override { setObsolete(!isThere()); }
    int id() const override { return 1; } // of all that can be merged
    /// Values that follow each other on a slider are one step.
    bool mergeWith(const QUndoCommand* other) override;

private:
    void close();
    void describe();

    const FeatureModel& m_model;
    std::string m_name;
    RowKind m_kind;
    RowValue m_before;
    RowValue m_after;
    QString m_unit;
    Stands m_stands;
    bool m_isPassing;
};

/// A value with its unit as histories show it: in one line, and not endless.
QString stepText(const RowValue& value, const QString& unit);

} // namespace featurebrowser
