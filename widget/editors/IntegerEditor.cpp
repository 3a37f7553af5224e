#include "editors/IntegerEditor.h"

#include "row/IntegerGrid.h"
#include "text/NumberInput.h"
#include "text/ValueText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QWheelEvent>

namespace featurebrowser {

IntegerSpinBox::IntegerSpinBox(QWidget* parent)
    : QAbstractSpinBox(parent)
{
    setFrame(false);
    connect(lineEdit(), &QLineEdit::textEdited, this, &IntegerSpinBox::edited);
}

void IntegerSpinBox::setLimits(const IntegerValue& limits, const QString& unit)
{
    m_limits = limits;
    m_unit = unit;
}

void IntegerSpinBox::setText(const QString& text)
{
    lineEdit()->setText(text);
}

void IntegerSpinBox::stepBy(int steps)
{
    const auto now = readInteger(lineEdit()->text(), m_unit).value;
    setText(QString::number(steppedOnGrid(now.value_or(m_limits.minimum), steps, m_limits)));
    selectAll();
    Q_EMIT edited();
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
    if (hasFocus()) {
        QAbstractSpinBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

IntegerEditor::IntegerEditor(const FeatureRow& row, QWidget* parent)
    : RowEditor(row, parent)
    , m_box(new IntegerSpinBox(this))
    , m_unitLabel(makeUnitLabel())
{
    addField(m_box)->addWidget(m_unitLabel);
    connect(m_box, &IntegerSpinBox::edited, this, [this] { touch(); });
}

void IntegerEditor::showLimits(const FeatureRow& row)
{
    m_unit = rowUnit(row);
    showUnit(m_unitLabel, row);
    m_box->setLimits(std::get<IntegerValue>(row.value), m_unit);
}

void IntegerEditor::showValue(const FeatureRow& row)
{
    m_box->setText(editText(row));
    m_box->selectAll();
}

std::optional<EditValue> IntegerEditor::value(QString& problem) const
{
    const auto input = readInteger(m_box->text(), m_unit);
    problem = input.problem;
    return input.value ? std::optional<EditValue>(*input.value) : std::nullopt;
}

} // namespace featurebrowser
