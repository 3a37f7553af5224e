// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "featurebrowser/ZQAcquisition.h"

#include "acquisition/Acquisition.h"
#include "acquisition/PacketTask.h"
#include "acquisition/StartTask.h"
#include "base/StatusCodes.h"

#include <utility>

namespace featurebrowser {

using namespace zqcameralib;

static_assert(ZQAcquisition::stillStarting == stillWorking);

namespace {

/// How long one call may wait. What it began goes on, and the next call continues it.
constexpr std::chrono::milliseconds startLimit(1200);

} // namespace

ZQAcquisition::ZQAcquisition(ZQCamera* camera, ICameraDevice* device)
    : m_impl(std::make_unique<Impl>(*camera, *device))
{
}

ZQAcquisition::~ZQAcquisition()
{
    m_impl->stop();
}

int ZQAcquisition::start(FrameHandler handler, int buffers)
{
    return m_impl->startForUser(std::move(handler), buffers, startLimit);
}

std::unique_ptr<ZQCameraTask> ZQAcquisition::StartBeside(FrameHandler handler, int buffers)
{
    Impl* impl = m_impl.get();
    StartTask::Steps steps;
    steps.goOn = [impl, handle = std::move(handler), buffers] {
        return impl->startForUser(handle, buffers, std::chrono::milliseconds(0));
    };
    steps.giveUp = [impl] { impl->giveUp(); };
    steps.error = [impl] { return impl->state().lastError(); };
    return std::make_unique<StartTask>(impl->camera(), std::move(steps));
}

std::unique_ptr<ZQCameraTask> ZQAcquisition::FindPacketSettings(double framesPerSecond)
{
    return std::make_unique<PacketTask>(*m_impl, framesPerSecond);
}

int ZQAcquisition::stop()
{
    return m_impl->stop();
}

bool ZQAcquisition::isRunning() const
{
    return m_impl->state().isRunning;
}

ZQFrameCounters ZQAcquisition::counters() const
{
    return m_impl->state().counters();
}

std::string ZQAcquisition::lastError() const
{
    return m_impl->state().lastError();
}

std::string ZQAcquisition::problem() const
{
    return m_impl->state().problem();
}

} // namespace featurebrowser
