// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "tree/ChangeMarks.h"

#include <algorithm>

namespace featurebrowser {

namespace {

constexpr qint64 fullTime = 1500; // ms
constexpr qint64 fadeTime = 1000; // ms

} // namespace

ChangeMarks::ChangeMarks(QObject* parent)
    : QObject(parent)
{
    m_clock.start();
    m_timer.setInterval(50);
    connect(&m_timer, &QTimer::timeout, this, &ChangeMarks::fade);
}

void ChangeMarks::mark(const FeatureRow* row)
{
    m_times.insert(row, m_clock.elapsed());
    m_timer.start();
    Q_EMIT strengthChanged(row);
}

void ChangeMarks::clear()
{
    m_times.clear();
    m_timer.stop();
}

double ChangeMarks::strength(const FeatureRow* row) const
{
    const auto found = m_times.constFind(row);
    if (found == m_times.constEnd()) {
        return 0;
    }
    const qint64 age = m_clock.elapsed() - *found;
    return std::clamp(1.0 - static_cast<double>(age - fullTime) / fadeTime, 0.0, 1.0);
}

void ChangeMarks::fade()
{
    const auto rows = m_times.keys();
    for (const FeatureRow* row : rows) {
        const double now = strength(row);
        if (now <= 0) {
            m_times.remove(row);
        }
        if (now < 1) {
            Q_EMIT strengthChanged(row);
        }
    }
    if (m_times.isEmpty()) {
        m_timer.stop();
    }
}

} // namespace featurebrowser
