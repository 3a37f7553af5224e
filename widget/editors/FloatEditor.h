// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "editors/RowEditor.h"
#include "row/SliderScale.h"

#include <QTimer>

namespace featurebrowser {

class ValueSlider;

/// Text field with a slider beside it. The field starts with every digit of the value and takes
/// typed values unaltered; a moving slider writes at most every 50 ms, and its last value always.
/// Escape writes back what the slider has changed: during a drag the value before it, else the
/// value before the first one.
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
    /// What the slider's writes have replaced, from the first one on.
    struct Replaced {
        bool isAny = false;
        std::optional<double> value; ///< none when the row had none to show
    };

    void sliderMoved(int position);
    void stepBy(int steps);
    int stepsOf(int key, const QObject* pressedIn) const;
    void showNumber(double value);
    void writeSoon();
    void writePending();
    bool takeBack();
    void placeSlider();

    ValueSlider* m_slider;
    SliderScale m_scale;
    FloatValue m_limits;
    bool m_logarithmic;
    int m_sliderSteps;
    QString m_unit;
    QTimer m_pause; ///< runs after a write by the slider
    bool m_isWritePending = false;
    std::optional<double> m_held; ///< by the row, when it has a value to show
    Replaced m_inDrag;
    Replaced m_inAll; ///< in the whole life of the editor
};

} // namespace featurebrowser
