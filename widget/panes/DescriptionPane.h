#pragma once

#include "row/FeatureRow.h"

#include <QWidget>

class QBoxLayout;
class QFormLayout;
class QLabel;
class QPlainTextEdit;

namespace featurebrowser {

/// Shows what one row is for, and beside or below it a small form: why it cannot be changed, its
/// range, step, unit, access and entries. All of it is selectable plain text.
class DescriptionPane : public QWidget {
    Q_OBJECT

public:
    explicit DescriptionPane(QWidget* parent = nullptr);

    /// Null shows a hint instead.
    void showRow(const FeatureRow* row);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showFacts(const FeatureRow* row);

    QLabel* m_title;
    QPlainTextEdit* m_text;
    QBoxLayout* m_body;
    QWidget* m_facts;
    QFormLayout* m_form;
    QStringList m_shown; ///< labels and texts in the form
};

} // namespace featurebrowser
