#include "images/LiveImage.h"

#include "camera/CameraTaskBar.h"
#include "images/FrameImage.h"

namespace zqviewer {

using namespace featurebrowser;

LiveImage::LiveImage(OpenedCamera& camera, ZQImageView& view, CameraTaskBar& tasks)
    : m_view(view)
    , m_tasks(tasks)
    , m_acquisition(&camera.camera(), &camera.device())
{
    m_timer.setInterval(1000);
    connect(&m_timer, &QTimer::timeout, this, &LiveImage::look);
}

LiveImage::~LiveImage()
{
    m_acquisition.stop();
}

/// On the acquisition's thread.
void LiveImage::show(const ZQFrame& frame)
{
    m_bytes += frame.size;
    m_view.post(imageOf(frame));
}

void LiveImage::start()
{
    if (m_isRunning) {
        return;
    }
    auto task = m_acquisition.StartBeside([this](const ZQFrame& frame) { show(frame); });
    m_tasks.run(std::move(task), CameraTaskBar::Appearance::WhenLong,
        [this](zqcameralib::ZQCameraTask& done, zqcameralib::ZQCameraTask::State state) {
            if (state == zqcameralib::ZQCameraTask::State::Done) {
                setRunning(true);
                Q_EMIT told(true, tr("Images are being acquired."));
            } else {
                m_acquisition.stop();
                Q_EMIT told(false, QString::fromStdString(done.error()));
            }
        });
}

void LiveImage::stop()
{
    const int status = m_acquisition.stop();
    setRunning(false);
    Q_EMIT told(status == STATUS_OK,
        status == STATUS_OK ? tr("The acquisition has stopped.")
                            : QString::fromStdString(m_acquisition.lastError()));
}

void LiveImage::setRunning(bool isRunning)
{
    if (m_isRunning == isRunning) {
        return;
    }
    m_isRunning = isRunning;
    m_delivered = 0;
    m_bytes = 0;
    m_sinceLook.start();
    isRunning ? m_timer.start() : m_timer.stop();
    Q_EMIT figures({});
    Q_EMIT runningChanged(isRunning);
}

/// Single images and several ones end by themselves, and so does a camera that is lost.
void LiveImage::look()
{
    const double seconds = static_cast<double>(m_sinceLook.restart()) / 1000;
    Q_EMIT figures(figuresText(seconds));
    if (!m_acquisition.isRunning()) {
        stop();
    }
}

QString LiveImage::figuresText(double seconds)
{
    const QString problem = QString::fromStdString(m_acquisition.problem());
    const ZQFrameCounters counters = m_acquisition.counters();
    const double images = static_cast<double>(counters.delivered - m_delivered) / seconds;
    const double megabytes = static_cast<double>(m_bytes.exchange(0)) / seconds / 1e6;
    m_delivered = counters.delivered;
    QString text = tr("%1 images/s, %2 MB/s")
                       .arg(QString::number(images, 'f', 1), QString::number(megabytes, 'f', 1));
    if (counters.lost > 0) {
        text += tr(", %n lost", nullptr, static_cast<int>(counters.lost));
    }
    if (counters.incomplete > 0) {
        text += tr(", %n incomplete", nullptr, static_cast<int>(counters.incomplete));
    }
    return problem.isEmpty() ? text : text + QStringLiteral(" \u26A0 ") + problem;
}

} // namespace zqviewer
