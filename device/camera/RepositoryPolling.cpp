// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "camera/Repository.h"

#include "description/ReferenceWalk.h"
#include "formula/Number.h"

#include <algorithm>

namespace featurebrowser {

using namespace zqcameralib;
using std::chrono::milliseconds;

namespace {

/// What a record is made of, apart from values that an index chooses; and whose changes make the
/// camera's own values others.
constexpr ReferenceTags isReadForRecord
    = isAlwaysRead | isLimit | isCondition | ReferenceTags { ReferenceTag::Invalidator };
constexpr ReferenceTags isChoice { ReferenceTag::ValueIndexed, ReferenceTag::ValueDefault };

/// A longer one is as good as none; and it has to fit wherever times are added to it.
constexpr std::int64_t longest = 24LL * 3600 * 1000;

/// What the node itself says; 0 where it says nothing. That of a command is for who waits until it
/// is done.
milliseconds ownPollingTime(const DescriptionNode& node)
{
    if (node.kind == NodeKind::Command) {
        return milliseconds(0);
    }
    std::string_view text = childText(node.element, "PollingTime");
    if (text.empty()) {
        text = childText(node.registerElement(), "PollingTime");
    }
    const std::optional<Number> number = parseNumber(text);
    const std::int64_t given = number ? number->rounded().value_or(0) : 0;
    return milliseconds(std::clamp<std::int64_t>(given, 0, longest));
}

void reachSources(NodeMap& nodes, const DescriptionNode& node, std::size_t index, NodeWalk& walk)
{
    const auto reach = [&walk](std::size_t target) { walk.reach(target); };
    if (node.kind == NodeKind::Command) {
        node.forEachTarget(isCondition, reach);
        return;
    }
    node.forEachTarget(isReadForRecord, reach);
    if (!isIndexed(node)) {
        return;
    }
    const Result<std::size_t> chosen = nodes.source(index);
    if (!chosen.isOk()) {
        node.forEachTarget(isChoice, reach);
    } else if (chosen.value() != Description::absent) {
        walk.reach(chosen.value());
    }
}

} // namespace

milliseconds ZQCameraRepository::Impl::pollingTime(const std::string& name)
{
    dropOtherCamera();
    const Feature* feature = m_camera.feature(name);
    if (feature == nullptr || feature->type == FEATURE_CATEGORY) {
        return milliseconds(0);
    }
    const CallScope call(backend());
    const Description& description = m_camera.description();
    NodeWalk walk(description.nodes().size());
    for (const auto* conditions : { &feature->conditions.implementedIf,
             &feature->conditions.availableIf, &feature->conditions.lockedIf }) {
        for (const Condition& condition : *conditions) {
            walk.reach(condition.target);
        }
    }
    walk.reach(feature->index);
    milliseconds shortest(0);
    walk.run([&](std::size_t index) {
        const DescriptionNode& node = description.node(index);
        const milliseconds own = ownPollingTime(node);
        if (own.count() > 0 && (shortest.count() == 0 || own < shortest)) {
            shortest = own;
        }
        reachSources(m_camera.nodes(), node, index, walk);
    });
    return shortest;
}

} // namespace featurebrowser
