#include "CertainReads.h"

#include "DependencyGraph.h"
#include "DescriptionCheck.h"

#include "featurebrowser/FeatureItem.h"

#include <algorithm>

namespace zqcameralib {

namespace {

class Collector {
public:
    explicit Collector(const Description& description)
        : m_description(description)
        , m_seen(description.nodes().size(), false)
    {
    }

    void addFeature(const Feature& feature)
    {
        addReferences(*feature.node, [](std::string_view tag) { return isCondition(tag); });
        const bool isReadable = feature.access == featurebrowser::ACCESS_READ_ONLY
            || feature.access == featurebrowser::ACCESS_READ_WRITE;
        if (feature.implementedIf.empty() && feature.availableIf.empty() && isReadable
            && feature.type != featurebrowser::FEATURE_COMMAND) {
            addValue(m_description.find(feature.name));
            addReferences(*feature.node, [](std::string_view tag) { return isLimit(tag); });
        }
    }

    std::vector<RegisterPort::Register> take() { return std::move(m_registers); }

private:
    static bool isCondition(std::string_view tag)
    {
        return tag == "pIsImplemented" || tag == "pIsAvailable" || tag == "pIsLocked";
    }
    static bool isLimit(std::string_view tag)
    {
        return tag == "pMin" || tag == "pMax" || tag == "pInc";
    }
    /// Of indexed values only one is read, of a command none.
    static bool isAlwaysRead(std::string_view tag)
    {
        return isValueReference(tag) && tag != "pValueIndexed" && tag != "pValueDefault"
            && tag != "pCommandValue";
    }

    template <typename Wanted> void addReferences(const DescriptionNode& node, Wanted wanted)
    {
        for (const Reference& reference : node.references) {
            // Conditions within an entry of an enumeration are not the enumeration's.
            if (reference.target != Description::absent && wanted(reference.tag)
                && reference.element.parent() == node.element) {
                addValue(reference.target);
            }
        }
    }

    void addValue(std::size_t start)
    {
        std::vector<std::size_t> pending { start };
        for (std::size_t at = 0; at < pending.size(); ++at) {
            const std::size_t index = pending[at];
            if (m_seen[index] || m_description.node(index).isBroken()) {
                continue;
            }
            m_seen[index] = true;
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
        RegisterPort::Register place;
        const bool isFixed = fixedRegister(node, place.first, place.second);
        const std::string_view port = childText(node.element, "pPort");
        const std::size_t owner = m_description.find(port);
        if (isFixed && !node.element.child("pLength")
            && childText(node.element, "AccessMode") != "WO" && owner != Description::absent
            && !m_description.node(owner).element.first_child()) {
            m_registers.push_back(place);
        }
    }

    const Description& m_description;
    std::vector<bool> m_seen;
    std::vector<RegisterPort::Register> m_registers;
};

} // namespace

std::vector<RegisterPort::Register> certainReads(
    const Description& description, const std::vector<Feature>& features)
{
    Collector collector(description);
    for (const Feature& feature : features) {
        if (feature.gc != nullptr && !feature.isDetached) {
            collector.addFeature(feature);
        }
    }
    return collector.take();
}

} // namespace zqcameralib
