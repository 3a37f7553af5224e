// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QSlider>

namespace featurebrowser {

/// Slider whose drag can be ended before the mouse button is released. The wheel does not move it:
/// it would change the camera while the user only scrolls past.
class ValueSlider : public QSlider {
    Q_OBJECT

public:
    explicit ValueSlider(QWidget* parent);

    /// From the press of the mouse button to its release, or to letGo().
    bool isHeld() const { return m_isHeld; }
    /// Stays where it is from now on, whatever the mouse does until its button is pressed again.
    void letGo();

Q_SIGNALS:
    /// Before the press moves anything.
    void held();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool m_isHeld = false;
};

} // namespace featurebrowser
