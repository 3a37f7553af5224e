// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace featurebrowser {

class GlyphButton;
class Sparkline;

/// One pinned feature: its name, its value, the line of its recent values, and a button that ends
/// it. A click and Enter want its row, Delete ends it, up and down want its neighbours.
class PinLine : public QWidget {
    Q_OBJECT

public:
    /// Before its texts.
    static constexpr int margin = 4;

    PinLine(const QString& name, QWidget* parent);

    Sparkline& line() { return *m_line; }
    /// `isDim`: it is not what the camera holds now. `explanation` as a tool tip.
    void showValue(const QString& value, bool isDim, const QString& explanation);
    /// Where the values begin, from the leading edge, in pixels.
    void setValueStart(int start);
    QSize sizeHint() const override;

Q_SIGNALS:
    void rowWanted();
    void unpinWanted();
    void neighbourWanted(bool next);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void place();

    QString m_name;
    QString m_value;
    bool m_isDim = true;
    int m_valueStart = 0;
    Sparkline* m_line;
    GlyphButton* m_unpin;
};

} // namespace featurebrowser
