#include "features/Conditions.h"

#include "base/GlibError.h"

#include <algorithm>

namespace zqcameralib {

Condition conditionOf(ArvGcFeatureNode* node, const Reference& reference)
{
    const auto check = reference.tag == ReferenceTag::IsImplemented
        ? arv_gc_feature_node_is_implemented
        : reference.tag == ReferenceTag::IsAvailable ? arv_gc_feature_node_is_available
                                                     : arv_gc_feature_node_is_locked;
    return { node, check, reference.target };
}

void addOwnCondition(std::vector<Condition>& conditions, const DescriptionNode& node,
    ArvGcFeatureNode* gc, ReferenceTag tag)
{
    const auto own = std::find_if(
        node.references.begin(), node.references.end(), [&](const Reference& reference) {
            return reference.tag == tag && reference.isResolved()
                && reference.element.parent() == node.element;
        });
    if (own != node.references.end()) {
        conditions.push_back(conditionOf(gc, *own));
    }
}

Conditions::Truth Conditions::ask(const Condition& condition)
{
    if (m_snapshot != m_port.snapshotNumber()) {
        m_answers.clear();
        m_snapshot = m_port.snapshotNumber();
    }
    const auto known = m_answers.find(condition.target);
    if (known != m_answers.end()) {
        m_port.noteAgain(known->second.read);
        return known->second.truth;
    }
    const RegisterPort::FailureScope failures(m_port);
    RegisterPort::Recorder recorder(m_port);
    GlibError error;
    const bool holds = condition.check(condition.node, error.out()) != FALSE;
    const Truth truth = error ? Truth::Unknown : holds ? Truth::Yes : Truth::No;
    // What failed is asked again: each feature that needs it has to come out as unread.
    if (!failures.hasFailed() && m_snapshot == m_port.snapshotNumber()) {
        m_answers.emplace(condition.target, Answer { truth, std::move(recorder.read) });
    }
    return truth;
}

bool Conditions::allHold(const std::vector<Condition>& conditions)
{
    return std::all_of(conditions.begin(), conditions.end(),
        [this](const Condition& condition) { return ask(condition) != Truth::No; });
}

bool Conditions::anyHolds(const std::vector<Condition>& conditions)
{
    return std::any_of(conditions.begin(), conditions.end(),
        [this](const Condition& condition) { return ask(condition) == Truth::Yes; });
}

} // namespace zqcameralib
