#include "registers/RegisterBackend.h"

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
        request.done = read(request.address, request.bytes.data(), request.bytes.size(),
            request.kind, request.error);
    }
    return std::make_unique<ReadAlready>(std::move(requests));
}

} // namespace zqcameralib
