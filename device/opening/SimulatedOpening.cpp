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

void addCommands(ZQCamera::Impl& camera, CommandBehaviour& behaviour)
{
    const Description& description = camera.description();
    for (const DescriptionNode& node : description.nodes()) {
        const Feature* command
            = node.kind == NodeKind::Command ? camera.anyFeature(node.name) : nullptr;
        if (command == nullptr || command->commandRegister == Description::absent) {
            continue;
        }
        const std::size_t reg = valueChain(description, command->commandRegister).back();
        const RegisterFacts facts = registerFacts(description, reg);
        const Result<std::size_t> length = camera.nodes().length(reg);
        if (length.isOk() && holdsInteger(facts, length.value())) {
            std::vector<std::uint8_t> bits(length.value());
            encodeInteger(facts, -1, bits.data(), bits.size());
            behaviour.addCommand(command->name, std::move(bits));
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
