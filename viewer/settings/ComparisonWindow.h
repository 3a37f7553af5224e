// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQSettings.h"

#include <QDialog>

#include <vector>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
QT_END_NAMESPACE

namespace zqviewer {

class SettingsTable;

/// One of the two that are compared.
struct ComparedSettings {
    QString name; ///< "Camera", a file's name, "Remembered at 14:03"
    zqcameralib::ZQSettings settings;
    QString file; ///< where they can be put into; empty when these are no file's
    bool isCamera = false; ///< the camera's, as it is now
};

/// The differences between two settings, of which chosen ones are put from one side into the other.
/// Not modal; deletes itself when it is closed.
class ComparisonWindow : public QDialog {
    Q_OBJECT

public:
    ComparisonWindow(ComparedSettings first, ComparedSettings second, QWidget* parent);

Q_SIGNALS:
    /// The chosen lines of one side are to be written to the camera.
    void restoreWanted(const zqcameralib::ZQSettings& lines);
    /// These lines are to be put into the file.
    void saveWanted(const QString& file, const zqcameralib::ZQSettings& settings);

private:
    void arrange();
    void fill();
    void choiceChanged();
    /// The chosen lines as one side has them.
    zqcameralib::ZQSettings chosen(bool isFirst) const;
    QPushButton* makePut(bool fromFirst);
    void put(bool fromFirst);

    ComparedSettings m_first;
    ComparedSettings m_second;
    std::vector<zqcameralib::ZQSettingsDifference> m_differences;
    QLabel* m_words;
    SettingsTable* m_table;
    QPushButton* m_toSecond = nullptr; ///< null where nothing can be put there
    QPushButton* m_toFirst = nullptr;
};

} // namespace zqviewer
