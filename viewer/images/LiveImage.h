// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"
#include "images/FrameRecorder.h"
#include "images/KeptChunks.h"

#include "featurebrowser/ZQAcquisition.h"
#include "featurebrowser/ZQImageView.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <atomic>
#include <memory>
#include <mutex>

namespace zqviewer {

class CameraTaskBar;

/// Starts and stops a camera's images, puts them into a view and into files, and says once a second
/// how they come.
class LiveImage : public QObject {
    Q_OBJECT

public:
    /// Nothing is owned, all has to outlive this.
    LiveImage(OpenedCamera& camera, featurebrowser::ZQImageView& view, CameraTaskBar& tasks);
    /// Stops.
    ~LiveImage() override;

    bool isRunning() const { return m_isRunning; }
    /// Beside the user; runningChanged() and told() tell how it went. `count`: stops after so many
    /// images, 0 only when it is told to. The camera's AcquisitionMode stays as it is.
    void start(int count = 0);
    void stop();

    /// Finds by measuring how the camera's images arrive whole, and sets it; told() tells. Images
    /// may not be running.
    void findPacketSettings();

    /// Writes each image from now on into the folder; told() says at the end how many, and which
    /// are missing.
    void record(const QString& folder, const QString& suffix);
    bool isRecording() const { return m_isRecording; }
    void stopRecording();

    /// What came along with the images.
    const KeptChunks& chunks() const { return m_chunks; }

Q_SIGNALS:
    /// Also when the acquisition has ended by itself.
    void runningChanged(bool isRunning);
    void recordingChanged(bool isRecording);
    /// How starting or stopping went, as a sentence.
    void told(bool isGood, const QString& text);
    /// "29.9 of 30 images/s, 61.2 MB/s", what is missing and why, temperature. Empty: nothing runs.
    void figures(const QString& text);
    /// Why images are missing, a line each; empty while none is.
    void reasons(const QString& text);
    /// On the acquisition's thread: the wanted number of images is there.
    void allCame();
    /// The packets of the camera's images have been set.
    void packetsSet();

private:
    void show(const featurebrowser::ZQFrame& frame);
    bool isWanted();
    void started(zqcameralib::ZQCameraTask& task, zqcameralib::ZQCameraTask::State state);
    void setRunning(bool isRunning);
    void look();
    void lookAtRecording();
    QString figuresText(double seconds);
    QString wantedRate();
    QString rateText(double seconds);
    QString missingText() const;
    QString reasonsText() const;

    OpenedCamera& m_camera;
    featurebrowser::ZQImageView& m_view;
    CameraTaskBar& m_tasks;
    std::atomic<std::uint64_t> m_bytes { 0 }; ///< since the last look
    std::atomic<int> m_toCome { 0 }; ///< images until it stops; negative: it does not
    std::uint64_t m_delivered = 0; ///< at the last look
    QElapsedTimer m_sinceLook;
    QTimer m_timer;
    bool m_isRunning = false;
    bool m_isRecording = false;
    std::mutex m_recorderMutex; ///< for the recorder
    std::unique_ptr<FrameRecorder> m_recorder;
    KeptChunks m_chunks;
    featurebrowser::ZQAcquisition m_acquisition; ///< ends first: it calls show()
};

} // namespace zqviewer
