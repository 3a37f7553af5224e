// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "acquisition/Acquisition.h"

#include "base/StatusCodes.h"
#include "words/Words.h"

#include <algorithm>
#include <utility>

namespace featurebrowser {

using namespace zqcameralib;

namespace {

bool isSameImage(const ImageFormat& one, const ImageFormat& other)
{
    return one.width == other.width && one.height == other.height
        && one.pixelFormat == other.pixelFormat && one.payload == other.payload;
}

} // namespace

int ZQAcquisition::Impl::start(FrameHandler handler, int buffers, std::chrono::milliseconds limit)
{
    if (m_state.isRunning) {
        return succeed();
    }
    if (m_delivery) {
        stopImages(); // what has ended by itself
    }
    const CallScope call(backend());
    prepare(std::move(handler), std::clamp(buffers, 2, 1000));
    return advance(Clock::now() + limit);
}

int ZQAcquisition::Impl::startForUser(
    FrameHandler handler, int buffers, std::chrono::milliseconds limit)
{
    return m_isMeasuring
        ? fail({ noImage, translated("no image can be acquired: packets are being measured") })
        : start(std::move(handler), buffers, limit);
}

int ZQAcquisition::Impl::stop()
{
    m_isMeasuring = false;
    return stopImages();
}

int ZQAcquisition::Impl::stopImages()
{
    giveUp();
    if (!m_delivery) {
        return succeed();
    }
    const int status = m_device.ExecuteCommand("AcquisitionStop", 1);
    m_delivery.reset();
    m_state.setProblem({});
    return status == STATUS_OK ? succeed() : fail(refusal(status));
}

void ZQAcquisition::Impl::giveUp()
{
    if (m_starting && m_starting->isSent) {
        m_device.ExecuteCommand("AcquisitionStop", 0);
    }
    m_starting.reset();
}

int ZQAcquisition::Impl::succeed()
{
    m_state.setLastError({});
    return STATUS_OK;
}

int ZQAcquisition::Impl::fail(const Status& failure)
{
    m_state.setLastError(failure.text());
    if (failure.code() != stillWorking) {
        m_starting.reset();
    }
    return m_camera.impl().note(failure);
}

Status ZQAcquisition::Impl::refusal(int code)
{
    return { code, deviceText(m_device, code) };
}

void ZQAcquisition::Impl::prepare(FrameHandler handler, int buffers)
{
    const bool fits = m_starting && m_starting->buffers == buffers
        && m_starting->connection == backend().connectionNumber();
    if (!fits) {
        m_starting = std::make_unique<Starting>();
        m_starting->buffers = buffers;
        m_starting->connection = backend().connectionNumber();
    }
    m_starting->handler = std::move(handler);
    if (!m_starting->reading || !m_starting->reading->isStillTrue()) {
        m_starting->reading = std::make_unique<FormatReading>(m_camera.impl(), m_device);
    }
}

int ZQAcquisition::Impl::advance(Clock::time_point deadline)
{
    for (;;) {
        if (m_camera.isLost()) {
            return fail(backend().loss());
        }
        if (const Status status = step(deadline); !status.isOk()) {
            return fail(status);
        }
        if (m_delivery) {
            m_starting.reset();
            return succeed();
        }
        if (Clock::now() >= deadline) {
            return fail(Status::general(stillWorking));
        }
    }
}

Status ZQAcquisition::Impl::step(Clock::time_point deadline)
{
    if (!m_starting->reading->isOver()) {
        return m_starting->reading->step();
    }
    if (!isSameImage(m_starting->openedFor, m_starting->reading->format())) {
        return beginStream();
    }
    if (m_starting->source) {
        return startCamera();
    }
    auto source = m_starting->opening->finish(deadline);
    m_starting->source = std::move(source.value());
    return source.status();
}

Status ZQAcquisition::Impl::beginStream()
{
    const ImageFormat& format = m_starting->reading->format();
    m_starting->source.reset();
    m_starting->opening.reset();
    auto opening = backend().openFrames(format, m_starting->buffers);
    m_starting->opening = std::move(opening.value());
    m_starting->openedFor = opening.isOk() ? format : ImageFormat();
    return opening.status();
}

Status ZQAcquisition::Impl::startCamera()
{
    // Not waited for: a camera that is slow to begin shows it by its images.
    const int status = m_device.ExecuteCommand("AcquisitionStart", 0);
    m_starting->isSent = m_starting->isSent || status == cameraSlow;
    if (status == notSent || status == cameraSlow) {
        return Status::general(stillWorking);
    }
    if (status != STATUS_OK) {
        return refusal(status);
    }
    m_delivery = std::make_unique<FrameDelivery>(std::move(m_starting->source),
        m_starting->reading->format(), std::move(m_starting->handler), m_state);
    return {};
}

} // namespace featurebrowser
