// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "features/PrefetchPlan.h"

#include "description/ReferenceWalk.h"
#include "description/RegisterPlace.h"

#include "featurebrowser/FeatureItem.h"

namespace zqcameralib {

namespace {

/// Follows values down to their registers; each node once.
class Collector {
public:
    explicit Collector(const Description& description)
        : m_description(description)
        , m_walk(description.nodes().size())
    {
    }

    void addConditions(const Feature& feature)
    {
        for (const std::vector<Condition>* conditions : { &feature.conditions.implementedIf,
                 &feature.conditions.availableIf, &feature.conditions.lockedIf }) {
            addAll(*conditions);
        }
    }

    void addContent(const Feature& feature)
    {
        addValue(feature.index);
        feature.node->forEachTarget(isLimit, [this](std::size_t limit) { addValue(limit); });
        for (const EnumEntry& entry : feature.entries) {
            addAll(entry.availableIf);
        }
    }

    Registers registers() const { return m_registers; }

private:
    void addAll(const std::vector<Condition>& conditions)
    {
        for (const Condition& condition : conditions) {
            addValue(condition.target);
        }
    }

    void addValue(std::size_t node)
    {
        reach(node);
        m_walk.run([this](std::size_t next) {
            addRegister(m_description.node(next));
            m_description.node(next).forEachTarget(
                isAlwaysRead, [this](std::size_t target) { reach(target); });
        });
    }

    void reach(std::size_t node)
    {
        if (!m_description.node(node).isBroken()) {
            m_walk.reach(node);
        }
    }

    void addRegister(const DescriptionNode& node)
    {
        const auto place = fixedPlace(node);
        const pugi::xml_node reg = node.registerElement();
        if (place && !reg.child("pLength") && childText(reg, "AccessMode") != "WO"
            && !isOnChunkOrEventPort(m_description, node)) {
            m_registers.push_back({ place->first, place->size() });
        }
    }

    const Description& m_description;
    NodeWalk m_walk;
    Registers m_registers;
};

bool isRead(const Feature& feature)
{
    return feature.isReadable() && !feature.isChunkOrEventData
        && feature.type != featurebrowser::FEATURE_COMMAND;
}

} // namespace

PrefetchPlan::PrefetchPlan(const Description& description, const std::vector<Feature>& features)
    : whenAvailable(features.size())
{
    Collector bound(description);
    for (const Feature& feature : features) {
        bound.addConditions(feature);
        if (isRead(feature) && !feature.isConditional()) {
            bound.addContent(feature);
        }
    }
    always = bound.registers();
    for (std::size_t i = 0; i < features.size(); ++i) {
        if (isRead(features[i]) && features[i].isConditional()) {
            Collector conditional(description);
            conditional.addContent(features[i]);
            whenAvailable[i] = conditional.registers();
        }
    }
}

} // namespace zqcameralib
