// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "Export.h"
#include "ZQImage.h"

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QWidget>

#include <cstdint>
#include <memory>
#include <vector>

// Set by the library's CMake target and pkg-config file.
#if defined(ZQ_QT_VERSION) && ZQ_QT_VERSION != QT_VERSION_MAJOR
#error "The library is made for another Qt: link ZQImageView with Qt 5, ZQImageViewQt6 with Qt 6."
#endif

namespace featurebrowser {

/// Shows a camera's images. It knows nothing of cameras: an application hands it each image, with
/// setImage() or, from the thread on which images arrive, with post().
///
/// Shows Mono and Bayer images of 8 to 16 bits and RGB, BGR, YUV and YCbCr images, also packed
/// ones. Only what is on the screen is converted: smaller than its pixels, the picture shows single
/// ones of them (of Bayer images the cell around them); larger, each pixel is a sharp rectangle. An
/// image that cannot be shown is replaced by a sentence that says why.
///
/// The user zooms about the mouse with its wheel (with or without Ctrl) and with + and -, shows the
/// whole picture with 0 and its pixels one to one with 1, moves it by dragging with the left or the
/// middle button or with the arrow keys, and draws a region with Shift and the left button, which
/// Escape takes back.
///
/// Needs a QApplication; all calls on the user-interface thread, but for post() and
/// replacedFrames().
class ZQ_EXPORT ZQImageView : public QWidget {
    Q_OBJECT
public:
    /// `parent` may be null and owns the view otherwise.
    explicit ZQImageView(QWidget* parent = nullptr);
    /// Whoever posts has to have stopped.
    ~ZQImageView() override;

    /// Shows `image` in place of what is shown and posted. Without an owner its bytes are copied
    /// before this returns. A default-constructed image empties the view.
    void setImage(const ZQImage& image);
    /// Hands `image` over to be shown with the next turn of the event loop. Any thread. Takes no
    /// longer than one copy of the bytes, and none of an image with an owner; never waits for
    /// painting. One that is not shown yet is given up in favour of the newer one.
    void post(const ZQImage& image);
    /// How many posted images a newer one has replaced before they were painted, all of them while
    /// the view is hidden. Any thread.
    std::uint64_t replacedFrames() const;

    /// What is shown; its owner is set unless it is empty.
    ZQImage image() const;
    /// What is shown, converted as by convertImage().
    QImage toImage() const;
    /// As histogramOf() of what is shown.
    std::vector<std::uint32_t> histogram() const;
    /// As componentsAt() of what is shown.
    std::vector<ZQPixelComponent> valueAt(const QPoint& pixel) const;
    /// The image's pixel below a place of the widget, beyond the image where that is beside it.
    QPoint pixelAt(const QPoint& position) const;
    /// Where the image's pixel is shown, in the widget's coordinates.
    QRectF rectOf(const QPoint& pixel) const;

    /// Pixels of the screen for one of the image. Changes with the widget's size while fitted.
    double zoom() const;
    /// Sets the zoom about the middle of the view, 1/64 to 64.
    void setZoom(double zoom);
    /// Whether the whole picture is fitted into the view, as at first and from fitToWindow() until
    /// the zoom is changed.
    bool isFittedToWindow() const;

    /// Clockwise quarters of a turn by which the picture is shown; any number.
    void setQuarterTurns(int turns);
    int quarterTurns() const; ///< 0 to 3
    /// Shows the picture, as it is turned, with left and right, or top and bottom exchanged.
    void setFlipped(bool leftRight, bool topBottom);
    /// Paints in red what is as bright as the pixel format can tell (of YUV images the luma; of
    /// RGB and Bayer images one component is enough). Off at first.
    void setOverexposureShown(bool isShown);
    bool isOverexposureShown() const;

    /// Shows that the picture is an old one, for example of a camera that is lost: it is dimmed,
    /// and `words` stand in it, for example "Last image, 12:34:56". Until the next image is shown,
    /// or `words` are empty; without effect while there is none. What is told of the image, and
    /// saved, stays as it is.
    void setOutdated(const QString& words);
    /// These words; empty for a picture that is not outdated.
    QString outdated() const;

    /// The region that the user has drawn, in the image's pixels; null when there is none.
    QRect region() const;

    void fitToWindow();
    void zoomIn(); ///< by one step about the middle
    void zoomOut(); ///< by one step about the middle
    /// Takes the region back; regionSelected() tells when there was one.
    void clearRegion();

Q_SIGNALS:
    /// Another image is shown.
    void imageChanged();
    void zoomChanged(double zoom);
    /// The mouse is over this pixel, or the pixel's value has changed: position and components for
    /// a user, as "R 812", or "812" of grey. Beside the image: (-1, -1) and an empty text.
    void pixelHovered(const QPoint& pixel, const QString& text);
    /// The user has drawn this region, clipped to the image. Null: it was taken back.
    void regionSelected(const QRect& pixels);

protected:
    QSize sizeHint() const override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

/// The whole image for saving: 8 bits a channel (Format_Grayscale8, Format_RGB32), or 16
/// (Format_Grayscale16, Format_RGBX64) when the format has more, scaled to the full range. Colours
/// of Bayer images are interpolated from the neighbours (bilinear). Alpha is left out, since
/// cameras fill it with anything. Null when the image cannot be shown. Any thread; no QApplication
/// needed.
ZQ_EXPORT QImage convertImage(const ZQImage& image);
/// The same bytes of a Bayer image as those of a grey one: what the sensor's pixels saw behind
/// their filters, for saving without interpolation. Other images are returned as they are. Any
/// thread.
ZQ_EXPORT ZQImage rawMosaic(const ZQImage& image);
/// Why the image cannot be shown, as a sentence for a user; empty when it can. Any thread.
ZQ_EXPORT QString imageProblem(const ZQImage& image);
/// The components of one pixel in the camera's own bits: one of grey and Bayer images, named by its
/// colour, three or four of others. Empty beyond the image and when it cannot be shown. Any thread.
ZQ_EXPORT std::vector<ZQPixelComponent> componentsAt(const ZQImage& image, int x, int y);
/// How often values occur: 256 equal parts of the format's range, counted over at most 250,000
/// pixels evenly spread. All components of RGB images count, of YUV images the luma alone. Empty
/// when the image cannot be shown. Any thread.
ZQ_EXPORT std::vector<std::uint32_t> histogramOf(const ZQImage& image);

} // namespace featurebrowser
