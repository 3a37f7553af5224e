// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "history/ChangeLog.h"
#include "history/WriteStep.h"

#include <QUndoStack>

namespace featurebrowser {

/// Keeps what the user has written: as steps that can be undone and redone, and as a list to read.
/// Features are kept by their names, so that a tree that is built anew changes nothing.
class WriteHistory : public QObject {
    Q_OBJECT

public:
    /// `model` and `writer` are not owned and have to outlive the history.
    WriteHistory(FeatureModel& model, ValueWriter& writer, QObject* parent);

    ChangeLog& log() { return m_log; }
    /// The steps that undo and redo would take, for example "Width: 640 → 512 px"; empty = none.
    QString undoText() const { return m_steps.undoText(); }
    QString redoText() const { return m_steps.redoText(); }
    /// Asks for the step's row to be shown and writes the value from before (or after) it, as if it
    /// were typed. Where it cannot, or is not taken, the row says why and the step stays, for the
    /// reason may pass; a step whose feature has gone is dropped.
    void undo() { take(true); }
    void redo() { take(false); }

Q_SIGNALS:
    void rowWanted(const featurebrowser::FeatureRow& row);
    /// Something that no row can say.
    void said(const QString& words);

private:
    void record(const WriteResult& result);
    void list(const FeatureRow& row, const WriteResult& result);
    const WriteStep* next(bool isUndo) const;
    void take(bool isUndo);
    bool canBeSeen(const WriteStep& step, bool isUndo);
    QString obstacle(const WriteStep& step, const FeatureRow& row, const RowValue& wanted) const;
    void move(bool isUndo);

    FeatureModel& m_model;
    ValueWriter& m_writer;
    QUndoStack m_steps;
    ChangeLog m_log;
    std::string m_acting; ///< the feature that a step is being written to; empty = none
    bool m_isTaken = false; ///< what came of that
};

} // namespace featurebrowser
