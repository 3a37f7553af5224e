#include "opening/SimulatedOpening.h"

#include "memory/CommandBehaviour.h"
#include "memory/MemoryBackend.h"
#include "opening/InitialRegisters.h"

#include <utility>

namespace zqcameralib {

namespace {

void addCommandRegisters(ZQCamera::Impl& camera, CommandBehaviour& behaviour)
{
    for (const Feature& feature : camera.features()) {
        if (feature.commandRegister == Description::absent) {
            continue;
        }
        const RegisterPort::Recorder recorder(camera.port());
        const Result<Number> value = camera.nodes().number(feature.commandRegister);
        if (value.isOk() && !recorder.read.empty()) {
            const Register& last = recorder.read.back();
            behaviour.addCommandRegister(last.address, last.size);
        }
    }
}

} // namespace

Result<std::unique_ptr<ZQCamera::Impl>> openSimulated(
    std::string text, std::unique_ptr<CameraBehaviour> behaviour)
{
    return openOver(std::move(text), std::make_unique<MemoryBackend>(std::move(behaviour)));
}

Result<std::unique_ptr<ZQCamera::Impl>> openDescription(std::string text)
{
    auto behaviour = std::make_unique<CommandBehaviour>();
    CommandBehaviour& commands = *behaviour;
    auto backend = std::make_unique<MemoryBackend>(std::move(behaviour));
    RegisterMemory& memory = backend->memory();
    Result<std::unique_ptr<ZQCamera::Impl>> camera = openOver(std::move(text), std::move(backend));
    if (camera.isOk()) {
        chooseInitialRegisters(*camera.value(), memory);
        addCommandRegisters(*camera.value(), commands);
    }
    return camera;
}

} // namespace zqcameralib
