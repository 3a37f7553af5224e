// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "look/Sparkline.h"

#include "look/ThemeColors.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>

#include <algorithm>
#include <cmath>
#include <limits>

namespace featurebrowser {

namespace {

constexpr std::size_t kept = 120;
constexpr int spanLetters = 7; ///< room for the words of the time

} // namespace

void Sparkline::add(double value, Clock::time_point when)
{
    m_points.push_back({ when, value });
    if (m_points.size() > kept) {
        m_points.pop_front();
    }
    update();
}

QString Sparkline::spanText() const
{
    if (m_points.size() < 2) {
        return {};
    }
    const std::chrono::duration<double> span = m_points.back().when - m_points.front().when;
    const double seconds = span.count();
    if (seconds < 1) {
        return tr("< 1 s");
    }
    const auto whole = [](double value) { return QString::number(std::lround(value)); };
    if (seconds < 99.5) {
        return tr("%1 s", "seconds").arg(whole(seconds));
    }
    const double minutes = seconds / 60;
    return minutes < 99.5 ? tr("%1 min", "minutes").arg(whole(minutes))
                          : tr("%1 h", "hours").arg(whole(minutes / 60));
}

std::pair<double, double> Sparkline::range() const
{
    double least = std::numeric_limits<double>::infinity();
    double most = -least;
    for (const Point& point : m_points) {
        if (std::isfinite(point.value)) {
            least = std::min(least, point.value);
            most = std::max(most, point.value);
        }
    }
    return { least, most };
}

QSize Sparkline::sizeHint() const
{
    return { fontMetrics().averageCharWidth() * (18 + spanLetters), fontMetrics().height() };
}

QRectF Sparkline::lineArea() const
{
    const int words = fontMetrics().averageCharWidth() * spanLetters;
    const QRect line(0, 0, width() - words, height());
    return QRectF(QStyle::visualRect(layoutDirection(), rect(), line)).adjusted(2, 2.5, -3, -2.5);
}

void Sparkline::paintEvent(QPaintEvent*)
{
    const auto [least, most] = range();
    if (!(least <= most)) {
        return;
    }
    const QRectF area = lineArea();
    const std::chrono::duration<double> span = m_points.back().when - m_points.front().when;
    QPainterPath path;
    QPointF last;
    bool isGap = true;
    for (const Point& point : m_points) {
        if (std::isfinite(point.value)) {
            const std::chrono::duration<double> back = m_points.back().when - point.when;
            const double age = span.count() > 0 ? back / span : 0;
            const double share = most > least ? (point.value - least) / (most - least) : 0.5;
            last = { area.right() - age * area.width(), area.bottom() - share * area.height() };
            isGap ? path.moveTo(last) : path.lineTo(last);
        }
        isGap = !std::isfinite(point.value);
    }
    QPainter painter(this);
    painter.setPen(colors::dim(palette()));
    painter.setLayoutDirection(Qt::LeftToRight);
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    painter.drawText(rect(),
        static_cast<int>(Qt::AlignVCenter | (isMirrored ? Qt::AlignLeft : Qt::AlignRight)),
        spanText());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.4));
    painter.drawPath(path);
    if (!isGap) {
        painter.setBrush(palette().color(QPalette::Highlight));
        painter.drawEllipse(last, 1.4, 1.4);
    }
}

} // namespace featurebrowser
