// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQAcquisition.h"
#include "featurebrowser/ZQChunkDecoder.h"
#include "featurebrowser/ZQImage.h"

#include <QFile>
#include <QString>
#include <QStringList>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

namespace zqviewer {

/// Writes a sequence of images into a folder, one file each, numbered as they came, and a list of
/// them, index.csv, which also says which are missing: those that did not arrive, by the camera's
/// own numbers, and those that came faster than they could be written. What came along with images
/// stands in columns of the list, one for each feature, with its unit.
class FrameRecorder {
public:
    /// What came along with a frame.
    using Values = std::vector<featurebrowser::ZQChunkValue>;

    struct Figures {
        std::uint64_t written = 0;
        std::uint64_t waiting = 0; ///< arrived, not written yet
        std::uint64_t missing = 0; ///< never arrived
        std::uint64_t unwritten = 0; ///< arrived when too many were waiting
        QString problem; ///< why nothing is written any more, as a sentence; empty = all is well
    };

    /// `folder` exists. `suffix`: "tiff" or "png".
    FrameRecorder(const QString& folder, QString suffix);
    FrameRecorder(const FrameRecorder&) = delete;
    FrameRecorder& operator=(const FrameRecorder&) = delete;
    /// Waits until all is written.
    ~FrameRecorder();

    const QString& folder() const { return m_folder; }
    /// On the acquisition's thread; copies the frame and never waits for the disk.
    void add(const featurebrowser::ZQFrame& frame, const Values& chunks);
    /// No more frames come; what is waiting is written behind.
    void end();
    /// Whether everything is written after end().
    bool isDone() const { return m_isDone; }
    Figures figures() const;

private:
    void noteGap(std::uint64_t frameId);
    void list(const QString& line);
    void completeHeading();
    QString columns(const Values& chunks);
    void writeAll();
    bool take(featurebrowser::ZQImage& image, QString& name);
    QString write(const featurebrowser::ZQImage& image, const QString& name);

    struct Waiting {
        featurebrowser::ZQImage image;
        QString name;
    };

    const QString m_folder;
    const QString m_suffix;
    mutable std::mutex m_mutex; ///< for all below
    std::condition_variable m_changed;
    std::deque<Waiting> m_waiting;
    std::size_t m_waitingBytes = 0;
    Figures m_figures;
    QFile m_index;
    QStringList m_chunkColumns; ///< in the order in which they came
    std::uint64_t m_number = 0; ///< of the last frame that came
    std::uint64_t m_lastId = 0;
    bool m_hasEnded = false;
    std::atomic<bool> m_isDone { false };
    std::thread m_thread; ///< writes; ends first
};

} // namespace zqviewer
