// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQImageView.h"
#include "view/FrameSlot.h"
#include "view/ViewMapping.h"

#include <QEvent>
#include <QPointF>
#include <QString>

#include <optional>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace featurebrowser {

/// What is shown and how, and what the mouse is doing. Places are in pixels of the screen. Nested,
/// it would be as visible as the class around it.
class __attribute__((visibility("hidden"))) ZQImageView::Impl {
public:
    explicit Impl(ZQImageView* view);

    /// `shown` owns its bytes.
    void show(const ZQImage& shown);
    void takePosted();
    /// Of the event that says that something is posted.
    static QEvent::Type postedType();
    /// Gives up what is posted, since something newer comes.
    void dropPosted();
    bool isShowing() const { return problem.isEmpty(); }

    /// The middle of the screen's pixel at a place of the widget, as the mouse is meant.
    QPointF toScreen(const QPointF& position) const;
    QSize screenSize() const;
    /// Brings view, mouse and listeners up to date after a change of the mapping.
    void mappingChanged();
    void zoomTo(double zoom, const QPointF& about);
    void moveBy(const QPointF& distance);
    /// Whole steps of a wheel that has turned by eighths of a degree; fine wheels need several
    /// turns.
    int wheelSteps(int eighths);
    /// `place` empty: the mouse is gone.
    void hover(std::optional<QPointF> place);

    void startMoving(const QPointF& place);
    void startRegion(const QPointF& place);
    void drag(const QPointF& place);
    void endDrag(bool isKept);
    bool isDragging() const { return m_drag != Drag::None; }
    void setRegion(const QRect& pixels);

    void paint(QPainter& painter, const QRect& area);

    FrameSlot slot;
    ZQImage image;
    QString problem; ///< why there is no picture; empty where there is one
    ViewMapping mapping;
    bool isOverexposureShown = false;
    QString outdated; ///< why the picture is; empty where it is not
    QRect region;

private:
    enum class Drag { None, Move, Region };

    void updateHover();
    void paintPicture(QPainter& painter, const QRect& area);
    void paintRegion(QPainter& painter);
    void paintOutdated(QPainter& painter, const QRect& area);

    ZQImageView* m_view;
    bool m_isPostUnpainted = false;
    double m_toldZoom = 1;
    int m_wheel = 0; ///< eighths of a degree that made no step yet
    std::optional<QPointF> m_mouse;
    QPoint m_toldPixel { -1, -1 };
    QString m_toldText;
    Drag m_drag = Drag::None;
    QPointF m_dragStart;
    QPointF m_dragLast;
    QRect m_regionBefore; ///< the drag
};

} // namespace featurebrowser
