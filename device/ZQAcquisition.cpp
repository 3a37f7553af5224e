#include "featurebrowser/ZQAcquisition.h"

#include "acquisition/FormatReading.h"
#include "acquisition/FrameDelivery.h"
#include "acquisition/StartTask.h"
#include "base/StatusCodes.h"
#include "camera/Camera.h"

#include "featurebrowser/ICameraDevice.h"

#include <algorithm>
#include <utility>

namespace featurebrowser {

using namespace zqcameralib;

static_assert(ZQAcquisition::stillStarting == stillWorking);

namespace {

using Clock = std::chrono::steady_clock;

/// How long one call may wait. What it began goes on, and the next call continues it.
constexpr std::chrono::milliseconds startLimit(1200);

/// A start on its way, which may take several calls.
struct Starting {
    int buffers = 0;
    std::uint64_t connection = 0; ///< number of the connection when it began
    ZQAcquisition::FrameHandler handler;
    std::unique_ptr<FormatReading> reading;
    std::unique_ptr<FrameSourceOpening> opening;
    ImageFormat openedFor;
    std::unique_ptr<FrameSource> source;
    bool isSent = false; ///< the camera was told, but has not confirmed it
};

bool isSameImage(const ImageFormat& one, const ImageFormat& other)
{
    return one.width == other.width && one.height == other.height
        && one.pixelFormat == other.pixelFormat && one.payload == other.payload;
}

} // namespace

class ZQAcquisition::Impl {
public:
    Impl(ZQCamera& camera, ICameraDevice& device)
        : m_camera(camera)
        , m_device(device)
    {
    }

    int start(FrameHandler handler, int buffers, std::chrono::milliseconds limit)
    {
        if (m_state.isRunning) {
            return succeed();
        }
        if (m_delivery) {
            stop(); // what has ended by itself
        }
        const CallScope call(backend());
        prepare(std::move(handler), std::clamp(buffers, 2, 1000));
        return advance(Clock::now() + limit);
    }

    int stop()
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

    void giveUp()
    {
        if (m_starting && m_starting->isSent) {
            m_device.ExecuteCommand("AcquisitionStop", 0);
        }
        m_starting.reset();
    }
    const AcquisitionState& state() const { return m_state; }
    ZQCamera::Impl& camera() { return m_camera.impl(); }

private:
    int succeed()
    {
        m_state.setLastError({});
        return STATUS_OK;
    }

    int fail(const Status& failure)
    {
        m_state.setLastError(failure.text());
        if (failure.code() != stillWorking) {
            m_starting.reset();
        }
        return m_camera.impl().note(failure);
    }

    Status refusal(int code) { return { code, deviceText(m_device, code) }; }
    RegisterBackend& backend() { return m_camera.impl().port().backend(); }

    /// Goes on with a start begun before where that still fits, else begins one.
    void prepare(FrameHandler handler, int buffers)
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

    /// Gets one step further also when there is no time at all.
    int advance(Clock::time_point deadline)
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

    Status step(Clock::time_point deadline)
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

    Status beginStream()
    {
        const ImageFormat& format = m_starting->reading->format();
        m_starting->source.reset();
        m_starting->opening.reset();
        auto opening = backend().openFrames(format, m_starting->buffers);
        m_starting->opening = std::move(opening.value());
        m_starting->openedFor = opening.isOk() ? format : ImageFormat();
        return opening.status();
    }

    Status startCamera()
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

    ZQCamera& m_camera;
    ICameraDevice& m_device;
    AcquisitionState m_state;
    std::unique_ptr<Starting> m_starting;
    std::unique_ptr<FrameDelivery> m_delivery; ///< there from a successful start until stop()
};

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
    return m_impl->start(std::move(handler), buffers, startLimit);
}

std::unique_ptr<ZQCameraTask> ZQAcquisition::StartBeside(FrameHandler handler, int buffers)
{
    Impl* impl = m_impl.get();
    StartTask::Steps steps;
    steps.goOn = [impl, handle = std::move(handler), buffers] {
        return impl->start(handle, buffers, std::chrono::milliseconds(0));
    };
    steps.giveUp = [impl] { impl->giveUp(); };
    steps.error = [impl] { return impl->state().lastError(); };
    return std::make_unique<StartTask>(impl->camera(), std::move(steps));
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
    const AcquisitionState& state = m_impl->state();
    return { state.delivered, state.incomplete, state.lost };
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
