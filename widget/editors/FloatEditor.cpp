// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "editors/FloatEditor.h"

#include "editors/ValueSlider.h"
#include "look/UnitField.h"
#include "row/FloatGrid.h"
#include "text/NumberInput.h"
#include "text/ValueText.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>

#include <cmath>
#include <utility>

namespace featurebrowser {

namespace {

constexpr int writePause = 50; // ms

} // namespace

FloatEditor::FloatEditor(const FeatureRow& row, int sliderSteps, QWidget* parent)
    : RowEditor(row, parent)
    , m_slider(new ValueSlider(this))
    , m_logarithmic(row.logarithmic)
    , m_sliderSteps(sliderSteps)
{
    m_slider->setAccessibleName(tr("Slider of %1").arg(toText(row.name)));
    auto* layout = addField(makeTextField());
    layout->setSpacing(4);
    layout->addWidget(m_slider, 1);
    m_slider->installEventFilter(this);
    m_pause.setSingleShot(true);
    connect(m_slider, &QSlider::valueChanged, this, &FloatEditor::sliderMoved);
    connect(m_slider, &ValueSlider::held, this, [this] { m_inDrag = {}; });
    connect(&m_pause, &QTimer::timeout, this, &FloatEditor::writePending);
}

void FloatEditor::showLimits(const FeatureRow& row)
{
    m_unit = rowUnit(row);
    textField()->setUnit(m_unit);
    m_limits = std::get<FloatValue>(row.value);
    m_held = row.hasValue ? std::optional(m_limits.value) : std::nullopt;
    m_scale = SliderScale(m_limits, m_logarithmic, m_sliderSteps);
    const QSignalBlocker quiet(m_slider);
    m_slider->setRange(0, m_scale.steps());
    m_slider->setPageStep(m_scale.steps() / 10);
    placeSlider();
}

void FloatEditor::showValue(const FeatureRow& row)
{
    if (m_slider->isHeld()) {
        return;
    }
    RowEditor::showValue(row);
    const QSignalBlocker quiet(m_slider);
    m_slider->setValue(m_scale.positionOf(m_limits.value));
}

void FloatEditor::showNumber(double value)
{
    textField()->setText(exactFloatText(value));
    textField()->selectAll();
    const QSignalBlocker quiet(m_slider);
    m_slider->setValue(m_scale.positionOf(value));
    touch();
}

void FloatEditor::sliderMoved(int position)
{
    textField()->setText(exactFloatText(m_scale.valueAt(position)));
    touch();
    writeSoon();
}

void FloatEditor::writeSoon()
{
    m_isWritePending = true;
    if (!m_pause.isActive()) {
        m_pause.start(0);
    }
}

// By the timer only: a write may delete this editor, which a slider in the middle of a mouse event
// would not survive.
void FloatEditor::writePending()
{
    if (!std::exchange(m_isWritePending, false)) {
        return;
    }
    for (Replaced* replaced : { &m_inDrag, &m_inAll }) {
        if (!std::exchange(replaced->isAny, true)) {
            replaced->value = m_held;
        }
    }
    m_pause.start(writePause);
    leave(Leave::KeepOpen);
}

// Whether Escape has done its work by that. A drag leaves the editor open.
bool FloatEditor::takeBack()
{
    m_isWritePending = false;
    const bool isDrag = m_slider->isHeld();
    const auto before = isDrag ? m_inDrag.value : m_inAll.value;
    m_slider->letGo();
    if (before && before != m_held) {
        showNumber(*before);
        leave(isDrag ? Leave::KeepOpen : Leave::Accept);
        return true;
    }
    if (isDrag && m_held) {
        showNumber(*m_held);
        setTouched(false);
    }
    return isDrag;
}

// In the field as in a spin box: nothing is written before the value is accepted.
void FloatEditor::stepBy(int steps)
{
    const double start = std::isfinite(m_limits.minimum) ? m_limits.minimum : 0;
    const double now = readFloat(textField()->text(), m_unit).value.value_or(start);
    showNumber(steppedFloat(now, steps, m_limits, m_logarithmic));
}

int FloatEditor::stepsOf(int key, const QObject* pressedIn) const
{
    switch (key) {
    case Qt::Key_Up:
        return 1;
    case Qt::Key_Down:
        return -1;
    case Qt::Key_PageUp:
        return 10;
    case Qt::Key_PageDown:
        return -10;
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (pressedIn == m_slider) {
            return (key == Qt::Key_Right) != isRightToLeft() ? 1 : -1;
        }
        return 0;
    default:
        return 0;
    }
}

bool FloatEditor::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape && takeBack()) {
            return true;
        }
        if (const int steps = stepsOf(key, object); steps != 0) {
            stepBy(steps);
            if (object == m_slider) {
                writeSoon();
            }
            return true;
        }
    }
    return RowEditor::eventFilter(object, event);
}

void FloatEditor::resizeEvent(QResizeEvent* event)
{
    RowEditor::resizeEvent(event);
    placeSlider();
}

// In a narrow column the text needs all the room.
void FloatEditor::placeSlider()
{
    const int needed = fontMetrics().averageCharWidth() * 24;
    m_slider->setVisible(m_scale.isUsable() && width() >= needed);
}

std::optional<EditValue> FloatEditor::value(QString& problem) const
{
    const auto input = readFloat(textField()->text(), m_unit);
    problem = input.problem;
    return input.value ? std::optional<EditValue>(*input.value) : std::nullopt;
}

} // namespace featurebrowser
