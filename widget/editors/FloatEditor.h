#pragma once

#include "editors/RowEditor.h"
#include "row/SliderScale.h"

#include <QTimer>

class QLineEdit;
class QSlider;

namespace featurebrowser {

/// Text field with a slider beside it. The field starts with every digit of the value and takes
/// typed values unaltered; a moving slider writes at most every 50 ms, and its last value always.
class FloatEditor : public RowEditor {
    Q_OBJECT

public:
    FloatEditor(const FeatureRow& row, int sliderSteps, QWidget* parent);
    std::optional<EditValue> value(QString& problem) const override;

protected:
    void showLimits(const FeatureRow& row) override;
    void showValue(const FeatureRow& row) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void sliderMoved(int position);
    void stepBy(int steps);
    void placeSlider();

    QLineEdit* m_field;
    QLabel* m_unitLabel;
    QSlider* m_slider;
    SliderScale m_scale;
    int m_sliderSteps;
    QString m_unit;
    QTimer m_pause; ///< runs after a write by the slider
    bool m_writePending = false;
};

} // namespace featurebrowser
