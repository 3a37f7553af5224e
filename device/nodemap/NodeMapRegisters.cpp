// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/StatusCodes.h"
#include "description/RegisterPlace.h"
#include "nodemap/NodeMapFacts.h"
#include "words/Words.h"

#include <algorithm>

namespace zqcameralib {

Result<std::size_t> NodeMap::readLength(std::size_t node)
{
    const RegisterFacts& facts = registerFactsOf(node);
    if (!facts.length.isGiven()) {
        return std::size_t(4);
    }
    const Result<Number> told = sourceNumber(facts.length);
    if (!told.isOk()) {
        return told.status();
    }
    const std::int64_t most = isByteRegister(this->node(node).kind) ? maxRegisterLength : 8;
    return static_cast<std::size_t>(std::clamp<std::int64_t>(told.value().integer, 0, most));
}

Result<std::size_t> NodeMap::length(std::size_t index)
{
    const Visit visit(*this);
    if (node(index).isBroken()) {
        return Status(notEvaluable, node(index).broken);
    }
    return readLength(index);
}

Result<Register> NodeMap::place(std::size_t index)
{
    const Result<std::size_t> size = readLength(index);
    if (!size.isOk()) {
        return size.status();
    }
    const RegisterFacts& facts = registerFactsOf(index);
    Register place { facts.address, size.value() };
    for (const std::size_t addend : facts.addends) {
        const Result<Number> value = number(addend);
        if (!value.isOk()) {
            return value.status();
        }
        place.address += static_cast<std::uint64_t>(value.value().rounded().value_or(0));
    }
    for (const RegisterFacts::Step& step : facts.steps) {
        const Result<Number> at = number(step.index);
        const Result<Number> stride = step.size.isGiven()
            ? sourceNumber(step.size)
            : Number::of(static_cast<std::int64_t>(place.size));
        if (!at.isOk() || !stride.isOk()) {
            return at.isOk() ? stride.status() : at.status();
        }
        place.address += static_cast<std::uint64_t>(at.value().rounded().value_or(0))
            * static_cast<std::uint64_t>(stride.value().rounded().value_or(0));
    }
    return place;
}

Result<std::uint64_t> NodeMap::chunkId(std::size_t reg)
{
    const NumberSource& source = registerFactsOf(reg).chunkId;
    if (!source.isGiven()) {
        return Status(notEvaluable, translated("it does not come with images"));
    }
    const Result<Number> id = sourceNumber(source);
    return id.isOk() ? Result<std::uint64_t>(static_cast<std::uint64_t>(id.value().integer))
                     : id.status();
}

Result<std::uint8_t*> NodeMap::inChunk(std::size_t reg, const Register& place)
{
    const Result<std::uint64_t> id = chunkId(reg);
    if (!id.isOk()) {
        return id.status();
    }
    const auto chunk = m_chunks->find(id.value());
    const bool isThere = chunk != m_chunks->end() && place.size <= chunk->second.size()
        && place.address <= chunk->second.size() - place.size;
    return isThere ? Result<std::uint8_t*>(chunk->second.data() + place.address)
                   : Status(notEvaluable, translated("it did not come with this image"));
}

Result<std::vector<std::uint8_t>> NodeMap::readBytes(std::size_t index)
{
    if (m_chunks == nullptr && registerFactsOf(index).isChunkOrEventData) {
        return Status(notEvaluable, translated("it comes only with images or events"));
    }
    const Result<Register> place = this->place(index);
    if (!place.isOk()) {
        return place.status();
    }
    if (registerFactsOf(index).isChunkOrEventData) {
        const Result<std::uint8_t*> at = inChunk(index, place.value());
        using Bytes = std::vector<std::uint8_t>;
        return at.isOk() ? Result<Bytes>(Bytes(at.value(), at.value() + place.value().size))
                         : at.status();
    }
    std::vector<std::uint8_t> bytes(place.value().size);
    const Status status = bytes.empty() ? Status() : m_port.read(place.value(), bytes.data());
    return status.isOk() ? Result<std::vector<std::uint8_t>>(std::move(bytes)) : status;
}

Status NodeMap::writeBytes(std::size_t index, const std::vector<std::uint8_t>& bytes)
{
    const Result<Register> place = this->place(index);
    if (!place.isOk()) {
        return place.status();
    }
    m_found.clear();
    if (place.value().size != bytes.size()) { // the length has changed since
        return { notEvaluable, translated("its register has another length now") };
    }
    if (m_chunks == nullptr || !registerFactsOf(index).isChunkOrEventData) {
        return m_port.write(place.value(), bytes.data());
    }
    const Result<std::uint8_t*> at = inChunk(index, place.value());
    if (at.isOk()) {
        std::copy(bytes.begin(), bytes.end(), at.value());
    }
    return at.status();
}

/// The register's present content, where only some bits of it are to be changed; zeros where nobody
/// can read it.
Result<std::vector<std::uint8_t>> NodeMap::bytesToChange(std::size_t index)
{
    const RegisterFacts& facts = registerFactsOf(index);
    if (facts.isBitField) {
        std::optional<bool>& isReadable = this->facts(index).isSharedReadable;
        if (!isReadable) {
            isReadable = facts.isReadable || isReadableByOthers(m_description, index);
        }
        if (*isReadable) {
            return readBytes(index);
        }
    }
    const Result<std::size_t> size = readLength(index);
    return size.isOk() ? Result<std::vector<std::uint8_t>>(std::vector<std::uint8_t>(size.value()))
                       : size.status();
}

Result<std::vector<std::uint8_t>> NodeMap::bytes(std::size_t index, std::size_t most)
{
    const Visit visit(*this);
    const Result<std::size_t> size = length(index);
    if (!size.isOk() || size.value() > most) {
        return size.isOk() ? Status(notEvaluable, translated("it has too many bytes to be shown"))
                           : size.status();
    }
    return readBytes(index);
}

Result<std::string> NodeMap::text(std::size_t index)
{
    const Visit visit(*this);
    if (node(index).kind == NodeKind::String) {
        const ValueFacts& facts = valueFactsOf(index);
        return facts.value.node == Description::absent ? facts.text : text(facts.value.node);
    }
    const Result<std::vector<std::uint8_t>> bytes = readBytes(index);
    if (!bytes.isOk()) {
        return bytes.status();
    }
    const auto& all = bytes.value();
    return std::string(all.begin(), std::find(all.begin(), all.end(), std::uint8_t(0)));
}

Status NodeMap::setText(std::size_t index, const std::string& text)
{
    const Visit visit(*this);
    if (node(index).kind == NodeKind::String) {
        valueFactsOf(index);
        ValueFacts& facts = *this->facts(index).value;
        if (facts.value.node != Description::absent) {
            return setText(facts.value.node, text);
        }
        facts.text = text;
        return {};
    }
    const Result<std::size_t> size = readLength(index);
    if (!size.isOk()) {
        return size.status();
    }
    std::vector<std::uint8_t> bytes(text.begin(), text.end());
    bytes.resize(size.value()); // the rest is cleared
    return writeBytes(index, bytes);
}

} // namespace zqcameralib
