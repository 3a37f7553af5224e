// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "nodemap/NodeMap.h"

namespace zqcameralib {

/// What is known of a node once it was needed.
struct NodeMap::Facts {
    std::optional<ValueFacts> value;
    std::optional<RegisterFacts> place;
    std::optional<FormulaProgram> program;
    /// Bits that can only be written, in a register that others may read.
    std::optional<bool> isSharedReadable;
};

/// Counts the nodes that an evaluation comes to, while it lives, so that none goes on for ever:
/// limits may lead back to where an evaluation began, which no check of values alone finds.
class NodeMap::Visit {
public:
    explicit Visit(NodeMap& nodes);
    Visit(const Visit&) = delete;
    Visit& operator=(const Visit&) = delete;
    ~Visit()
    {
        if (--m_nodes.m_depth == 0) {
            m_nodes.m_found.clear();
        }
    }

    Status status() const;

private:
    NodeMap& m_nodes;
};

} // namespace zqcameralib
