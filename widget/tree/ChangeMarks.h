// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QTimer>

namespace featurebrowser {

struct FeatureRow;

/// Remembers which rows have just changed and lets their marks fade.
class ChangeMarks : public QObject {
    Q_OBJECT

public:
    explicit ChangeMarks(QObject* parent);

    void mark(const FeatureRow* row);
    void clear();
    /// 1 = just changed, 0 = not marked.
    double strength(const FeatureRow* row) const;

Q_SIGNALS:
    void strengthChanged(const featurebrowser::FeatureRow* row);

private:
    void fade();

    QHash<const FeatureRow*, qint64> m_times; ///< ms on m_clock
    QElapsedTimer m_clock;
    QTimer m_timer;
};

} // namespace featurebrowser
