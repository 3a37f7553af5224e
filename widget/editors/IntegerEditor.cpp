// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "editors/IntegerEditor.h"

#include "look/UnitField.h"
#include "row/IntegerGrid.h"
#include "text/NumberInput.h"
#include "text/ValueText.h"

#include <QWheelEvent>

namespace featurebrowser {

IntegerSpinBox::IntegerSpinBox(QLineEdit* field, QWidget* parent)
    : QAbstractSpinBox(parent)
{
    setLineEdit(field);
    setFrame(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
}

void IntegerSpinBox::setLimits(const IntegerValue& limits, const QString& unit)
{
    m_limits = limits;
    m_unit = unit;
}

void IntegerSpinBox::stepBy(int steps)
{
    const auto now = readInteger(lineEdit()->text(), m_unit).value;
    lineEdit()->setText(
        QString::number(steppedOnGrid(now.value_or(m_limits.minimum), steps, m_limits)));
    selectAll();
    Q_EMIT stepped();
}

QAbstractSpinBox::StepEnabled IntegerSpinBox::stepEnabled() const
{
    const auto now = readInteger(lineEdit()->text(), m_unit).value;
    if (!now) {
        return StepUpEnabled | StepDownEnabled;
    }
    StepEnabled enabled = StepNone;
    enabled.setFlag(StepUpEnabled, *now < m_limits.maximum);
    enabled.setFlag(StepDownEnabled, *now > m_limits.minimum);
    return enabled;
}

// Everything may be typed; what is no number is told when the user commits it.
QValidator::State IntegerSpinBox::validate(QString&, int&) const
{
    return QValidator::Acceptable;
}

void IntegerSpinBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

IntegerEditor::IntegerEditor(const FeatureRow& row, QWidget* parent)
    : RowEditor(row, parent)
    , m_box(new IntegerSpinBox(makeTextField(), this))
{
    addField(m_box);
    connect(m_box, &IntegerSpinBox::stepped, this, [this] { touch(); });
}

void IntegerEditor::showLimits(const FeatureRow& row)
{
    m_unit = rowUnit(row);
    textField()->setUnit(m_unit);
    m_box->setLimits(std::get<IntegerValue>(row.value), m_unit);
}

std::optional<EditValue> IntegerEditor::value(QString& problem) const
{
    const auto input = readInteger(textField()->text(), m_unit);
    problem = input.problem;
    return input.value ? std::optional<EditValue>(*input.value) : std::nullopt;
}

} // namespace featurebrowser
