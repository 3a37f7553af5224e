// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "chunks/ChunkNodes.h"

#include "base/StatusCodes.h"
#include "description/ReferenceWalk.h"
#include "description/RegisterPlace.h"
#include "words/Words.h"

#include <algorithm>
#include <set>
#include <utility>

namespace zqcameralib {

namespace {

bool isOnChunkPort(const Description& description, std::size_t node)
{
    return isRegister(description.node(node).kind)
        && registerFacts(description, node).chunkId.isGiven();
}

/// Reads what can be read; a value that needs the rest is not there.
RegisterPort::KnownRegisters readAll(ZQCamera::Impl& camera, const std::set<std::size_t>& sources)
{
    RegisterPort& port = camera.port();
    const CallScope call(port.backend());
    const RegisterPort::Pass pass(port);
    const RegisterPort::Recorder recorder(port);
    for (const std::size_t source : sources) {
        (void)camera.nodes().number(source);
    }
    RegisterPort::KnownRegisters known;
    for (const Register& place : Registers(recorder.read)) {
        std::vector<std::uint8_t> bytes(place.size);
        if (known.count(place) == 0 && port.read(place, bytes.data()).isOk()) {
            known[place].bytes = std::move(bytes);
        }
    }
    return known;
}

} // namespace

/// What was read once, and nothing else.
class ChunkNodes::KnownRegisters : public RegisterBackend {
public:
    explicit KnownRegisters(RegisterPort::KnownRegisters known)
        : m_known(std::move(known))
    {
    }

    Status read(const Register& place, std::uint8_t* buffer, AccessKind /*kind*/) override
    {
        const auto found = m_known.find(place);
        if (found == m_known.end()) {
            return { notEvaluable, translated("it was not known when the images began") };
        }
        std::copy(found->second.bytes.begin(), found->second.bytes.end(), buffer);
        return {};
    }
    Status write(const Register&, const std::uint8_t*, AccessKind) override
    {
        return { notWritable, translated("it is a register of the camera") };
    }

private:
    RegisterPort::KnownRegisters m_known;
};

ChunkNodes::ChunkNodes(ZQCamera::Impl& camera, ReferenceTags isFollowed)
    : m_description(camera.sharedDescription())
{
    std::set<std::size_t> others;
    for (const Feature& feature : camera.features()) {
        if (!feature.isChunkOrEventData || !feature.isUsable()) {
            continue;
        }
        ChunkFeature found { feature, {} };
        std::vector<std::size_t> ofCamera;
        for (const std::size_t node : reachable(*m_description, feature.index, isFollowed)) {
            if (isOnChunkPort(*m_description, node)) {
                found.registers.push_back(node);
            } else if (hasNumber(m_description->node(node).kind)) {
                ofCamera.push_back(node);
            }
        }
        if (!found.registers.empty()) {
            others.insert(ofCamera.begin(), ofCamera.end());
            m_features.push_back(std::move(found));
        }
    }
    m_port
        = std::make_unique<RegisterPort>(std::make_unique<KnownRegisters>(readAll(camera, others)));
    m_nodes = std::make_unique<NodeMap>(*m_description, *m_port);
    m_nodes->useChunks(m_bytes);
}

ChunkNodes::~ChunkNodes() = default;

} // namespace zqcameralib
