#include "look/Sparkline.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <limits>

namespace featurebrowser {

namespace {

constexpr std::size_t kept = 120;

} // namespace

void Sparkline::add(double value)
{
    m_values.push_back(value);
    if (m_values.size() > kept) {
        m_values.pop_front();
    }
    update();
}

QSize Sparkline::sizeHint() const
{
    return { fontMetrics().averageCharWidth() * 18, fontMetrics().height() };
}

void Sparkline::paintEvent(QPaintEvent*)
{
    double least = std::numeric_limits<double>::infinity();
    double most = -least;
    for (const double value : m_values) {
        if (std::isfinite(value)) {
            least = std::min(least, value);
            most = std::max(most, value);
        }
    }
    if (!(least <= most)) {
        return;
    }
    const QRectF area = QRectF(rect()).adjusted(2, 2.5, -3, -2.5);
    const double step = area.width() / static_cast<double>(kept - 1);
    double x = area.right() - step * static_cast<double>(m_values.size() - 1);
    QPainterPath path;
    QPointF last;
    bool isGap = true;
    for (const double value : m_values) {
        if (std::isfinite(value)) {
            const double share = most > least ? (value - least) / (most - least) : 0.5;
            last = { x, area.bottom() - share * area.height() };
            isGap ? path.moveTo(last) : path.lineTo(last);
        }
        isGap = !std::isfinite(value);
        x += step;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.4));
    painter.drawPath(path);
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawEllipse(last, 1.4, 1.4);
}

} // namespace featurebrowser
