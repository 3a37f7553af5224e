// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>

namespace zqviewer {

/// A line of text that gives way: what does not fit is cut and stands in the tool tip, so that a
/// long sentence does not widen the window. Screen readers get all of it.
class MessageLabel : public QLabel {
    Q_OBJECT

public:
    explicit MessageLabel(QWidget* parent);

    /// Plain text.
    void showText(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void cut();

    QString m_text;
};

} // namespace zqviewer
