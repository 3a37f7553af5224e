#pragma once

#include "editors/RowEditor.h"

#include <QAbstractSpinBox>

namespace featurebrowser {

/// Spin box over the whole 64-bit range. Steps along the grid minimum + k * increment; typed values
/// are taken as they are, decimal or "0x" hexadecimal: the camera judges them.
class IntegerSpinBox : public QAbstractSpinBox {
    Q_OBJECT

public:
    explicit IntegerSpinBox(QWidget* parent);

    void setLimits(const IntegerValue& limits, const QString& unit);
    void setText(const QString& text);
    void stepBy(int steps) override;

Q_SIGNALS:
    void edited();

protected:
    StepEnabled stepEnabled() const override;
    QValidator::State validate(QString& text, int& position) const override;
    void wheelEvent(QWheelEvent* event) override;

private:
    IntegerValue m_limits;
    QString m_unit;
};

/// Integer field that steps along the feature's grid.
class IntegerEditor : public RowEditor {
    Q_OBJECT

public:
    IntegerEditor(const FeatureRow& row, QWidget* parent);
    std::optional<EditValue> value(QString& problem) const override;

protected:
    void showLimits(const FeatureRow& row) override;
    void showValue(const FeatureRow& row) override;

private:
    IntegerSpinBox* m_box;
    QLabel* m_unitLabel;
    QString m_unit;
};

} // namespace featurebrowser
