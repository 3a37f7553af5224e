#pragma once

#include "row/FeatureRow.h"

#include <QWidget>

class QLabel;
class QPlainTextEdit;

namespace featurebrowser {

/// Shows the name and the description of one row as selectable plain text.
class DescriptionPane : public QWidget {
    Q_OBJECT

public:
    explicit DescriptionPane(QWidget* parent = nullptr);

    /// Null shows a hint instead.
    void showRow(const FeatureRow* row);

private:
    QLabel* m_title;
    QPlainTextEdit* m_text;
};

} // namespace featurebrowser
