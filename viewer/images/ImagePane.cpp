// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "images/ImagePane.h"

#include "camera/CameraTaskBar.h"
#include "images/ImageFile.h"
#include "images/LiveImage.h"
#include "images/RegionOfInterest.h"
#include "program/PlainIcon.h"

#include "featurebrowser/ZQImageView.h"

#include <QAction>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace zqviewer {

using featurebrowser::ZQImageView;

ImagePane::ImagePane(OpenedCamera& camera, QWidget* parent)
    : QWidget(parent)
    , m_camera(camera)
    , m_view(new ZQImageView(this))
    , m_tasks(new CameraTaskBar(this))
    , m_pixel(new QLabel(this))
    , m_figures(new QLabel(this))
    , m_live(std::make_unique<LiveImage>(camera, *m_view, *m_tasks))
{
    m_view->setObjectName(QStringLiteral("imageView"));
    m_figures->setObjectName(QStringLiteral("imageFigures"));
    makeAcquisitionActions();
    makeViewActions();
    makeFileActions();
    arrange();
    connectView();
    runningChanged(false);
}

ImagePane::~ImagePane() = default;

void ImagePane::close()
{
    m_live.reset();
}

std::vector<featurebrowser::ZQChunkValue> ImagePane::shownChunks() const
{
    return m_live ? m_live->chunks().valuesOf(m_view->image().frameId)
                  : std::vector<featurebrowser::ZQChunkValue>();
}

void ImagePane::arrange()
{
    for (QLabel* label : { m_pixel, m_figures }) {
        label->setTextFormat(Qt::PlainText);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }
    auto* bar = new QToolBar(this);
    fillBar(*bar);
    auto* status = new QHBoxLayout;
    status->setContentsMargins(4, 0, 4, 2);
    status->addWidget(m_pixel, 1);
    status->addWidget(m_figures, 2);
    status->addWidget(m_tasks);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(bar);
    layout->addWidget(m_view, 1);
    layout->addLayout(status);
}

void ImagePane::connectView()
{
    connect(
        m_view, &ZQImageView::pixelHovered, this, [this](const QPoint& pixel, const QString& text) {
            m_pixel->setText(text.isEmpty()
                    ? QString()
                    : QStringLiteral("(%1, %2)  %3")
                          .arg(QString::number(pixel.x()), QString::number(pixel.y()), text));
        });
    connect(m_view, &ZQImageView::imageChanged, this, &ImagePane::imageChanged);
    connect(m_view, &ZQImageView::regionSelected, this,
        [this](const QRect& region) { m_region->setEnabled(!region.isNull()); });
    connect(m_live.get(), &LiveImage::runningChanged, this, &ImagePane::runningChanged);
    connect(m_live.get(), &LiveImage::recordingChanged, m_record, &QAction::setChecked);
    connect(m_live.get(), &LiveImage::figures, this, &ImagePane::showFigures);
    connect(m_live.get(), &LiveImage::reasons, this, [this](const QString& text) {
        const QString all = m_allFigures + QLatin1Char('\n') + text; // where it does not fit
        m_figures->setToolTip(
            QStringLiteral("<div style='white-space:pre'>%1</div>").arg(all.toHtmlEscaped()));
    });
    connect(m_live.get(), &LiveImage::packetsSet, this, [this] {
        Q_EMIT written({ QStringLiteral("GevSCPSPacketSize"), QStringLiteral("GevSCPD") });
    });
    connect(m_live.get(), &LiveImage::told, this, &ImagePane::told);
}

void ImagePane::showFigures(const QString& text)
{
    m_allFigures = text;
    m_figures->setText(m_figures->isVisible()
            ? m_figures->fontMetrics().elidedText(text, Qt::ElideRight, m_figures->width())
            : text);
}

void ImagePane::imageChanged()
{
    m_shownSince = QDateTime::currentDateTime();
    m_save->setEnabled(m_view->image().data != nullptr);
    if (m_isLost) { // it was on its way
        showOutdated();
    }
}

void ImagePane::setLost(bool isLost)
{
    m_isLost = isLost;
    if (m_isLost) {
        showOutdated();
    }
}

void ImagePane::showOutdated()
{
    m_view->setOutdated(tr("Not live: the last image, of %1")
                            .arg(m_shownSince.time().toString(QStringLiteral("HH:mm:ss"))));
}

QAction* ImagePane::add(
    QList<QAction*>& group, const QString& words, const char* name, QKeySequence keys)
{
    auto* action = new QAction(words, this);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    group.append(action);
    return action;
}

void ImagePane::makeAcquisitionActions()
{
    m_start = add(m_acquisition, tr("St&art images"), "startImages", Qt::Key_F6);
    m_start->setIcon(plainIcon(PlainSign::Start));
    m_stop = add(
        m_acquisition, tr("St&op images"), "stopImages", QKeySequence(QStringLiteral("Shift+F6")));
    m_stop->setIcon(plainIcon(PlainSign::Stop));
    m_single = add(m_acquisition, tr("&Single image"), "singleImage", Qt::Key_F7);
    m_single->setIconText(tr("Single"));
    m_several = add(m_acquisition, tr("Se&veral images\u2026"), "severalImages", {});
    m_acquisition.append(nullptr);
    m_region = add(m_acquisition, tr("&Use the selected region"), "useRegion", {});
    m_region->setIconText(tr("Use region"));
    m_region->setToolTip(
        tr("Have the camera send only the region that was drawn with Shift and the mouse"));
    m_region->setEnabled(false);
    QAction* whole = add(m_acquisition, tr("Use the &whole sensor"), "wholeSensor", {});
    m_packets = add(m_acquisition, tr("Find the best &packets"), "findPackets", {});
    m_packets->setToolTip(
        tr("Measure with which packet size and delay the images of a GigE Vision camera arrive"));
    connect(m_packets, &QAction::triggered, this, [this] { m_live->findPacketSettings(); });
    connect(m_start, &QAction::triggered, this, [this] { m_live->start(); });
    connect(m_stop, &QAction::triggered, this, [this] { m_live->stop(); });
    connect(m_single, &QAction::triggered, this, [this] { m_live->start(1); });
    connect(m_several, &QAction::triggered, this, &ImagePane::startSeveral);
    connect(m_region, &QAction::triggered, this, [this] { writeRegion(false); });
    connect(whole, &QAction::triggered, this, [this] { writeRegion(true); });
}

void ImagePane::makeViewActions()
{
    m_fit = add(m_viewing, tr("&Fit the image"), "fitImage", {});
    m_fit->setIconText(tr("Fit"));
    m_fit->setToolTip(tr("Show the whole image (0)"));
    m_pixels = add(m_viewing, tr("&1:1"), "showPixels", {});
    m_pixels->setToolTip(tr("Show one pixel of the image as one of the screen (1)"));
    m_marks = add(m_viewing, tr("Mark &overexposure"), "markOverexposure", {});
    m_marks->setIconText(tr("Overexposure"));
    m_marks->setToolTip(tr("Mark in red what is as bright as the camera can tell"));
    m_viewing.append(nullptr);
    QAction* left = add(m_viewing, tr("Rotate &left"), "rotateLeft", {});
    QAction* right = add(m_viewing, tr("Rotate &right"), "rotateRight", {});
    m_flipX = add(m_viewing, tr("Flip &horizontally"), "flipHorizontally", {});
    m_flipY = add(m_viewing, tr("Flip &vertically"), "flipVertically", {});
    for (QAction* action : { m_marks, m_flipX, m_flipY }) {
        action->setCheckable(true);
    }
    connect(m_fit, &QAction::triggered, m_view, &ZQImageView::fitToWindow);
    connect(m_pixels, &QAction::triggered, m_view, [this] { m_view->setZoom(1); });
    connect(m_marks, &QAction::toggled, m_view, &ZQImageView::setOverexposureShown);
    connect(left, &QAction::triggered, this, [this] { turn(false); });
    connect(right, &QAction::triggered, this, [this] { turn(true); });
    connect(m_flipX, &QAction::toggled, this, &ImagePane::flip);
    connect(m_flipY, &QAction::toggled, this, &ImagePane::flip);
}

void ImagePane::makeFileActions()
{
    m_save = add(m_files, tr("&Save this image\u2026"), "saveImage", QKeySequence::Save);
    m_save->setIcon(style()->standardIcon(QStyle::SP_DialogSaveButton));
    m_save->setEnabled(false);
    m_record = add(m_files, tr("&Record images\u2026"), "recordImages",
        QKeySequence(QStringLiteral("Ctrl+R")));
    m_record->setIconText(tr("Record"));
    m_record->setCheckable(true);
    connect(m_save, &QAction::triggered, this, &ImagePane::save);
    connect(m_record, &QAction::triggered, this, &ImagePane::toggleRecording);
}

void ImagePane::fillBar(QToolBar& bar)
{
    bar.addActions({ m_start, m_stop, m_single });
    bar.addSeparator();
    bar.addActions({ m_fit, m_pixels, m_marks, m_region });
    bar.addSeparator();
    bar.addActions({ m_save, m_record });
    // What does not fit is behind a button with a sign of Qt's own, which is black on any ground.
    for (auto* button : bar.findChildren<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"))) {
        button->setIcon(plainIcon(PlainSign::More));
    }
}

void ImagePane::runningChanged(bool isRunning)
{
    m_stop->setEnabled(isRunning);
    for (QAction* action : { m_start, m_single, m_several, m_packets }) {
        action->setEnabled(!isRunning);
    }
}

void ImagePane::startSeveral()
{
    constexpr int most = 1000000;
    bool isChosen = false;
    const int count = QInputDialog::getInt(this, tr("Several images"),
        tr("Stop after so many images:"), m_count, 1, most, 1, &isChosen);
    if (isChosen) {
        m_count = count;
        m_live->start(count);
    }
}

void ImagePane::turn(bool isClockwise)
{
    m_view->setQuarterTurns(m_view->quarterTurns() + (isClockwise ? 1 : 3));
}

void ImagePane::flip()
{
    m_view->setFlipped(m_flipX->isChecked(), m_flipY->isChecked());
}

/// The features are locked while images are acquired, so these stop meanwhile.
void ImagePane::writeRegion(bool isWhole)
{
    const bool wasRunning = m_live->isRunning();
    if (wasRunning) {
        m_live->stop();
    }
    RegionOfInterest camera(m_camera);
    const featurebrowser::ZQImage image = m_view->image();
    QString problem;
    if (isWhole) {
        problem = camera.selectAll();
    } else if (!camera.isOfSize({ image.width, image.height })) {
        problem = tr("This image was taken with other settings: take a new one first.");
    } else {
        problem = camera.select(m_view->region());
    }
    m_view->clearRegion();
    Q_EMIT written({ QStringLiteral("Width"), QStringLiteral("Height"), QStringLiteral("OffsetX"),
        QStringLiteral("OffsetY") });
    Q_EMIT told(problem.isEmpty(),
        problem.isEmpty() ? tr("The camera's region is %1 now.").arg(camera.words()) : problem);
    if (wasRunning) {
        m_live->start();
    }
}

void ImagePane::save()
{
    const featurebrowser::ZQImage image = m_view->image(); // the one that the user sees now
    const featurebrowser::ZQImage raw = featurebrowser::rawMosaic(image);
    const QString rawFilter = tr("Raw, without interpolated colours (*.png *.tif *.tiff)");
    QString filters = tr("Images (*.png *.tif *.tiff)");
    if (raw.pixelFormat != image.pixelFormat) {
        filters += QStringLiteral(";;") + rawFilter;
    }
    QString filter;
    const QString name = QFileDialog::getSaveFileName(
        this, tr("Save this image"), QStringLiteral("image.png"), filters, &filter);
    if (name.isEmpty()) {
        return;
    }
    const QString problem
        = saveImage(featurebrowser::convertImage(filter == rawFilter ? raw : image), name);
    Q_EMIT told(problem.isEmpty(),
        problem.isEmpty() ? tr("Saved %1.").arg(QFileInfo(name).fileName()) : problem);
}

void ImagePane::toggleRecording(bool isWanted)
{
    if (!isWanted) {
        return m_live->stopRecording();
    }
    const QString folder
        = QFileDialog::getExistingDirectory(this, tr("Record images in this folder"));
    m_record->setChecked(false); // until it has begun
    if (folder.isEmpty()) {
        return;
    }
    // One of its own, so that nothing that lies there is written over.
    const QString name = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    const QDir place(folder);
    if (!place.mkdir(name)) {
        Q_EMIT told(false, tr("The folder '%1' cannot be made.").arg(place.filePath(name)));
        return;
    }
    m_live->record(place.filePath(name), QStringLiteral("tiff"));
    m_live->start();
}

} // namespace zqviewer
