// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include <chrono>
#include <deque>
#include <utility>

namespace featurebrowser {

/// Draws the recent values of a number as a small line over the time in which they came, scaled to
/// their own range, and says beside it how long that time is.
class Sparkline : public QWidget {
    Q_OBJECT

public:
    using Clock = std::chrono::steady_clock;

    using QWidget::QWidget;

    /// Infinite values and NaN leave a gap.
    void add(double value, Clock::time_point when = Clock::now());
    /// From the oldest value that is shown to the newest, for example "12 s" or "3 min"; empty for
    /// fewer than two.
    QString spanText() const;
    /// The least and the greatest finite value; the first is above the second when there is none.
    std::pair<double, double> range() const;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Point {
        Clock::time_point when;
        double value;
    };

    QRectF lineArea() const;

    std::deque<Point> m_points; ///< the oldest first
};

} // namespace featurebrowser
