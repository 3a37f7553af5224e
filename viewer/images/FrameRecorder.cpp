// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "images/FrameRecorder.h"

#include "images/FrameImage.h"
#include "images/ImageFile.h"
#include "program/Words.h"

#include "featurebrowser/ZQImageView.h"

#include <QDir>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace zqviewer {

using namespace featurebrowser;

namespace {

/// What may wait for the disk, unless it is a single image.
constexpr std::size_t mostWaitingBytes = 512UL << 20;
/// GigE Vision counts blocks in 16 bits, from 1, unless a camera has extended ids.
constexpr std::uint64_t lastShortId = 65535;

const char* const firstColumns = "file,frame id,camera time in ns,computer time in ns";

QString quoted(QString text)
{
    const bool isPlain = !text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"'))
        && !text.contains(QLatin1Char('\n'));
    return isPlain ? text
                   : QLatin1Char('"') + text.replace(QLatin1Char('"'), QLatin1String("\"\""))
            + QLatin1Char('"');
}

QString headingOf(const ZQChunkValue& value)
{
    const QString name = QString::fromStdString(value.name);
    return value.unit.empty()
        ? name
        : QStringLiteral("%1 in %2").arg(name, QString::fromStdString(value.unit));
}

} // namespace

FrameRecorder::FrameRecorder(const QString& folder, QString suffix)
    : m_folder(folder)
    , m_suffix(std::move(suffix))
    , m_index(QDir(folder).filePath(QStringLiteral("index.csv")))
{
    if (!m_index.open(QFile::ReadWrite | QFile::Truncate)) {
        m_figures.problem
            = Words::tr("Cannot write '%1': %2.").arg(m_index.fileName(), m_index.errorString());
    }
    list(QLatin1String(firstColumns));
    m_thread = std::thread([this] { writeAll(); });
}

FrameRecorder::~FrameRecorder()
{
    end();
    m_thread.join();
}

void FrameRecorder::add(const ZQFrame& frame, const Values& chunks)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_hasEnded) {
        return;
    }
    noteGap(frame.frameId);
    const QString name
        = QStringLiteral("image-%1.%2").arg(++m_number, 6, 10, QLatin1Char('0')).arg(m_suffix);
    const bool isFull = !m_waiting.empty() && m_waitingBytes + frame.size > mostWaitingBytes;
    if (isFull || !m_figures.problem.isEmpty()) {
        ++m_figures.unwritten;
        list(QStringLiteral("not written,%1,,").arg(frame.frameId) + columns(chunks));
        return;
    }
    const auto bytes
        = std::make_shared<std::vector<std::uint8_t>>(frame.data, frame.data + frame.size);
    Waiting waiting { imageOf(frame), name };
    waiting.image.data = bytes->data();
    waiting.image.owner = bytes;
    m_waitingBytes += frame.size;
    m_waiting.push_back(std::move(waiting));
    m_figures.waiting = m_waiting.size();
    list(QStringLiteral("%1,%2,%3,%4")
             .arg(name)
             .arg(frame.frameId)
             .arg(frame.timestampNs)
             .arg(frame.systemTimestampNs)
        + columns(chunks));
    m_changed.notify_one();
}

void FrameRecorder::noteGap(std::uint64_t frameId)
{
    const std::uint64_t last = std::exchange(m_lastId, frameId);
    const std::uint64_t next = last == lastShortId && frameId < last ? 1 : last + 1;
    if (m_number == 0 || frameId <= next) { // an acquisition that was started anew counts anew
        return;
    }
    m_figures.missing += frameId - next;
    list(QStringLiteral("not received,%1-%2,,").arg(next).arg(frameId - 1));
}

/// ",value" of each column there is by now.
QString FrameRecorder::columns(const Values& chunks)
{
    QStringList texts;
    texts.reserve(m_chunkColumns.size());
    std::fill_n(std::back_inserter(texts), m_chunkColumns.size(), QString());
    for (const ZQChunkValue& value : chunks) {
        const QString heading = headingOf(value);
        auto column = m_chunkColumns.indexOf(heading);
        if (column < 0) {
            column = m_chunkColumns.size();
            m_chunkColumns.append(heading);
            texts.append(QString());
        }
        texts[column] = quoted(QString::fromStdString(value.text));
    }
    return texts.isEmpty() ? QString() : QLatin1Char(',') + texts.join(QLatin1Char(','));
}

/// The columns are known when all images have come.
void FrameRecorder::completeHeading()
{
    if (m_chunkColumns.isEmpty() || !m_figures.problem.isEmpty()) {
        return;
    }
    QString heading = QLatin1String(firstColumns);
    for (const QString& column : std::as_const(m_chunkColumns)) {
        heading += QLatin1Char(',') + quoted(column);
    }
    m_index.seek(0);
    m_index.readLine();
    const QByteArray lines = m_index.readAll();
    m_index.seek(0);
    m_index.resize(0);
    list(heading);
    if (m_index.write(lines) < 0) {
        m_figures.problem
            = Words::tr("Cannot write '%1': %2.").arg(m_index.fileName(), m_index.errorString());
    }
}

void FrameRecorder::list(const QString& line)
{
    if (m_figures.problem.isEmpty() && m_index.write(line.toUtf8() + '\n') < 0) {
        m_figures.problem
            = Words::tr("Cannot write '%1': %2.").arg(m_index.fileName(), m_index.errorString());
    }
}

void FrameRecorder::end()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_hasEnded = true;
    m_changed.notify_one();
}

FrameRecorder::Figures FrameRecorder::figures() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_figures;
}

/// False at the end.
bool FrameRecorder::take(ZQImage& image, QString& name)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_hasEnded || !m_waiting.empty(); });
    if (m_waiting.empty()) {
        return false;
    }
    image = std::move(m_waiting.front().image);
    name = m_waiting.front().name;
    m_waiting.pop_front();
    m_waitingBytes -= image.size;
    return true;
}

QString FrameRecorder::write(const ZQImage& image, const QString& name)
{
    const QString problem = imageProblem(image);
    return problem.isEmpty() ? saveImage(convertImage(image), QDir(m_folder).filePath(name))
                             : problem;
}

void FrameRecorder::writeAll()
{
    ZQImage image;
    QString name;
    while (take(image, name)) {
        const bool isBroken = !figures().problem.isEmpty();
        const QString problem = isBroken ? QString() : write(image, name);
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_figures.waiting = m_waiting.size();
        if (isBroken || !problem.isEmpty()) {
            ++m_figures.unwritten;
            m_figures.problem = isBroken ? m_figures.problem : problem;
        } else {
            ++m_figures.written;
        }
    }
    const std::lock_guard<std::mutex> lock(m_mutex);
    completeHeading();
    if (!m_index.flush() && m_figures.problem.isEmpty()) {
        m_figures.problem
            = Words::tr("Cannot write '%1': %2.").arg(m_index.fileName(), m_index.errorString());
    }
    m_isDone = true;
}

} // namespace zqviewer
