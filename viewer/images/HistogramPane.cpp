// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "images/HistogramPane.h"

#include "featurebrowser/ZQImageView.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace zqviewer {

using featurebrowser::ZQImageView;

namespace {

constexpr int refreshPeriodMs = 200;

QString percent(double share)
{
    return QString::number(share * 100, 'f', share > 0 && share < 0.01 ? 2 : 1);
}

} // namespace

/// One bar a class of brightness.
class HistogramPane::Bars : public QWidget {
public:
    explicit Bars(QWidget* parent)
        : QWidget(parent)
    {
        setMinimumHeight(fontMetrics().height() * 4);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }

    void setCounts(std::vector<std::uint32_t> counts)
    {
        m_counts = std::move(counts);
        update();
    }
    void setLogarithmic(bool isLogarithmic)
    {
        m_isLogarithmic = isLogarithmic;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Base));
        if (m_counts.empty()) {
            return;
        }
        const double highest = heightOf(*std::max_element(m_counts.begin(), m_counts.end()));
        const auto count = static_cast<int>(m_counts.size());
        for (int i = 0; i < count; ++i) {
            const double share = heightOf(m_counts[static_cast<std::size_t>(i)]) / highest;
            const int left = i * width() / count;
            const int right = std::max((i + 1) * width() / count, left + 1);
            const int top = height() - static_cast<int>(std::lround(share * height()));
            const bool isEnd = i == count - 1; // as bright as the camera can tell
            painter.fillRect(left, top, right - left, height() - top,
                isEnd ? QColor(Qt::red) : palette().color(QPalette::Text));
        }
    }

private:
    double heightOf(std::uint32_t count) const
    {
        return m_isLogarithmic ? std::log1p(static_cast<double>(count))
                               : static_cast<double>(count);
    }

    std::vector<std::uint32_t> m_counts;
    bool m_isLogarithmic = false;
};

HistogramPane::HistogramPane(ZQImageView& view, QWidget* parent)
    : QWidget(parent)
    , m_view(view)
    , m_bars(new Bars(this))
    , m_words(new QLabel(this))
{
    m_bars->setObjectName(QStringLiteral("histogram"));
    m_bars->setAccessibleName(tr("Histogram"));
    m_words->setObjectName(QStringLiteral("histogramWords"));
    m_words->setTextFormat(Qt::PlainText);
    m_words->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* logarithmic = new QCheckBox(tr("Logarithmic"), this);
    auto* line = new QHBoxLayout;
    line->addWidget(m_words, 1);
    line->addWidget(logarithmic);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_bars, 1);
    layout->addLayout(line);
    m_timer.setSingleShot(true);
    m_timer.setInterval(refreshPeriodMs);
    connect(&m_timer, &QTimer::timeout, this, &HistogramPane::refresh);
    connect(logarithmic, &QCheckBox::toggled, m_bars,
        [this](bool isOn) { m_bars->setLogarithmic(isOn); });
    connect(&m_view, &ZQImageView::imageChanged, this, [this] {
        if (isVisible() && !m_timer.isActive()) {
            m_timer.start();
        }
    });
}

void HistogramPane::showEvent(QShowEvent*)
{
    refresh();
}

void HistogramPane::refresh()
{
    std::vector<std::uint32_t> counts = m_view.histogram();
    const double all = std::accumulate(counts.begin(), counts.end(), 0.0);
    QString words;
    if (all > 0) {
        double sum = 0;
        for (std::size_t i = 0; i < counts.size(); ++i) {
            sum += static_cast<double>(counts[i]) * (static_cast<double>(i) + 0.5);
        }
        words = tr("Mean %1 %, black %2 %, brightest %3 %")
                    .arg(percent(sum / all / static_cast<double>(counts.size())),
                        percent(counts.front() / all), percent(counts.back() / all));
    }
    m_words->setText(words);
    m_bars->setCounts(std::move(counts));
}

} // namespace zqviewer
