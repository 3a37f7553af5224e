// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QTimer>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
class QTableWidget;
QT_END_NAMESPACE

namespace zqviewer {

class ImagePane;

/// The values that the camera sent along with the image that is shown; follows while it is to be
/// seen.
class ChunkPane : public QWidget {
    Q_OBJECT

public:
    /// `images` is not owned and has to outlive the pane.
    ChunkPane(ImagePane& images, QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void refresh();

    ImagePane& m_images;
    QLabel* m_none;
    QTableWidget* m_table;
    QTimer m_timer;
};

} // namespace zqviewer
