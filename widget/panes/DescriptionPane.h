// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "model/FeatureModel.h"

#include <QWidget>

QT_BEGIN_NAMESPACE
class QBoxLayout;
class QFormLayout;
class QLabel;
class QPlainTextEdit;
class QScrollArea;
QT_END_NAMESPACE

namespace featurebrowser {

/// Shows what one row is for, and beside or below it a small form: why it cannot be changed, its
/// range, step, unit, access and entries. All of it is selectable plain text.
class DescriptionPane : public QWidget {
    Q_OBJECT

public:
    /// `model` is not owned and has to outlive the pane.
    DescriptionPane(const FeatureModel* model, QWidget* parent);

    /// Null shows a hint instead.
    void showRow(const FeatureRow* row);
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showFacts(const FeatureRow* row);

    const FeatureModel* m_model;
    QLabel* m_title;
    QPlainTextEdit* m_text;
    QBoxLayout* m_body;
    QScrollArea* m_factsArea;
    QWidget* m_facts;
    QFormLayout* m_form;
    QStringList m_shown; ///< labels and texts in the form
};

} // namespace featurebrowser
