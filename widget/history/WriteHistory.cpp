// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "history/WriteHistory.h"

#include "text/RowText.h"
#include "text/ValueText.h"

namespace featurebrowser {

namespace {

constexpr int mostSteps = 1000;

} // namespace

WriteHistory::WriteHistory(FeatureModel& model, ValueWriter& writer, QObject* parent)
    : QObject(parent)
    , m_model(model)
    , m_writer(writer)
{
    m_steps.setUndoLimit(mostSteps);
    connect(&writer, &ValueWriter::written, this, &WriteHistory::record);
}

void WriteHistory::record(const WriteResult& result)
{
    const FeatureRow* row = m_model.find(result.name);
    if (row == nullptr || result.entry == WriteEntry::Switching) {
        return;
    }
    list(*row, result);
    if (result.name == m_acting) {
        m_isTaken = result.isTaken;
    } else if (result.isTaken && result.before.index() == row->value.index()
        && !sameValue(result.before, row->value)) {
        m_steps.push(new WriteStep(m_model, *row, result));
    }
}

namespace {

/// The row's message without its last line, which repeats what was entered.
QString reason(const FeatureRow& row)
{
    const QString message = row.extras().message;
    const auto end = message.lastIndexOf(QLatin1Char('\n'));
    return oneLine(end < 0 ? message : message.left(end));
}

} // namespace

void WriteHistory::list(const FeatureRow& row, const WriteResult& result)
{
    const QString unit = rowUnit(row);
    const Stands stands = standsOf(m_model, row);
    ChangeLine line;
    line.time = QDateTime::currentDateTime();
    line.feature = toText(row.name);
    if (!stands.empty()) {
        line.feature += QStringLiteral(" (%1)").arg(standsText(stands));
    }
    if (result.isCommand) {
        line.isGood = !row.hasMessage();
        line.result = row.hasMessage() ? tr("Refused: %1").arg(reason(row)) : tr("Command run");
    } else {
        line.from = stepText(result.before, unit);
        line.to = stepText(result.entered, unit);
        const QString held = stepText(row.value, unit);
        line.held = row.extras().isUnconfirmed ? QString() : held;
        line.isGood = result.isTaken && !row.extras().isUnconfirmed;
        line.isPassing = result.isTaken && result.entry == WriteEntry::Passing;
        line.result = row.extras().isUnconfirmed ? tr("Not confirmed")
            : !result.isTaken                    ? tr("Refused: %1").arg(reason(row))
            : held != line.to                    ? tr("Adjusted to %1").arg(held)
                                                 : tr("Taken");
    }
    m_log.add(line);
}

const WriteStep* WriteHistory::next(bool isUndo) const
{
    return static_cast<const WriteStep*>(
        m_steps.command(isUndo ? m_steps.index() - 1 : m_steps.index()));
}

void WriteHistory::move(bool isUndo)
{
    isUndo ? m_steps.undo() : m_steps.redo();
}

bool WriteHistory::canBeSeen(const WriteStep& step, bool isUndo)
{
    const QString name = toText(step.name());
    if (!step.isThere()) {
        move(isUndo); // drops it
        Q_EMIT said(tr("%1 is not there any more: its step is dropped").arg(name));
        return false;
    }
    const FeatureRow* row = m_model.find(step.name());
    if (row->hidden) {
        Q_EMIT said(
            tr("The filter or the visibility level hides %1: nothing was changed").arg(name));
        return false;
    }
    Q_EMIT rowWanted(*row);
    return true;
}

QString WriteHistory::obstacle(
    const WriteStep& step, const FeatureRow& row, const RowValue& wanted) const
{
    const Stands moved = movedSince(m_model, step.stands());
    if (!moved.empty()) {
        return tr("Nothing was changed: this step was made at %1").arg(standsText(moved));
    }
    if (!row.isEditable()) {
        return tr("Nothing was changed: this feature is read-only now");
    }
    return enteredAgain(row, wanted)
        ? QString()
        : tr("Nothing was changed: “%1” is not available now").arg(stepText(wanted, {}));
}

// Showing the row and writing run the application's code, so everything is looked up again.
void WriteHistory::take(bool isUndo)
{
    const WriteStep* step = next(isUndo);
    if (step == nullptr || !m_acting.empty() || !canBeSeen(*step, isUndo)) {
        return;
    }
    const FeatureRow* row = next(isUndo) == step ? m_model.find(step->name()) : nullptr;
    if (row == nullptr || !step->isThere()) {
        return;
    }
    const RowValue& wanted = isUndo ? step->before() : step->after();
    const QString problem = obstacle(*step, *row, wanted);
    if (!problem.isEmpty()) {
        m_writer.showMessage(step->name(), problem);
        return;
    }
    m_acting = step->name();
    m_isTaken = false;
    m_writer.write(std::string(m_acting), *enteredAgain(*row, wanted));
    m_acting.clear();
    if (m_isTaken && next(isUndo) == step) {
        move(isUndo);
    }
}

} // namespace featurebrowser
