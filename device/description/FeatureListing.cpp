#include "description/FeatureListing.h"

#include "featurebrowser/FeatureTypes.h"

#include <algorithm>
#include <array>

namespace zqcameralib {

namespace {

/// Deeper categories are not followed; real descriptions reach 6.
constexpr std::uint8_t maxDepth = 100;

class Lister {
public:
    explicit Lister(const Description& description)
        : m_description(description)
        , m_seen(description.nodes().size(), false)
    {
    }

    std::vector<ListedNode> build()
    {
        const std::size_t root = m_description.find("Root");
        m_seen[root] = true;
        m_entries.push_back({ root, 0, true });
        addFeatures(root, 1);
        if (m_entries.size() == 1) {
            m_entries.clear();
        }
        addCategories(root, 0);
        return std::move(m_entries);
    }

private:
    bool take(const Reference& reference, bool category)
    {
        if (reference.tag != "pFeature" || reference.target == Description::absent
            || m_seen[reference.target]) {
            return false;
        }
        const DescriptionNode& node = m_description.node(reference.target);
        if ((node.kind == "Category") != category) {
            return false;
        }
        if (!category && (!isFeatureKind(node.kind) || featureLevel(node) == 0)) {
            return false;
        }
        m_seen[reference.target] = true;
        return true;
    }

    void addFeatures(std::size_t category, std::uint8_t depth)
    {
        for (const Reference& reference : m_description.node(category).references) {
            if (take(reference, false)) {
                m_entries.push_back({ reference.target, depth, false });
            }
        }
    }

    void addCategories(std::size_t parent, std::uint8_t depth)
    {
        for (const Reference& reference : m_description.node(parent).references) {
            if (depth < maxDepth && take(reference, true)) {
                addCategory(reference.target, depth);
            }
        }
    }

    /// Members in the order of the description, features and sub-categories mixed.
    void addCategory(std::size_t category, std::uint8_t depth)
    {
        const auto inside = static_cast<std::uint8_t>(depth + 1);
        m_entries.push_back({ category, depth, true });
        for (const Reference& reference : m_description.node(category).references) {
            if (take(reference, false)) {
                m_entries.push_back({ reference.target, inside, false });
            } else if (inside < maxDepth && take(reference, true)) {
                addCategory(reference.target, inside);
            }
        }
    }

    const Description& m_description;
    std::vector<bool> m_seen;
    std::vector<ListedNode> m_entries;
};

} // namespace

std::vector<ListedNode> listFeatures(const Description& description)
{
    return Lister(description).build();
}

bool isFeatureKind(std::string_view kind)
{
    static constexpr std::array<std::string_view, 16> kinds { "Integer", "IntReg", "MaskedIntReg",
        "StructEntry", "IntSwissKnife", "IntConverter", "Float", "FloatReg", "SwissKnife",
        "Converter", "Boolean", "Enumeration", "String", "StringReg", "Command", "Register" };
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

std::uint8_t featureLevel(const DescriptionNode& node)
{
    const std::string_view visibility = childText(node.element, "Visibility");
    if (visibility == "Invisible") {
        return 0;
    }
    if (visibility == "Guru") {
        return featurebrowser::LEVEL_GURU;
    }
    return visibility == "Expert" ? featurebrowser::LEVEL_EXPERT : featurebrowser::LEVEL_BEGINNER;
}

} // namespace zqcameralib
