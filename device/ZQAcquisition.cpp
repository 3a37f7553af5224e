#include "featurebrowser/ZQAcquisition.h"

#include "Camera.h"
#include "CameraLink.h"
#include "FrameSize.h"
#include "GlibError.h"
#include "SimulatedFrames.h"
#include "StatusCodes.h"
#include "StreamFrames.h"

#include "featurebrowser/ICameraDevice.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <thread>
#include <utility>

namespace featurebrowser {

using namespace zqcameralib;

namespace {

constexpr std::int64_t maxPayload = std::int64_t(1) << 31U;

/// The first of these floats that the camera has; 0 when it has none.
double firstFloat(ICameraDevice& device, std::initializer_list<const char*> names)
{
    for (const char* name : names) {
        double value = 0.0;
        if (device.GetFloatValue(name, &value) == STATUS_OK) {
            return value;
        }
    }
    return 0.0;
}

std::int64_t enumValue(ZQCamera::Impl& camera, const char* name)
{
    const Feature* feature = camera.feature(name);
    if (feature == nullptr || !ARV_IS_GC_ENUMERATION(feature->gc)) {
        return 0;
    }
    GlibError ignored;
    return arv_gc_enumeration_get_int_value(ARV_GC_ENUMERATION(feature->gc), ignored.out());
}

std::string enumEntry(ZQCamera::Impl& camera, const char* name)
{
    const Feature* feature = camera.feature(name);
    const std::int64_t value = enumValue(camera, name);
    if (feature != nullptr) {
        for (const EnumEntry& entry : feature->entries) {
            if (entry.value == value) {
                return entry.name;
            }
        }
    }
    return {};
}

std::uint64_t frameLimit(ZQCamera::Impl& camera, ICameraDevice& device)
{
    const std::string mode = enumEntry(camera, "AcquisitionMode");
    long count = 1;
    if (mode == "MultiFrame"
        && device.GetIntegerValue("AcquisitionFrameCount", &count) != STATUS_OK) {
        count = 1;
    }
    const bool isLimited = mode == "SingleFrame" || mode == "MultiFrame";
    return isLimited ? static_cast<std::uint64_t>(std::max(count, 1L)) : 0;
}

/// False when the camera does not tell an image size that can be had.
bool readFormat(ZQCamera::Impl& camera, ICameraDevice& device, ImageFormat& format)
{
    long width = 0;
    long height = 0;
    long payload = 0;
    if (device.GetIntegerValue("Width", &width) != STATUS_OK
        || device.GetIntegerValue("Height", &height) != STATUS_OK || width <= 0 || height <= 0
        || width > 100000 || height > 100000) {
        return false;
    }
    format.width = width;
    format.height = height;
    format.pixelFormat = static_cast<std::uint32_t>(enumValue(camera, "PixelFormat"));
    if (device.GetIntegerValue("PayloadSize", &payload) != STATUS_OK || payload <= 0) {
        payload = static_cast<long>(imageBytes(static_cast<std::uint64_t>(width),
            static_cast<std::uint64_t>(height), format.pixelFormat));
    }
    format.payload = static_cast<std::size_t>(payload);
    format.framesPerSecond = firstFloat(device,
        { "AcquisitionResultingFrameRate", "AcquisitionFrameRate", "AcquisitionFrameRateAbs" });
    format.frameLimit = frameLimit(camera, device);
    return payload <= maxPayload
        && rowsWithin(format.payload, width, height, format.pixelFormat) > 0;
}

} // namespace

class ZQAcquisition::Impl {
public:
    Impl(ZQCamera& camera, ICameraDevice& device)
        : m_camera(camera)
        , m_device(device)
    {
    }

    int start(FrameHandler handler, int buffers)
    {
        if (m_source) {
            return STATUS_OK;
        }
        ImageFormat format;
        if (!readFormat(m_camera.impl(), m_device, format)) {
            return m_camera.isLost() ? cameraLost : noImage;
        }
        AccessError error;
        m_source = makeSource(format, std::clamp(buffers, 2, 1000), error);
        if (!m_source) {
            return error.code;
        }
        m_stop = false;
        m_delivered = m_incomplete = m_lost = 0;
        m_thread = std::thread([this, handle = std::move(handler)] { deliver(handle); });
        const int status = m_device.ExecuteCommand("AcquisitionStart", 1);
        if (status != STATUS_OK) {
            end();
        }
        return status;
    }

    int stop()
    {
        if (!m_source) {
            return STATUS_OK;
        }
        const int status = m_device.ExecuteCommand("AcquisitionStop", 1);
        end();
        return status;
    }

    bool isRunning() const { return m_isRunning; }
    ZQFrameCounters counters() const { return { m_delivered, m_incomplete, m_lost }; }

private:
    std::unique_ptr<FrameSource> makeSource(
        const ImageFormat& format, int buffers, AccessError& error)
    {
        auto* link = dynamic_cast<CameraLink*>(&m_camera.impl().port().backend());
        if (link == nullptr) {
            return std::make_unique<SimulatedFrames>(format);
        }
        return StreamFrames::open(*link, format, buffers, error);
    }

    void end()
    {
        m_stop = true;
        m_thread.join();
        m_source.reset();
    }

    void deliver(const FrameHandler& handler)
    {
        m_isRunning = true;
        while (!m_stop) {
            ZQFrame frame;
            const FrameSource::Outcome outcome = m_source->next(frame);
            m_lost = m_source->lost();
            if (outcome == FrameSource::Outcome::Incomplete) {
                ++m_incomplete;
            } else if (outcome == FrameSource::Outcome::Complete && !m_stop) {
                if (handler) {
                    handler(frame);
                }
                ++m_delivered;
            }
        }
        m_isRunning = false;
    }

    ZQCamera& m_camera;
    ICameraDevice& m_device;
    std::unique_ptr<FrameSource> m_source; ///< there while an acquisition runs
    std::thread m_thread;
    std::atomic<bool> m_stop { false };
    std::atomic<bool> m_isRunning { false };
    std::atomic<std::uint64_t> m_delivered { 0 };
    std::atomic<std::uint64_t> m_incomplete { 0 };
    std::atomic<std::uint64_t> m_lost { 0 };
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
    return m_impl->start(std::move(handler), buffers);
}

int ZQAcquisition::stop()
{
    return m_impl->stop();
}

bool ZQAcquisition::isRunning() const
{
    return m_impl->isRunning();
}

ZQFrameCounters ZQAcquisition::counters() const
{
    return m_impl->counters();
}

} // namespace featurebrowser
