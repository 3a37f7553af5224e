// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "opening/SimulatedChunks.h"

#include "chunks/ChunkNodes.h"
#include "opening/FeatureValues.h"

#include <algorithm>
#include <initializer_list>
#include <map>
#include <set>
#include <string_view>
#include <utility>

namespace zqcameralib {

using featurebrowser::ZQFrame;
using featurebrowser::ZQFrameChunk;

namespace {

constexpr std::uint64_t mostBytes = 65536; ///< of a chunk; what is larger is an image
constexpr std::string_view prefix = "Chunk";

/// "Gain" of ChunkGain.
std::string subjectOf(const Feature& feature)
{
    const std::string_view name = feature.name;
    const bool isNamed = name.substr(0, prefix.size()) == prefix;
    return std::string(isNamed ? name.substr(prefix.size()) : name);
}

bool isOneOf(const std::string& subject, std::initializer_list<std::string_view> names)
{
    return std::find(names.begin(), names.end(), subject) != names.end();
}

/// What ChunkEnable says at each entry of ChunkSelector.
std::map<std::string, bool> readChoice(ZQCamera::Impl& camera)
{
    std::map<std::string, bool> choice;
    const Feature* selector = camera.feature("ChunkSelector");
    if (selector == nullptr || camera.feature("ChunkEnable") == nullptr) {
        return choice;
    }
    for (const EnumEntry& entry : selector->entries) {
        const AsIfSelected selected(camera, "ChunkSelector", entry.name);
        if (selected.isPossible()) {
            choice[entry.name] = FeatureValues(camera).isOn({ "ChunkEnable" });
        }
    }
    return choice;
}

class SimulatedChunks : public FrameChunks {
public:
    explicit SimulatedChunks(ZQCamera::Impl& camera);

    const std::vector<ZQFrameChunk>& of(const ZQFrame& frame) override;
    bool isEmpty() const { return m_sent.empty(); }

private:
    std::set<std::uint64_t> unwanted(const std::map<std::string, bool>& choice);
    void makeRoom(std::size_t reg, const std::set<std::uint64_t>& unwanted);
    void fill(ZQCamera::Impl& camera, const Feature& feature);
    void setCount(const Feature& feature, std::uint64_t count);

    ChunkNodes m_chunks;
    std::vector<const Feature*> m_numbers, m_times; ///< of which each image has its own
    std::vector<ZQFrameChunk> m_sent;
};

SimulatedChunks::SimulatedChunks(ZQCamera::Impl& camera)
    : m_chunks(camera, isValueReference | isLimit)
{
    const std::set<std::uint64_t> unwanted = this->unwanted(readChoice(camera));
    for (const ChunkNodes::ChunkFeature& one : m_chunks.features()) {
        for (const std::size_t reg : one.registers) {
            makeRoom(reg, unwanted);
        }
    }
    for (const ChunkNodes::ChunkFeature& one : m_chunks.features()) {
        fill(camera, one.feature);
    }
    for (const auto& [id, bytes] : m_chunks.bytes()) {
        m_sent.push_back({ id, bytes.data(), bytes.size() });
    }
}

/// Ids of chunks that are offered and not asked for. What is not offered comes in any case, except
/// for the image, which is no chunk of ours.
std::set<std::uint64_t> SimulatedChunks::unwanted(const std::map<std::string, bool>& choice)
{
    std::set<std::uint64_t> refused;
    std::set<std::uint64_t> wanted;
    for (const ChunkNodes::ChunkFeature& one : m_chunks.features()) {
        const Result<std::uint64_t> id = m_chunks.nodes().chunkId(one.registers.front());
        const std::string subject = subjectOf(one.feature);
        const auto chosen = choice.find(subject);
        if (subject == "Image" || (chosen != choice.end() && !chosen->second)) {
            refused.insert(id.value());
        } else if (chosen != choice.end()) {
            wanted.insert(id.value());
        }
    }
    for (const std::uint64_t id : wanted) {
        refused.erase(id);
    }
    return refused;
}

void SimulatedChunks::makeRoom(std::size_t reg, const std::set<std::uint64_t>& unwanted)
{
    const Result<std::uint64_t> id = m_chunks.nodes().chunkId(reg);
    const Result<Register> place = m_chunks.nodes().place(reg);
    if (!id.isOk() || !place.isOk() || unwanted.count(id.value()) != 0
        || place.value().address > mostBytes || place.value().size > mostBytes) {
        return;
    }
    std::vector<std::uint8_t>& bytes = m_chunks.bytes()[id.value()];
    bytes.resize(std::max<std::size_t>(bytes.size(), place.value().address + place.value().size));
}

/// With what the camera's own feature says, of all its channels where it has several.
void SimulatedChunks::fill(ZQCamera::Impl& camera, const Feature& feature)
{
    const std::string subject = subjectOf(feature);
    if (isOneOf(subject, { "FrameID", "FrameCounter", "Framecounter", "ImageNumber" })) {
        m_numbers.push_back(&feature);
        return;
    }
    if (isOneOf(subject, { "Timestamp", "TimeStamp" })) {
        m_times.push_back(&feature);
        return;
    }
    const std::string selector = subject + "Selector";
    const AsIfSelected all(camera, selector.c_str(), "All");
    if (const auto value = FeatureValues(camera).find({ subject.c_str() })) {
        const Result<Number> number = camera.nodes().number(value->feature->index);
        (void)m_chunks.nodes().set(feature.index, number.value());
    }
}

/// Counters are as long as their registers, and begin anew.
void SimulatedChunks::setCount(const Feature& feature, std::uint64_t count)
{
    for (const std::uint64_t most : { std::uint64_t(INT64_MAX), std::uint64_t(UINT32_MAX),
             std::uint64_t(UINT16_MAX), std::uint64_t(UINT8_MAX) }) {
        const auto value = static_cast<std::int64_t>(count & most);
        if (m_chunks.nodes().set(feature.index, Number::of(value)).isOk()) {
            return;
        }
    }
}

const std::vector<ZQFrameChunk>& SimulatedChunks::of(const ZQFrame& frame)
{
    for (const Feature* number : m_numbers) {
        setCount(*number, frame.frameId);
    }
    for (const Feature* time : m_times) {
        setCount(*time, frame.timestampNs);
    }
    return m_sent;
}

} // namespace

std::shared_ptr<FrameChunks> readChunks(ZQCamera::Impl& camera)
{
    if (!FeatureValues(camera).isOn({ "ChunkModeActive" })) {
        return nullptr;
    }
    auto chunks = std::make_shared<SimulatedChunks>(camera);
    return chunks->isEmpty() ? nullptr : chunks;
}

} // namespace zqcameralib
