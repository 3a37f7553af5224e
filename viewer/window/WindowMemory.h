// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/FeatureTypes.h"

#include <QSettings>
#include <QString>

#include <vector>

QT_BEGIN_NAMESPACE
class QMainWindow;
QT_END_NAMESPACE

namespace zqviewer {

/// What a user expects to find again: place and size of the window, its columns and visibility
/// level, and for each model of camera what was pinned and which categories were open. Kept in the
/// user's settings.
class WindowMemory {
public:
    WindowMemory();

    /// As it was last; Guru at first.
    featurebrowser::TYPE_LEVEL level() const;
    void setLevel(featurebrowser::TYPE_LEVEL level);
    /// Widths of the columns that the user has chosen, 0 for others.
    std::vector<int> columns() const;
    void setColumn(int column, int width);

    /// Whether a lost camera is sought by itself; on at first.
    bool reconnectsByItself() const;
    void setReconnectsByItself(bool doesIt);

    /// Puts the window and the browser in it into the state that store() has found. `camera`: the
    /// model's name. What was never stored stays as it is.
    void restore(QMainWindow& window, QWidget& browser, const QString& camera) const;
    void store(const QMainWindow& window, const QWidget& browser, const QString& camera);

private:
    QSettings m_settings;
};

} // namespace zqviewer
