#include "registers/RegisterBackend.h"

#include "base/StatusCodes.h"
#include "frames/FrameSource.h"

#include <utility>

namespace zqcameralib {

namespace {

/// Registers that cost nothing are read at once.
class ReadAlready : public RegisterBackend::Reading {
public:
    explicit ReadAlready(RegisterBackend::Requests requests)
        : m_requests(std::move(requests))
    {
    }
    RegisterBackend::Requests takeFinished() override { return std::exchange(m_requests, {}); }

private:
    RegisterBackend::Requests m_requests;
};

} // namespace

std::unique_ptr<RegisterBackend::Reading> RegisterBackend::readBeside(Requests requests)
{
    for (Request& request : requests) {
        request.status = read(request.place, request.bytes.data(), request.kind);
        request.isDone = request.status.isOk();
    }
    return std::make_unique<ReadAlready>(std::move(requests));
}

Result<std::unique_ptr<FrameSourceOpening>> RegisterBackend::openFrames(
    const ImageFormat& /*format*/, int /*buffers*/)
{
    return Status(noImage, "there are registers only");
}

} // namespace zqcameralib
