// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "batch/FrameCapture.h"

#include "images/FrameImage.h"
#include "images/ImageFile.h"

#include "featurebrowser/ZQAcquisition.h"
#include "featurebrowser/ZQImageView.h"

#include <QFileInfo>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>

namespace zqviewer {

using namespace featurebrowser;

namespace {

/// No image for so long: there will be none.
constexpr std::chrono::seconds patience(10);

/// Images on their way from the acquisition's thread; no more than are wanted.
class Frames {
public:
    explicit Frames(std::size_t wanted)
        : m_missing(wanted)
    {
    }

    void add(const ZQFrame& frame)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_missing == 0) {
            return;
        }
        --m_missing;
        const auto bytes
            = std::make_shared<std::vector<std::uint8_t>>(frame.data, frame.data + frame.size);
        ZQImage image = imageOf(frame);
        image.data = bytes->data();
        image.owner = bytes;
        m_images.push_back(std::move(image));
        m_added.notify_one();
    }

    /// False when none comes.
    bool take(ZQImage& image)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (!m_added.wait_for(lock, patience, [this] { return !m_images.empty(); })) {
            return false;
        }
        image = std::move(m_images.front());
        m_images.pop_front();
        return true;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_added;
    std::deque<ZQImage> m_images;
    std::size_t m_missing;
};

QString nameOf(const QString& file, int number, int count)
{
    if (file.contains(QLatin1String("%d"))) {
        return QString(file).replace(QLatin1String("%d"), QString::number(number));
    }
    if (count == 1) {
        return file;
    }
    const auto end = file.size() - QFileInfo(file).suffix().size() - 1;
    return QStringLiteral("%1-%2%3").arg(file.left(end), QString::number(number), file.mid(end));
}

QString startAll(ZQAcquisition& acquisition, Frames& frames)
{
    const auto handler = [&frames](const ZQFrame& frame) { frames.add(frame); };
    int status = acquisition.start(handler);
    while (status == ZQAcquisition::stillStarting) {
        status = acquisition.start(handler);
    }
    return status == STATUS_OK ? QString() : QString::fromStdString(acquisition.lastError());
}

} // namespace

QString captureFrames(OpenedCamera& camera, int count, const QString& file)
{
    Frames frames(static_cast<std::size_t>(count));
    ZQAcquisition acquisition(&camera.camera(), &camera.device());
    QString problem = startAll(acquisition, frames);
    for (int number = 1; problem.isEmpty() && number <= count; ++number) {
        ZQImage image;
        if (!frames.take(image)) {
            const QString why = QString::fromStdString(acquisition.problem());
            problem = QStringLiteral("only %1 of %2 images came. %3")
                          .arg(QString::number(number - 1), QString::number(count), why);
            break;
        }
        problem = imageProblem(image);
        if (problem.isEmpty()) {
            problem = saveImage(convertImage(image), nameOf(file, number, count));
        }
    }
    const int status = acquisition.stop();
    return problem.isEmpty() && status != STATUS_OK
        ? QString::fromStdString(acquisition.lastError())
        : problem;
}

} // namespace zqviewer
