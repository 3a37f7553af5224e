#pragma once

#include <QWidget>

#include <deque>

namespace featurebrowser {

/// Draws the recent values of a number as a small line, scaled to their own range.
class Sparkline : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Infinite values and NaN leave a gap.
    void add(double value);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::deque<double> m_values; ///< the oldest first
};

} // namespace featurebrowser
