// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "features/Conditions.h"

#include "description/ReferenceWalk.h"
#include "nodemap/AccessMode.h"
#include "words/Words.h"

#include "featurebrowser/FeatureItem.h"

#include <algorithm>

namespace zqcameralib {

namespace {

using Truth = Conditions::Truth;

/// Nodes looked at that one value needs.
constexpr std::size_t maxWalked = 300;

/// What a value is calculated with has to be there, with its port.
constexpr ReferenceTags isNeeded = isAlwaysRead | ReferenceTags { ReferenceTag::Port };

} // namespace

void addOwnCondition(std::vector<Condition>& conditions, const Description& description,
    std::size_t node, ReferenceTag tag)
{
    const DescriptionNode& owner = description.node(node);
    const auto own = std::find_if(
        owner.references.begin(), owner.references.end(), [&](const Reference& reference) {
            return reference.tag == tag && reference.isResolved()
                && (reference.element.parent() == owner.element
                    || reference.element.parent() == owner.registerElement());
        });
    if (own == owner.references.end()
        || std::any_of(conditions.begin(), conditions.end(),
            [&own](const Condition& known) { return known.target == own->target; })) {
        return;
    }
    conditions.push_back({ tag, node, own->target, owner.kind == NodeKind::Category });
}

AccessConditions accessConditions(const Description& description, std::size_t node)
{
    AccessConditions conditions;
    for (const std::size_t source : reachable(description, node, isNeeded, maxWalked)) {
        addOwnCondition(conditions.implementedIf, description, source, ReferenceTag::IsImplemented);
        addOwnCondition(conditions.availableIf, description, source, ReferenceTag::IsAvailable);
    }
    for (const std::size_t link : valueChain(description, node)) {
        addOwnCondition(conditions.lockedIf, description, link, ReferenceTag::IsLocked);
    }
    return conditions;
}

Truth Conditions::ask(const Condition& condition)
{
    if (m_snapshot != m_port.snapshotNumber()) {
        m_answers.clear();
        m_snapshot = m_port.snapshotNumber();
    }
    const auto known = m_answers.find(condition.target);
    if (known != m_answers.end()) {
        m_port.noteAgain(known->second.read);
        m_why = known->second.why;
        return known->second.truth;
    }
    const RegisterPort::FailureScope failures(m_port);
    RegisterPort::Recorder recorder(m_port);
    const Truth truth = find(condition);
    // What failed is asked again: each feature that needs it has to come out as unread.
    if (!failures.hasFailed() && m_snapshot == m_port.snapshotNumber()) {
        m_answers.emplace(condition.target, Answer { truth, m_why, std::move(recorder.read) });
    }
    return truth;
}

const Conditions::Known& Conditions::known(std::size_t node)
{
    const auto [place, isNew] = m_known.try_emplace(node);
    if (isNew) {
        place->second
            = { staticAccess(m_description, node), accessConditions(m_description, node) };
    }
    return place->second;
}

Truth Conditions::isThere(std::size_t node)
{
    if (std::find(m_asking.begin(), m_asking.end(), node) != m_asking.end()) {
        return Truth::Yes; // two nodes that decide about each other
    }
    const std::uint16_t access = known(node).access;
    if (access == featurebrowser::ACCESS_WRITE_ONLY
        || access == featurebrowser::ACCESS_NOT_AVAILABLE) {
        m_why = worded("it needs %s, which cannot be read",
            std::string(m_description.node(node).name).c_str());
        return Truth::Unknown;
    }
    m_asking.push_back(node);
    const AccessConditions& conditions = known(node).conditions;
    Truth truth = allHold(conditions.implementedIf);
    truth = truth == Truth::Yes ? allHold(conditions.availableIf) : truth;
    m_asking.pop_back();
    return truth;
}

/// What is not there decides for what is safe: neither implemented nor available, but locked.
Truth Conditions::find(const Condition& condition)
{
    const Truth isThere = this->isThere(condition.target);
    if (isThere == Truth::No) {
        return condition.tag == ReferenceTag::IsLocked ? Truth::Yes : Truth::No;
    }
    if (isThere == Truth::Unknown) {
        return isThere;
    }
    const Result<Number> value = m_nodes.number(condition.target);
    m_why = value.status().words();
    if (!value.isOk()) {
        return Truth::Unknown;
    }
    return value.value().isZero() ? Truth::No : Truth::Yes;
}

Truth Conditions::allHold(const std::vector<Condition>& conditions)
{
    return combined(conditions, Truth::No, Truth::Yes);
}

Truth Conditions::anyHolds(const std::vector<Condition>& conditions)
{
    return combined(conditions, Truth::Yes, Truth::No);
}

Truth Conditions::combined(
    const std::vector<Condition>& conditions, Truth deciding, Truth otherwise)
{
    Words why;
    for (const Condition& condition : conditions) {
        const Truth truth = ask(condition);
        if (truth == deciding) {
            return truth;
        }
        why = truth == Truth::Unknown ? m_why : why;
    }
    m_why = why;
    return why.empty() ? otherwise : Truth::Unknown;
}

} // namespace zqcameralib
