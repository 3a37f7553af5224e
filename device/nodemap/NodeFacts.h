// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/Description.h"
#include "formula/Number.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zqcameralib {

/// Where a number comes from: from another node, or it stands in the description. One that stands
/// there is a variable that is kept here: writing changes it.
struct NumberSource {
    std::size_t node = Description::absent;
    std::optional<Number> constant;

    bool isGiven() const { return node != Description::absent || constant; }
};

/// What a node says about its value, apart from registers and formulas.
struct ValueFacts {
    NumberSource value;
    std::string text; ///< of a String that is kept here
    std::vector<std::size_t> copies; ///< written as well, never read
    /// The value is the one of several that stands at the present value of this node.
    std::size_t index = Description::absent;
    std::map<std::int64_t, NumberSource> indexed;
    NumberSource otherwise; ///< at any other value of the index
    NumberSource minimum, maximum, increment;
    std::int64_t on = 1, off = 0; ///< of a Boolean
    NumberSource command; ///< what a Command writes
    std::map<std::int64_t, double> numeric; ///< of an Enumeration: NumericValue by Value
};

/// Where a register is and what its bytes mean.
struct RegisterFacts {
    /// An index that is multiplied by a step; without one, by the register's length.
    struct Step {
        std::size_t index;
        NumberSource size;
    };

    std::uint64_t address = 0; ///< the sum of those given as numbers
    std::vector<std::size_t> addends; ///< nodes whose values are added to it
    std::vector<Step> steps;
    NumberSource length;
    bool isBigEndian = false;
    bool isSigned = false;
    bool isBitField = false;
    bool isReadable = true;
    bool isChunkOrEventData = false; ///< no register of the camera
    NumberSource chunkId; ///< which of an image's chunks it is in; none for events
    /// As the description counts them: from the least significant bit where the register is little
    /// endian, from the most significant one where it is big endian.
    unsigned lsb = 0, msb = 0;
};

/// Whether the node's value is one of several, at the value of an index.
bool isIndexed(const DescriptionNode& node);

// Of a checked description.
ValueFacts valueFacts(const Description& description, std::size_t node);
RegisterFacts registerFacts(const Description& description, std::size_t node);

} // namespace zqcameralib
