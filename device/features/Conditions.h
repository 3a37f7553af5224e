#pragma once

#include "description/Description.h"
#include "registers/RegisterPort.h"

#include <arv.h>

#include <unordered_map>
#include <vector>

namespace zqcameralib {

/// What a node says of itself by pIsImplemented, pIsAvailable or pIsLocked.
struct Condition {
    ArvGcFeatureNode* node = nullptr;
    gboolean (*check)(ArvGcFeatureNode*, GError**) = nullptr;
    std::size_t target = 0; ///< the description's node that decides: same target, same answer
};

/// What `node` of the node map says by a reference in the description.
Condition conditionOf(ArvGcFeatureNode* node, const Reference& reference);

/// Adds what a node itself says by `tag`, if anything: the first such reference that leads to a
/// node counts, and those that stand in the entries of an enumeration are not its own.
void addOwnCondition(std::vector<Condition>& conditions, const DescriptionNode& node,
    ArvGcFeatureNode* gc, ReferenceTag tag);

/// Evaluates conditions. Few nodes decide for many features, so an answer is kept as long as the
/// registers read for it are.
class Conditions {
public:
    enum class Truth { No, Yes, Unknown };

    explicit Conditions(RegisterPort& port)
        : m_port(port)
    {
    }

    /// Unknown when it cannot be evaluated.
    Truth ask(const Condition& condition);
    /// A condition that cannot be evaluated counts as met.
    bool allHold(const std::vector<Condition>& conditions);
    bool anyHolds(const std::vector<Condition>& conditions);

private:
    struct Answer {
        Truth truth;
        Registers read;
    };

    RegisterPort& m_port;
    std::uint64_t m_snapshot = 0;
    std::unordered_map<std::size_t, Answer> m_answers; ///< by the node that decides
};

} // namespace zqcameralib
