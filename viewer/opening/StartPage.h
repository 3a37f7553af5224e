// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "program/CameraChoice.h"

#include "featurebrowser/ZQCamera.h"

#include <QDialog>
#include <QTimer>

#include <future>

QT_BEGIN_NAMESPACE
class QBoxLayout;
class QLabel;
class QListWidget;
class QPushButton;
QT_END_NAMESPACE

namespace zqviewer {

class RecentCameras;

/// What the viewer begins with when nobody has said which camera: a simulated one, a description
/// file (also dropped onto the page), those opened lately, or one that is found. Nothing is sent on
/// any network before "Find cameras" is pressed.
class StartPage : public QDialog {
    Q_OBJECT

public:
    /// `recent` is not owned and has to outlive the page.
    explicit StartPage(RecentCameras& recent);

    /// Lists anew what was opened lately.
    void refresh();

Q_SIGNALS:
    void chosen(const zqviewer::CameraChoice& choice);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makeButtons(QBoxLayout& layout);
    void chooseCurrent();
    void chooseFile();
    using Cameras = std::vector<zqcameralib::CameraInfo>;
    void find();
    void look();
    void showFound(const Cameras& cameras);
    void addFound(const zqcameralib::CameraInfo& camera);
    void addEntry(const QString& words, const QString& description, const QString& camera);

    RecentCameras& m_recent;
    QListWidget* m_list;
    QLabel* m_error;
    QPushButton* m_find = nullptr;
    QPushButton* m_open = nullptr;
    Cameras m_found;
    std::future<Cameras> m_search;
    QTimer m_poll; ///< runs while cameras are sought
};

} // namespace zqviewer
