#include "editors/FloatEditor.h"

#include "text/NumberInput.h"
#include "text/ValueText.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>
#include <QWheelEvent>

#include <algorithm>

namespace featurebrowser {

namespace {

constexpr int writePause = 50; // ms

// A slider moved by the wheel alone would change the camera while the user only scrolls past.
class QuietSlider : public QSlider {
public:
    using QSlider::QSlider;

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

} // namespace

FloatEditor::FloatEditor(const FeatureRow& row, int sliderSteps, QWidget* parent)
    : RowEditor(row, parent)
    , m_field(makeTextField())
    , m_unitLabel(makeUnitLabel())
    , m_slider(new QuietSlider(Qt::Horizontal, this))
    , m_sliderSteps(sliderSteps)
{
    m_slider->setAccessibleName(tr("Slider of %1").arg(toText(row.name)));
    auto* layout = addField(m_field);
    layout->setSpacing(4);
    layout->addWidget(m_unitLabel);
    layout->addWidget(m_slider, 1);
    m_slider->installEventFilter(this);
    m_pause.setSingleShot(true);
    connect(m_slider, &QSlider::valueChanged, this, &FloatEditor::sliderMoved);
    connect(&m_pause, &QTimer::timeout, this, [this] {
        // By the timer only: its write may delete this editor, which a slider in the middle of a
        // mouse event would not survive.
        if (std::exchange(m_writePending, false)) {
            m_pause.start(writePause);
            leave(Leave::KeepOpen);
        }
    });
}

void FloatEditor::showLimits(const FeatureRow& row)
{
    m_unit = rowUnit(row);
    showUnit(m_unitLabel, row);
    m_scale = SliderScale(std::get<FloatValue>(row.value), row.logarithmic, m_sliderSteps);
    const QSignalBlocker quiet(m_slider);
    m_slider->setRange(0, m_scale.steps());
    m_slider->setPageStep(m_scale.steps() / 10);
    placeSlider();
}

void FloatEditor::showValue(const FeatureRow& row)
{
    if (m_slider->isSliderDown()) {
        return;
    }
    const double value = std::get<FloatValue>(row.value).value;
    m_field->setText(editText(row));
    m_field->selectAll();
    const QSignalBlocker quiet(m_slider);
    m_slider->setValue(m_scale.positionOf(value));
}

void FloatEditor::sliderMoved(int position)
{
    m_field->setText(exactFloatText(m_scale.valueAt(position)));
    touch();
    m_writePending = true;
    if (!m_pause.isActive()) {
        m_pause.start(0);
    }
}

// The arrow keys step as in a spin box: nothing is written before the value is accepted.
void FloatEditor::stepBy(int steps)
{
    if (!m_scale.isUsable()) {
        return;
    }
    const double now = readFloat(m_field->text(), m_unit).value.value_or(m_scale.valueAt(0));
    const int position = std::clamp(m_scale.positionOf(now) + steps, 0, m_scale.steps());
    m_field->setText(exactFloatText(m_scale.valueAt(position)));
    m_field->selectAll();
    const QSignalBlocker quiet(m_slider);
    m_slider->setValue(position);
    touch();
}

bool FloatEditor::eventFilter(QObject* object, QEvent* event)
{
    if (object == m_field && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            stepBy(key == Qt::Key_Up ? 1 : -1);
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
    const auto input = readFloat(m_field->text(), m_unit);
    problem = input.problem;
    return input.value ? std::optional<EditValue>(*input.value) : std::nullopt;
}

} // namespace featurebrowser
