// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "memory/MemoryBackend.h"

#include "base/StatusCodes.h"
#include "memory/SimulatedFrames.h"
#include "words/Words.h"

#include <new>
#include <utility>

namespace zqcameralib {

namespace {

/// Made-up frames are there at once.
class OpenedFrames : public FrameSourceOpening {
public:
    explicit OpenedFrames(std::unique_ptr<FrameSource> frames)
        : m_frames(std::move(frames))
    {
    }
    Result<std::unique_ptr<FrameSource>> finish(Clock::time_point /*deadline*/) override
    {
        return std::move(m_frames);
    }

private:
    std::unique_ptr<FrameSource> m_frames;
};

} // namespace

MemoryBackend::MemoryBackend(std::unique_ptr<CameraBehaviour> behaviour)
    : m_behaviour(std::move(behaviour))
{
    if (m_behaviour) {
        m_behaviour->start(m_memory);
    }
}

Status MemoryBackend::read(const Register& place, std::uint8_t* buffer, AccessKind)
{
    const std::shared_ptr<SceneFeed> feed = m_behaviour ? m_feed.lock() : nullptr;
    if (feed && feed->takeEnd()) {
        m_behaviour->afterLastImage(m_memory);
    }
    if (m_behaviour) {
        m_behaviour->beforeRead(m_memory, place.address, place.size);
    }
    m_memory.read(place.address, buffer, place.size);
    return {};
}

Status MemoryBackend::write(const Register& place, const std::uint8_t* buffer, AccessKind)
{
    m_isWritten = true;
    m_memory.write(place.address, buffer, place.size);
    if (m_behaviour) {
        m_behaviour->afterWrite(m_memory, place.address, place.size);
    }
    return {};
}

void MemoryBackend::tellSettings(SceneFeed& feed)
{
    m_isWritten = false;
    if (m_readSettings) {
        feed.setSettings(m_readSettings());
    }
}

/// Within an operation, settings may be half written.
void MemoryBackend::endCall()
{
    if (m_calls == 1 && m_isWritten) {
        if (const std::shared_ptr<SceneFeed> feed = m_feed.lock()) {
            tellSettings(*feed);
        }
    }
    --m_calls;
}

void MemoryBackend::executed(const std::string& command)
{
    if (m_behaviour) {
        m_behaviour->executed(m_memory, command);
    }
    const std::shared_ptr<SceneFeed> feed = m_feed.lock();
    if (!feed) {
        return;
    }
    if (command == "TriggerSoftware") {
        feed->trigger();
    } else if (command == "AcquisitionStart") {
        feed->setSending(true);
    } else if (command == "AcquisitionStop" || command == "AcquisitionAbort"
        || command == "DeviceReset") {
        feed->setSending(false);
    }
}

Result<std::unique_ptr<FrameSourceOpening>> MemoryBackend::openFrames(
    const ImageFormat& format, int /*buffers*/)
{
    try {
        auto feed = std::make_shared<SceneFeed>();
        feed->setSending(false);
        tellSettings(*feed);
        m_feed = feed;
        return std::make_unique<OpenedFrames>(
            std::make_unique<SimulatedFrames>(format, std::move(feed)));
    } catch (const std::bad_alloc&) {
        return Status(
            noImage, worded("not enough memory for an image of %zu bytes", format.payload));
    }
}

} // namespace zqcameralib
