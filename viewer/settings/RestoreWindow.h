// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQSettings.h"

#include <QDialog>

namespace zqviewer {

class SettingsTable;

/// What a restoring has done, line by line. Not modal; deletes itself when it is closed.
class RestoreWindow : public QDialog {
    Q_OBJECT

public:
    RestoreWindow(zqcameralib::ZQRestoreReport report, QWidget* parent);

    /// "12 restored, 3 adjusted, 1 refused".
    static QString summary(const zqcameralib::ZQRestoreReport& report);
    /// Whether each line holds.
    static bool isGood(const zqcameralib::ZQRestoreReport& report);

private:
    void fill(bool areAllShown);

    zqcameralib::ZQRestoreReport m_report;
    SettingsTable* m_table;
};

} // namespace zqviewer
