// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "opening/SimulatedOpening.h"

#include "description/ReferenceWalk.h"
#include "memory/CommandBehaviour.h"
#include "memory/MemoryBackend.h"
#include "nodemap/RegisterCodec.h"
#include "opening/InitialImage.h"
#include "opening/InitialRegisters.h"
#include "opening/SceneReading.h"

#include <utility>

namespace zqcameralib {

namespace {

void addCommand(CommandBehaviour& behaviour, ZQCamera::Impl& camera, const Feature& feature,
    const Register& place)
{
    const Description& description = camera.description();
    const RegisterFacts facts
        = registerFacts(description, valueChain(description, feature.commandRegister).back());
    const std::optional<Number> run = valueFacts(description, feature.index).command.constant;
    if (!run || !holdsInteger(facts, place.size)) {
        return;
    }
    std::vector<std::uint8_t> bits(place.size);
    std::vector<std::uint8_t> value(place.size);
    encodeInteger(facts, -1, bits.data(), bits.size());
    encodeInteger(facts, run->integer, value.data(), value.size());
    behaviour.addCommand(place, std::move(bits), std::move(value));
}

void addCommands(ZQCamera::Impl& camera, CommandBehaviour& behaviour)
{
    for (const Feature& feature : camera.features()) {
        if (feature.commandRegister == Description::absent) {
            continue;
        }
        const RegisterPort::Recorder recorder(camera.port());
        const Result<Number> value = camera.nodes().number(feature.commandRegister);
        if (value.isOk() && !recorder.read.empty()) {
            addCommand(behaviour, camera, feature, recorder.read.back());
        }
    }
}

/// Over a backend whose images follow the camera's settings.
Result<std::unique_ptr<ZQCamera::Impl>> openWithImages(
    std::string text, std::unique_ptr<MemoryBackend> backend)
{
    MemoryBackend& memory = *backend; // the camera owns it
    Result<std::unique_ptr<ZQCamera::Impl>> camera = openOver(std::move(text), std::move(backend));
    if (camera.isOk()) {
        memory.setSettingsReader([&opened = *camera.value()] { return readScene(opened); });
    }
    return camera;
}

} // namespace

Result<std::unique_ptr<ZQCamera::Impl>> openSimulated(
    std::string text, std::unique_ptr<CameraBehaviour> behaviour)
{
    return openWithImages(std::move(text), std::make_unique<MemoryBackend>(std::move(behaviour)));
}

Result<std::unique_ptr<ZQCamera::Impl>> openDescription(std::string text)
{
    auto behaviour = std::make_unique<CommandBehaviour>();
    CommandBehaviour& commands = *behaviour;
    auto backend = std::make_unique<MemoryBackend>(std::move(behaviour));
    RegisterMemory& memory = backend->memory();
    Result<std::unique_ptr<ZQCamera::Impl>> camera
        = openWithImages(std::move(text), std::move(backend));
    if (camera.isOk()) {
        chooseInitialRegisters(*camera.value(), memory);
        chooseInitialImage(*camera.value(), memory);
        addCommands(*camera.value(), commands);
    }
    return camera;
}

} // namespace zqcameralib
