#include "features/PrefetchPlan.h"

#include "description/DependencyGraph.h"
#include "validation/DescriptionCheck.h"

#include "featurebrowser/FeatureItem.h"

#include <algorithm>

namespace zqcameralib {

namespace {

bool isLimit(std::string_view tag)
{
    return tag == "pMin" || tag == "pMax" || tag == "pInc";
}
/// Of indexed values only one is read, of a command none.
bool isAlwaysRead(std::string_view tag)
{
    return isValueReference(tag) && tag != "pValueIndexed" && tag != "pValueDefault"
        && tag != "pCommandValue";
}

/// Follows values down to their registers.
class Collector {
public:
    explicit Collector(const Description& description)
        : m_description(description)
        , m_seenBy(description.nodes().size(), 0)
    {
    }

    /// What is added from here on goes to `registers`, each node once.
    void collectInto(Registers& registers)
    {
        m_registers = &registers;
        ++m_collection;
    }

    void addConditions(const Feature& feature)
    {
        for (const std::vector<Condition>* conditions :
            { &feature.implementedIf, &feature.availableIf, &feature.lockedIf }) {
            for (const Condition& condition : *conditions) {
                addValue(condition.target);
            }
        }
    }

    void addContent(const Feature& feature)
    {
        addValue(m_description.find(feature.name));
        for (const Reference& reference : feature.node->references) {
            if (reference.target != Description::absent && isLimit(reference.tag)) {
                addValue(reference.target);
            }
        }
        for (const EnumEntry& entry : feature.entries) {
            for (const Condition& condition : entry.availableIf) {
                addValue(condition.target);
            }
        }
    }

private:
    void addValue(std::size_t start)
    {
        std::vector<std::size_t> pending { start };
        for (std::size_t at = 0; at < pending.size(); ++at) {
            const std::size_t index = pending[at];
            if (m_seenBy[index] == m_collection || m_description.node(index).isBroken()) {
                continue;
            }
            m_seenBy[index] = m_collection;
            addRegister(m_description.node(index));
            for (const Reference& reference : m_description.node(index).references) {
                if (reference.target != Description::absent && isAlwaysRead(reference.tag)) {
                    pending.push_back(reference.target);
                }
            }
        }
    }

    void addRegister(const DescriptionNode& node)
    {
        Register place;
        const pugi::xml_node where
            = node.kind == "StructEntry" ? node.element.parent() : node.element;
        if (fixedRegister(node, place.address, place.size) && !where.child("pLength")
            && childText(where, "AccessMode") != "WO"
            && !isOnChunkOrEventPort(m_description, node)) {
            m_registers->push_back(place);
        }
    }

    const Description& m_description;
    std::vector<std::size_t> m_seenBy; ///< by node: the collection that it was last added to
    std::size_t m_collection = 0;
    Registers* m_registers = nullptr;
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
    Collector collector(description);
    collector.collectInto(always);
    for (const Feature& feature : features) {
        collector.addConditions(feature);
        if (isRead(feature) && !feature.isConditional()) {
            collector.addContent(feature);
        }
    }
    for (std::size_t i = 0; i < features.size(); ++i) {
        if (isRead(features[i]) && features[i].isConditional()) {
            collector.collectInto(whenAvailable[i]);
            collector.addContent(features[i]);
        }
    }
}

} // namespace zqcameralib
