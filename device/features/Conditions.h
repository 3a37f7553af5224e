// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/Description.h"
#include "nodemap/NodeMap.h"
#include "registers/RegisterPort.h"
#include "words/Words.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace zqcameralib {

/// What a node says of itself by pIsImplemented, pIsAvailable or pIsLocked.
struct Condition {
    ReferenceTag tag = ReferenceTag::IsAvailable;
    std::size_t owner = 0; ///< the node that says it
    std::size_t target = 0; ///< the node that decides: same target, same answer
    bool isOfCategory = false; ///< of one around the feature
};

/// Adds what a node itself says by `tag`, if anything: the first such reference that leads to a
/// node counts, and those that stand in the entries of an enumeration are not its own. A target
/// that is there already is not added again.
void addOwnCondition(std::vector<Condition>& conditions, const Description& description,
    std::size_t node, ReferenceTag tag);

/// What decides whether a node can be used, by all the nodes that its value comes from or is
/// calculated with; it is locked by those alone that its value passes through.
struct AccessConditions {
    std::vector<Condition> implementedIf;
    std::vector<Condition> availableIf;
    std::vector<Condition> lockedIf;
};
AccessConditions accessConditions(const Description& description, std::size_t node);

/// Evaluates conditions. Few nodes decide for many features, so an answer is kept as long as the
/// registers read for it are.
class Conditions {
public:
    enum class Truth { No, Yes, Unknown };

    Conditions(const Description& description, NodeMap& nodes, RegisterPort& port)
        : m_description(description)
        , m_nodes(nodes)
        , m_port(port)
    {
    }

    /// Unknown when it cannot be evaluated; why() then tells the reason.
    Truth ask(const Condition& condition);
    /// No where one says no, else Unknown where one cannot be evaluated.
    Truth allHold(const std::vector<Condition>& conditions);
    /// Yes where one says yes, else Unknown where one cannot be evaluated.
    Truth anyHolds(const std::vector<Condition>& conditions);
    /// Whether a node can be read: it and all that it needs are implemented and available, and none
    /// of it can only be written.
    Truth isThere(std::size_t node);
    /// Why the last answer was Unknown.
    const Words& why() const { return m_why; }

private:
    struct Answer {
        Truth truth;
        Words why;
        Registers read;
    };

    Truth find(const Condition& condition);
    /// `deciding` where one says so, else Unknown where one cannot be evaluated, else `otherwise`.
    Truth combined(const std::vector<Condition>& conditions, Truth deciding, Truth otherwise);
    /// What never changes about a node that is asked for.
    struct Known {
        std::uint16_t access = 0; ///< featurebrowser::ACCESS_MODE
        AccessConditions conditions;
    };
    const Known& known(std::size_t node);

    const Description& m_description;
    NodeMap& m_nodes;
    RegisterPort& m_port;
    Words m_why;
    std::vector<std::size_t> m_asking; ///< nodes that are being looked at
    std::unordered_map<std::size_t, Known> m_known; ///< by node
    std::uint64_t m_snapshot = 0;
    std::unordered_map<std::size_t, Answer> m_answers; ///< by the node that decides
};

} // namespace zqcameralib
