#pragma once

#include "camera/OpenedCamera.h"

#include "featurebrowser/ZQAcquisition.h"
#include "featurebrowser/ZQImageView.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <atomic>

namespace zqviewer {

class CameraTaskBar;

/// Starts and stops a camera's images, puts them into a view, and says once a second how they come.
class LiveImage : public QObject {
    Q_OBJECT

public:
    /// Nothing is owned, all has to outlive this.
    LiveImage(OpenedCamera& camera, featurebrowser::ZQImageView& view, CameraTaskBar& tasks);
    /// Stops.
    ~LiveImage() override;

    bool isRunning() const { return m_isRunning; }
    /// Beside the user; runningChanged() and told() tell how it went.
    void start();
    void stop();

Q_SIGNALS:
    /// Also when the acquisition has ended by itself.
    void runningChanged(bool isRunning);
    /// How starting or stopping went, as a sentence.
    void told(bool isGood, const QString& text);
    /// "29.9 images/s, 61.2 MB/s, 0 lost"; what is wrong where something is. Empty: nothing runs.
    void figures(const QString& text);

private:
    void show(const featurebrowser::ZQFrame& frame);
    void setRunning(bool isRunning);
    void look();
    QString figuresText(double seconds);

    featurebrowser::ZQImageView& m_view;
    CameraTaskBar& m_tasks;
    std::atomic<std::uint64_t> m_bytes { 0 }; ///< since the last look
    std::uint64_t m_delivered = 0; ///< at the last look
    QElapsedTimer m_sinceLook;
    QTimer m_timer;
    bool m_isRunning = false;
    featurebrowser::ZQAcquisition m_acquisition; ///< ends first: it calls show()
};

} // namespace zqviewer
