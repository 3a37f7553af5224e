#include "opening/SimulatedOpening.h"

#include "base/GlibError.h"
#include "memory/CommandBehaviour.h"
#include "memory/MemoryBackend.h"
#include "opening/InitialRegisters.h"

#include <utility>

namespace zqcameralib {

namespace {

void addCommandRegisters(ZQCamera::Impl& camera, CommandBehaviour& behaviour)
{
    for (const Feature& feature : camera.features()) {
        if (feature.commandRegister == nullptr) {
            continue;
        }
        const RegisterPort::Recorder recorder(camera.port());
        GlibError error;
        arv_gc_integer_get_value(ARV_GC_INTEGER(feature.commandRegister), error.out());
        if (!error && !recorder.read.empty()) {
            const RegisterPort::Register& last = recorder.read.back();
            behaviour.addCommandRegister(last.first, last.second);
        }
    }
}

} // namespace

std::unique_ptr<ZQCamera::Impl> openSimulated(
    std::string text, std::unique_ptr<CameraBehaviour> behaviour, std::string& error)
{
    return openOver(std::move(text), std::make_unique<MemoryBackend>(std::move(behaviour)), error);
}

std::unique_ptr<ZQCamera::Impl> openDescription(std::string text, std::string& error)
{
    auto behaviour = std::make_unique<CommandBehaviour>();
    CommandBehaviour& commands = *behaviour;
    auto backend = std::make_unique<MemoryBackend>(std::move(behaviour));
    RegisterMemory& memory = backend->memory();
    std::unique_ptr<ZQCamera::Impl> camera = openOver(std::move(text), std::move(backend), error);
    if (camera) {
        chooseInitialRegisters(*camera, memory);
        addCommandRegisters(*camera, commands);
    }
    return camera;
}

} // namespace zqcameralib
