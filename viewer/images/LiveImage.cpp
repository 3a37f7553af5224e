// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "images/LiveImage.h"

#include "camera/CameraTaskBar.h"
#include "images/FrameImage.h"

#include <QDir>

#include <cmath>

namespace zqviewer {

using namespace featurebrowser;

namespace {

constexpr int unlimited = -1;

} // namespace

LiveImage::LiveImage(OpenedCamera& camera, ZQImageView& view, CameraTaskBar& tasks)
    : m_camera(camera)
    , m_view(view)
    , m_tasks(tasks)
    , m_acquisition(&camera.camera(), &camera.device())
{
    m_timer.setInterval(1000);
    connect(&m_timer, &QTimer::timeout, this, &LiveImage::look);
    connect(this, &LiveImage::allCame, this, &LiveImage::stop, Qt::QueuedConnection);
}

LiveImage::~LiveImage()
{
    m_tasks.cancel(); // what is under way holds on to the acquisition
    m_acquisition.stop();
}

/// On the acquisition's thread, as isWanted().
void LiveImage::show(const ZQFrame& frame)
{
    if (!isWanted()) {
        return;
    }
    m_bytes += frame.size;
    m_chunks.add(frame);
    m_view.post(imageOf(frame));
    const std::lock_guard<std::mutex> lock(m_recorderMutex);
    if (m_recorder) {
        m_recorder->add(frame, m_chunks.values(frame));
    }
}

bool LiveImage::isWanted()
{
    const int toCome = m_toCome;
    if (toCome > 0) {
        m_toCome = toCome - 1;
        if (toCome == 1) {
            Q_EMIT allCame();
        }
    }
    return toCome != 0;
}

void LiveImage::start(int count)
{
    if (m_isRunning) {
        return;
    }
    m_toCome = count > 0 ? count : unlimited;
    m_chunks.use(std::make_unique<ZQChunkDecoder>(&m_camera.camera()));
    m_tasks.run(m_acquisition.StartBeside([this](const ZQFrame& frame) { show(frame); }),
        CameraTaskBar::Appearance::WhenLong,
        [this](zqcameralib::ZQCameraTask& task, zqcameralib::ZQCameraTask::State state) {
            started(task, state);
        });
}

void LiveImage::findPacketSettings()
{
    using State = zqcameralib::ZQCameraTask::State;
    m_tasks.run(m_acquisition.FindPacketSettings(), CameraTaskBar::Appearance::AtOnce,
        [this](zqcameralib::ZQCameraTask& task, State state) {
            Q_EMIT packetsSet();
            Q_EMIT told(state == State::Done,
                state == State::Cancelled
                    ? tr("Looking for the best packets was cancelled.")
                    : QString::fromStdString(
                        state == State::Done ? task.progress().step : task.error()));
        });
}

void LiveImage::started(zqcameralib::ZQCameraTask& task, zqcameralib::ZQCameraTask::State state)
{
    if (state == zqcameralib::ZQCameraTask::State::Done) {
        setRunning(true);
        Q_EMIT told(true, tr("Images are being acquired."));
        return;
    }
    m_acquisition.stop();
    stopRecording();
    Q_EMIT told(false,
        state == zqcameralib::ZQCameraTask::State::Cancelled
            ? tr("Starting the images was cancelled.")
            : QString::fromStdString(task.error()));
}

void LiveImage::stop()
{
    const int status = m_acquisition.stop();
    setRunning(false);
    Q_EMIT told(status == STATUS_OK,
        status == STATUS_OK ? tr("The acquisition has stopped.")
                            : QString::fromStdString(m_acquisition.lastError()));
    stopRecording();
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
    const bool hasToLook = isRunning || m_isRecording;
    hasToLook ? m_timer.start() : m_timer.stop();
    Q_EMIT figures({});
    Q_EMIT runningChanged(isRunning);
}

void LiveImage::record(const QString& folder, const QString& suffix)
{
    const std::lock_guard<std::mutex> lock(m_recorderMutex);
    if (m_recorder) {
        return;
    }
    m_recorder = std::make_unique<FrameRecorder>(folder, suffix);
    m_isRecording = true;
    m_timer.start();
    Q_EMIT recordingChanged(true);
}

void LiveImage::stopRecording()
{
    if (m_isRecording) {
        m_recorder->end(); // what waits is written behind, then lookAtRecording() tells
        lookAtRecording();
    }
}

/// Single images and several ones end by themselves, and so does a camera that is lost.
void LiveImage::look()
{
    const double seconds = static_cast<double>(m_sinceLook.restart()) / 1000;
    if (m_isRunning) {
        Q_EMIT figures(figuresText(seconds));
        Q_EMIT reasons(reasonsText());
        if (!m_acquisition.isRunning()) {
            stop();
        }
    }
    lookAtRecording();
}

void LiveImage::lookAtRecording()
{
    if (!m_isRecording || !m_recorder->isDone()) {
        return;
    }
    std::unique_ptr<FrameRecorder> recorder;
    {
        const std::lock_guard<std::mutex> lock(m_recorderMutex);
        recorder = std::move(m_recorder);
    }
    m_isRecording = false;
    if (!m_isRunning) {
        m_timer.stop();
    }
    Q_EMIT recordingChanged(false);
    const FrameRecorder::Figures figures = recorder->figures();
    const QString folder = QDir::toNativeSeparators(recorder->folder());
    QString text
        = tr("%n image(s) recorded in %1", nullptr, static_cast<int>(figures.written)).arg(folder);
    text += figures.missing + figures.unwritten == 0
        ? tr(", none missing.")
        : tr("; %1 did not arrive and %2 could not be written in time: index.csv says which.")
              .arg(QString::number(figures.missing), QString::number(figures.unwritten));
    Q_EMIT told(figures.problem.isEmpty() && figures.missing + figures.unwritten == 0,
        figures.problem.isEmpty() ? text : figures.problem + QLatin1Char(' ') + text);
}

/// What the camera says that it can do with its present settings, or else what it is set to.
QString LiveImage::wantedRate()
{
    for (const char* result :
        { "AcquisitionResultingFrameRate", "ResultingFrameRate", "ResultingFrameRateAbs" }) {
        if (QString value = m_camera.shown(result); !value.isEmpty()) {
            return value;
        }
    }
    const QString isEnabled = m_camera.shown("AcquisitionFrameRateEnable").toLower();
    if (QStringList { QStringLiteral("false"), QStringLiteral("off"), QStringLiteral("0") }
            .contains(isEnabled)) {
        return {};
    }
    const QString rate = m_camera.shown("AcquisitionFrameRate");
    return rate.isEmpty() ? m_camera.shown("AcquisitionFrameRateAbs") : rate;
}

QString LiveImage::rateText(double seconds)
{
    const ZQFrameCounters counters = m_acquisition.counters();
    const double images = static_cast<double>(counters.delivered - m_delivered) / seconds;
    const double megabytes = static_cast<double>(m_bytes.exchange(0)) / seconds / 1e6;
    m_delivered = counters.delivered;
    QString rate = QString::number(images, 'f', 1);
    if (const QString wanted = wantedRate(); !wanted.isEmpty()) {
        bool isNumber = false;
        const double number = wanted.toDouble(&isNumber);
        rate = tr("%1 of %2")
                   .arg(rate, isNumber ? QString::number(std::round(number * 10) / 10) : wanted);
    }
    return tr("%1 images/s, %2 MB/s").arg(rate, QString::number(megabytes, 'f', 1));
}

QString LiveImage::missingText() const
{
    const ZQFrameCounters counters = m_acquisition.counters();
    QString text;
    if (counters.lost > 0) {
        text += tr(", %n lost", nullptr, static_cast<int>(counters.lost));
    }
    if (counters.incomplete > 0) {
        text += tr(", %n incomplete", nullptr, static_cast<int>(counters.incomplete));
    }
    return text;
}

QString LiveImage::reasonsText() const
{
    const ZQFrameCounters counters = m_acquisition.counters();
    QStringList lines;
    const auto add = [&lines](std::uint64_t count, const QString& words) {
        if (count > 0) {
            lines.append(QStringLiteral("%1: %2").arg(words, QString::number(count)));
        }
    };
    add(counters.underruns, tr("Images without a free buffer, as this computer is too slow"));
    add(counters.gaps, tr("Gaps between images"));
    add(counters.missingPackets, tr("Packets that never came"));
    add(counters.resendRequests, tr("Packets asked for again"));
    add(counters.resentPackets, tr("Packets that came when asked again"));
    add(counters.wrongSize, tr("Images of another size than at the start"));
    add(counters.aborted, tr("Images that were cut off"));
    return lines.join(QLatin1Char('\n'));
}

QString LiveImage::figuresText(double seconds)
{
    QString text = rateText(seconds) + missingText();
    if (const QString degrees = m_camera.shown("DeviceTemperature"); !degrees.isEmpty()) {
        text += QStringLiteral(", %1 \u00B0C").arg(QString::number(degrees.toDouble(), 'f', 1));
    }
    if (m_isRecording) {
        const FrameRecorder::Figures recorded = m_recorder->figures();
        text += tr(", recorded %1").arg(recorded.written);
        if (recorded.waiting > 0) {
            text += tr(" (%1 waiting)").arg(recorded.waiting);
        }
    }
    const QString problem = QString::fromStdString(m_acquisition.problem());
    return problem.isEmpty() ? text : text + QStringLiteral(" \u26A0 ") + problem;
}

} // namespace zqviewer
