// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "featurebrowser/ZQImageView.h"

#include "view/ImageTexts.h"
#include "view/ImageViewImpl.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPaintEvent>
#include <QPainter>

#include <zqqt/RefuseOtherQt.h>
#include <zqtranslations/LoadTranslations.h>

namespace featurebrowser {

ZQImageView::ZQImageView(QWidget* parent)
    : QWidget((zqqt::refuseOtherQt("ZQImageView"), parent))
    , m_impl(std::make_unique<Impl>(this))
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    zqtranslations::load(QStringLiteral("zqimageview"), QStringLiteral(":/zqimageview"));
    m_impl->problem = problemText({}); // in the language that was loaded
    setAccessibleName(tr("Camera image"));
}

ZQImageView::~ZQImageView() = default;

void ZQImageView::setImage(const ZQImage& image)
{
    m_impl->dropPosted();
    m_impl->show(m_impl->slot.owned(image));
}

void ZQImageView::post(const ZQImage& image)
{
    if (m_impl->slot.put(m_impl->slot.owned(image))) {
        QCoreApplication::postEvent(this, new QEvent(Impl::postedType()));
    }
}

std::uint64_t ZQImageView::replacedFrames() const
{
    return m_impl->slot.replaced();
}

ZQImage ZQImageView::image() const
{
    return m_impl->image;
}

QImage ZQImageView::toImage() const
{
    return convertImage(m_impl->image);
}

std::vector<std::uint32_t> ZQImageView::histogram() const
{
    return histogramOf(m_impl->image);
}

std::vector<ZQPixelComponent> ZQImageView::valueAt(const QPoint& pixel) const
{
    return componentsAt(m_impl->image, pixel.x(), pixel.y());
}

QPoint ZQImageView::pixelAt(const QPoint& position) const
{
    return m_impl->mapping.pixelAt(m_impl->toScreen(position));
}

QRectF ZQImageView::rectOf(const QPoint& pixel) const
{
    const QRectF screen = m_impl->mapping.rectOf({ pixel, QSize(1, 1) });
    const qreal ratio = devicePixelRatioF();
    return { screen.topLeft() / ratio, screen.size() / ratio };
}

double ZQImageView::zoom() const
{
    return m_impl->mapping.zoom();
}

void ZQImageView::setZoom(double zoom)
{
    m_impl->zoomTo(zoom, m_impl->mapping.middle());
}

bool ZQImageView::isFittedToWindow() const
{
    return m_impl->mapping.isFitted();
}

void ZQImageView::setQuarterTurns(int turns)
{
    Orientation orientation = m_impl->mapping.orientation();
    orientation.turns = (turns % 4 + 4) % 4;
    m_impl->mapping.setOrientation(orientation);
    m_impl->mappingChanged();
}

int ZQImageView::quarterTurns() const
{
    return m_impl->mapping.orientation().turns;
}

void ZQImageView::setFlipped(bool leftRight, bool topBottom)
{
    m_impl->mapping.setOrientation({ quarterTurns(), leftRight, topBottom });
    m_impl->mappingChanged();
}

void ZQImageView::setOverexposureShown(bool isShown)
{
    m_impl->isOverexposureShown = isShown;
    update();
}

bool ZQImageView::isOverexposureShown() const
{
    return m_impl->isOverexposureShown;
}

void ZQImageView::setOutdated(const QString& words)
{
    m_impl->outdated = m_impl->isShowing() ? words : QString();
    update();
}

QString ZQImageView::outdated() const
{
    return m_impl->outdated;
}

QRect ZQImageView::region() const
{
    return m_impl->region;
}

void ZQImageView::fitToWindow()
{
    m_impl->mapping.fit();
    m_impl->mappingChanged();
}

void ZQImageView::zoomIn()
{
    setZoom(m_impl->mapping.nextZoom(true));
}

void ZQImageView::zoomOut()
{
    setZoom(m_impl->mapping.nextZoom(false));
}

void ZQImageView::clearRegion()
{
    m_impl->setRegion({});
}

QSize ZQImageView::sizeHint() const
{
    return { 640, 480 };
}

void ZQImageView::paintEvent(QPaintEvent* event)
{
    // Moved to a screen of another density, the widget has the same size in other pixels.
    m_impl->mapping.setViewSize(m_impl->screenSize());
    QPainter painter(this);
    m_impl->paint(painter, event->rect());
}

} // namespace featurebrowser
