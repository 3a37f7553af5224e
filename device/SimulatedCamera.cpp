#include "SimulatedCamera.h"

#include "RegisterMemory.h"

namespace zqcameralib {

namespace {

class SimulatedCamera : public CameraBehaviour {
public:
    void start(RegisterMemory& memory) override;
    void beforeRead(RegisterMemory& memory, std::uint64_t address, std::size_t size) override;
    void afterWrite(RegisterMemory& memory, std::uint64_t address, std::size_t size) override;
};

void SimulatedCamera::start(RegisterMemory& /*memory*/) { }

void SimulatedCamera::beforeRead(
    RegisterMemory& /*memory*/, std::uint64_t /*address*/, std::size_t /*size*/)
{
}

void SimulatedCamera::afterWrite(
    RegisterMemory& /*memory*/, std::uint64_t /*address*/, std::size_t /*size*/)
{
}

} // namespace

std::unique_ptr<CameraBehaviour> makeSimulatedCameraBehaviour()
{
    return std::make_unique<SimulatedCamera>();
}

} // namespace zqcameralib
