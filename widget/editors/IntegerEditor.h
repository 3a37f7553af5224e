// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "editors/RowEditor.h"

#include <QAbstractSpinBox>

namespace featurebrowser {

/// Spin box over the whole 64-bit range. Steps along the grid minimum + k * increment; typed values
/// are taken as they are, decimal or "0x" hexadecimal: the camera judges them. The wheel is left to
/// the tree.
class IntegerSpinBox : public QAbstractSpinBox {
    Q_OBJECT

public:
    IntegerSpinBox(QLineEdit* field, QWidget* parent);

    void setLimits(const IntegerValue& limits, const QString& unit);
    void stepBy(int steps) override;

Q_SIGNALS:
    void stepped();

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

private:
    IntegerSpinBox* m_box;
    QString m_unit;
};

} // namespace featurebrowser
