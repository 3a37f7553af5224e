// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QLineEdit>

namespace featurebrowser {

/// A text field without a frame, for a cell: its text stands where the cell draws it, a unit dimmed
/// right behind it. The text never runs under the unit, which goes when there is no room for both.
class UnitField : public QLineEdit {
    Q_OBJECT

public:
    explicit UnitField(QWidget* parent);
    void setUnit(const QString& unit);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void makeRoom();
    Qt::LayoutDirection side() const; ///< where the text begins
    int unitWidth() const; ///< with the gap before it; 0 = not shown

    QString m_unit;
};

} // namespace featurebrowser
