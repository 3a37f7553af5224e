// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "frames/FrameChunks.h"
#include "nodemap/FormulaProgram.h"
#include "nodemap/NodeFacts.h"
#include "registers/RegisterPort.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace zqcameralib {

/// What limits a number; nothing where nothing does.
struct Limits {
    std::optional<Number> minimum, maximum, increment;
};

/// The values of a checked description's nodes over a camera's registers, as the GenApi standard
/// (schema 1.1) defines them. Everything is read when it is asked for; what was read is shared by
/// the port's snapshot. Nodes are given by their index in the description. A failure says in its
/// text, without the node's name, why there is no value.
class NodeMap {
public:
    /// Both have to outlive it.
    NodeMap(const Description& description, RegisterPort& port);
    NodeMap(const NodeMap&) = delete;
    NodeMap& operator=(const NodeMap&) = delete;
    ~NodeMap();

    /// From now on, registers that come with images are read from, and written to, these chunks,
    /// which have to outlive it.
    void useChunks(ChunkBytes& chunks) { m_chunks = &chunks; }
    /// The id of the chunk that holds a register; a failure where none does.
    Result<std::uint64_t> chunkId(std::size_t reg);
    /// Where a register is at present, in the camera or in its chunk.
    Result<Register> place(std::size_t index);

    /// The value of anything that is a number: an integer, or a real one where it is a float. Of an
    /// enumeration the value of its entry; of a Boolean 1 or 0, or a failure when it is neither on
    /// nor off; of a command whether it is done.
    Result<Number> number(std::size_t index);
    /// Of an Integer or Float, or one of the nodes that those consist of.
    Result<Limits> limits(std::size_t index);
    /// The value of an Enumeration or Boolean as its source holds it.
    Result<Number> rawNumber(std::size_t node);
    /// Where the value comes from at present; Description::absent when it is kept here.
    Result<std::size_t> source(std::size_t node);

    /// Why `value` would not arrive as what it is; a success when it would. Sends nothing.
    Status check(std::size_t node, const Number& value);
    /// Writes it, to the nearest value that can be held where reals become integers.
    Status set(std::size_t node, const Number& value);
    Status execute(std::size_t command);

    /// Of a String or StringReg that is not broken, up to the first NUL. What is longer than its
    /// register is cut: length() tells before.
    Result<std::string> text(std::size_t index);
    Status setText(std::size_t index, const std::string& text);
    /// Of a Register, at most that many.
    Result<std::vector<std::uint8_t>> bytes(std::size_t index, std::size_t most);
    /// Of any register, in bytes.
    Result<std::size_t> length(std::size_t index);

    /// What the camera says by pError of the node and of those that its value comes from; a success
    /// when it says nothing.
    Status reportedError(std::size_t index);

private:
    enum class Sending { Nothing, Everything };
    class Visit;
    struct Facts;

    Facts& facts(std::size_t node);
    const ValueFacts& valueFactsOf(std::size_t node);
    const RegisterFacts& registerFactsOf(std::size_t node);
    const FormulaProgram& programOf(std::size_t node);
    const DescriptionNode& node(std::size_t index) const { return m_description.node(index); }

    Status errorOf(std::size_t index);
    Result<NumberSource*> selectedSource(std::size_t node);
    Result<Number> sourceNumber(const NumberSource& source, bool asReal = false);
    Result<Number> numericValue(std::size_t enumeration);
    Result<Number> booleanNumber(std::size_t node);
    Result<Number> commandIsDone(std::size_t node);
    Result<Number> findNumber(std::size_t index);
    Result<Number> valueOf(std::size_t index);
    Result<Number> evaluated(std::size_t node, FormulaProgram::Entry entry, const Number& input);
    Result<Number> symbolValue(const FormulaSymbol& symbol);
    Result<Number> convertedFrom(std::size_t converter);

    Result<Limits> limitsOf(std::size_t index);
    Result<Limits> ownLimits(std::size_t index);
    Result<Limits> registerLimits(std::size_t index);
    Limits entryLimits(std::size_t enumeration) const;
    Limits converterLimits(std::size_t converter, const Limits& raw);
    bool isFalling(std::size_t converter, const Limits& raw, const Limits& converted);

    Status put(std::size_t index, const Number& value, Sending sending);
    Status putSource(std::size_t index, const Number& value, Sending sending);
    Status putConverted(std::size_t converter, const Number& value, Sending sending);
    Status putRegister(std::size_t index, const Number& value, Sending sending);
    Result<Number> onGrid(std::size_t index, const Number& value);

    Result<std::uint8_t*> inChunk(std::size_t reg, const Register& place);
    Result<std::size_t> readLength(std::size_t node);
    Result<std::vector<std::uint8_t>> readBytes(std::size_t index);
    Status writeBytes(std::size_t index, const std::vector<std::uint8_t>& bytes);
    Result<std::vector<std::uint8_t>> bytesToChange(std::size_t index);

    const Description& m_description;
    RegisterPort& m_port;
    ChunkBytes* m_chunks = nullptr;
    std::vector<std::unique_ptr<Facts>> m_facts; ///< by node, made when first needed
    int m_depth = 0;
    std::uint64_t m_visits = 0; ///< of nodes, since the outermost call
    /// Values found since the outermost call, which many nodes may need; none after a write.
    std::unordered_map<std::size_t, Result<Number>> m_found;
};

} // namespace zqcameralib
