#include "images/ImagePane.h"

#include "camera/CameraTaskBar.h"
#include "images/LiveImage.h"

#include "featurebrowser/ZQImageView.h"

#include <QAction>
#include <QBuffer>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QImageWriter>
#include <QLabel>
#include <QSaveFile>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>

namespace zqviewer {

using featurebrowser::ZQImageView;

ImagePane::ImagePane(OpenedCamera& camera, QWidget* parent)
    : QWidget(parent)
    , m_view(new ZQImageView(this))
    , m_tasks(new CameraTaskBar(this))
    , m_pixel(new QLabel(this))
    , m_figures(new QLabel(this))
    , m_live(std::make_unique<LiveImage>(camera, *m_view, *m_tasks))
{
    m_view->setObjectName(QStringLiteral("imageView"));
    m_figures->setObjectName(QStringLiteral("imageFigures"));
    for (QLabel* label : { m_pixel, m_figures }) {
        label->setTextFormat(Qt::PlainText);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }
    auto* bar = new QToolBar(this);
    makeActions(*bar);
    auto* status = new QHBoxLayout;
    status->addWidget(m_pixel, 1);
    status->addWidget(m_figures, 2);
    status->addWidget(m_tasks);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(bar);
    layout->addWidget(m_view, 1);
    layout->addLayout(status);
    connect(
        m_view, &ZQImageView::pixelHovered, this, [this](const QPoint& pixel, const QString& text) {
            m_pixel->setText(text.isEmpty()
                    ? QString()
                    : QStringLiteral("(%1, %2)  %3")
                          .arg(QString::number(pixel.x()), QString::number(pixel.y()), text));
        });
    connect(m_view, &ZQImageView::imageChanged, this,
        [this] { m_save->setEnabled(m_view->image().data != nullptr); });
    connect(m_live.get(), &LiveImage::runningChanged, this, &ImagePane::runningChanged);
    connect(m_live.get(), &LiveImage::figures, m_figures, &QLabel::setText);
    connect(m_live.get(), &LiveImage::told, this, &ImagePane::told);
    runningChanged(false);
}

ImagePane::~ImagePane() = default;

void ImagePane::close()
{
    m_live.reset();
}

void ImagePane::makeActions(QToolBar& bar)
{
    m_start = bar.addAction(style()->standardIcon(QStyle::SP_MediaPlay), tr("Start images"));
    m_stop = bar.addAction(style()->standardIcon(QStyle::SP_MediaStop), tr("Stop images"));
    bar.addSeparator();
    QAction* fit = bar.addAction(tr("Fit"));
    fit->setToolTip(tr("Show the whole image (0)"));
    QAction* pixels = bar.addAction(tr("1:1"));
    pixels->setToolTip(tr("Show one pixel of the image as one of the screen (1)"));
    QAction* marks = bar.addAction(tr("Overexposure"));
    marks->setCheckable(true);
    marks->setToolTip(tr("Mark in red what is as bright as the camera can tell"));
    bar.addSeparator();
    m_save = bar.addAction(
        style()->standardIcon(QStyle::SP_DialogSaveButton), tr("Save this image\u2026"));
    m_start->setObjectName(QStringLiteral("startImages"));
    m_stop->setObjectName(QStringLiteral("stopImages"));
    m_save->setShortcut(QKeySequence::Save);
    m_save->setEnabled(false);
    connect(m_start, &QAction::triggered, this, [this] { m_live->start(); });
    connect(m_stop, &QAction::triggered, this, [this] { m_live->stop(); });
    connect(fit, &QAction::triggered, m_view, &ZQImageView::fitToWindow);
    connect(pixels, &QAction::triggered, m_view, [this] { m_view->setZoom(1); });
    connect(marks, &QAction::toggled, m_view, &ZQImageView::setOverexposureShown);
    connect(m_save, &QAction::triggered, this, &ImagePane::save);
}

void ImagePane::runningChanged(bool isRunning)
{
    m_start->setEnabled(!isRunning);
    m_stop->setEnabled(isRunning);
}

void ImagePane::save()
{
    const QImage image = m_view->toImage(); // the one that the user sees now
    const QString name = QFileDialog::getSaveFileName(this, tr("Save this image"),
        QStringLiteral("image.png"), tr("Images (*.png *.tif *.tiff)"));
    if (name.isEmpty()) {
        return;
    }
    const QString problem = saveImage(image, name);
    Q_EMIT told(problem.isEmpty(),
        problem.isEmpty() ? tr("Saved %1.").arg(QFileInfo(name).fileName()) : problem);
}

QString saveImage(const QImage& image, const QString& name)
{
    const QByteArray suffix = QFileInfo(name).suffix().toLower().toLatin1();
    if (!QImageWriter::supportedImageFormats().contains(suffix)
        || (suffix != "png" && suffix != "tif" && suffix != "tiff")) {
        return ImagePane::tr("Cannot write '%1': its name must end in .png, .tif or .tiff.")
            .arg(name);
    }
    QBuffer bytes; // the writer of pictures itself does not notice a full disk
    QSaveFile file(name);
    QImageWriter writer(&bytes, suffix);
    if (!writer.write(image)) {
        return ImagePane::tr("Cannot write '%1': %2.").arg(name, writer.errorString());
    }
    const bool isWritten = file.open(QFile::WriteOnly)
        && file.write(bytes.data()) == bytes.data().size() && file.commit();
    return isWritten ? QString()
                     : ImagePane::tr("Cannot write '%1': %2.").arg(name, file.errorString());
}

} // namespace zqviewer
