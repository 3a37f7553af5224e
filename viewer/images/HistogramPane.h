// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QTimer>
#include <QWidget>

#include <cstdint>
#include <vector>

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace featurebrowser {
class ZQImageView;
} // namespace featurebrowser

namespace zqviewer {

/// How often each brightness occurs in the image that a view shows, from black on the left to the
/// brightest that the camera can tell on the right; follows while it is to be seen.
class HistogramPane : public QWidget {
    Q_OBJECT

public:
    /// `view` is not owned and has to outlive the pane.
    HistogramPane(featurebrowser::ZQImageView& view, QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    class Bars;

    void refresh();

    featurebrowser::ZQImageView& m_view;
    Bars* m_bars;
    QLabel* m_words;
    QTimer m_timer;
};

} // namespace zqviewer
