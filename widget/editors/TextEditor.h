// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "editors/RowEditor.h"

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace featurebrowser {

/// Text field that counts bytes of UTF-8 against the feature's maximum. A text that is too long is
/// not cut: it is not let out.
class TextEditor : public RowEditor {
    Q_OBJECT

public:
    TextEditor(const FeatureRow& row, QWidget* parent);
    std::optional<EditValue> value(QString& problem) const override;

protected:
    void showLimits(const FeatureRow& row) override;
    void changeEvent(QEvent* event) override;

private:
    void count();

    QLabel* m_counter;
    unsigned int m_maxLength = 0;
};

} // namespace featurebrowser
