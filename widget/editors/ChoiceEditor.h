// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "editors/RowEditor.h"

#include <QComboBox>

namespace featurebrowser {

/// Tells when its list is closed.
class ChoiceBox : public QComboBox {
    Q_OBJECT

public:
    using QComboBox::QComboBox;
    void hidePopup() override;

protected:
    void wheelEvent(QWheelEvent* event) override;

Q_SIGNALS:
    void popupHidden();
};

/// Drop-down list that opens with the editor. Choosing writes; closing the list without a choice
/// reverts. Typing jumps to an entry.
class ChoiceEditor : public RowEditor {
    Q_OBJECT

public:
    ChoiceEditor(const FeatureRow& row, QWidget* parent);
    std::optional<EditValue> value(QString& problem) const override;

Q_SIGNALS:
    void shown();

protected:
    void showLimits(const FeatureRow& row) override;
    void showValue(const FeatureRow& row) override;
    void showEvent(QShowEvent* event) override;

private:
    ChoiceBox* m_box;
    QStringList m_entries; ///< in the box
};

} // namespace featurebrowser
