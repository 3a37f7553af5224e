// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "description/FeatureListing.h"

#include "description/ReferenceWalk.h"

#include "featurebrowser/FeatureTypes.h"

namespace zqcameralib {

namespace {

/// Deeper categories are not followed; real descriptions reach 6.
constexpr std::uint8_t maxDepth = 100;

class Lister {
public:
    explicit Lister(const Description& description)
        : m_description(description)
        , m_isListed(description.nodes().size(), false)
    {
    }

    std::vector<ListedNode> list()
    {
        const std::size_t root = m_description.find("Root");
        m_isListed[root] = true;
        m_list.push_back({ root, 0, true, 0 });
        addFeatures(root, 1);
        if (m_list.size() == 1) {
            m_list.clear();
        }
        addCategories(root, 0);
        return std::move(m_list);
    }

private:
    template <typename Visit> void forEachMember(std::size_t category, Visit visit)
    {
        m_description.node(category).forEachTarget(only(ReferenceTag::Feature), visit);
    }

    /// Whether the node is a category, or a feature that is shown, and not listed yet. A category
    /// is as visible as what is in it.
    bool takeCategory(std::size_t node)
    {
        return m_description.node(node).kind == NodeKind::Category && take(node);
    }
    bool takeFeature(std::size_t node)
    {
        const DescriptionNode& feature = m_description.node(node);
        return hasValue(feature.kind) && levelOf(feature.element) != 0 && take(node);
    }
    bool take(std::size_t node)
    {
        const bool isFirst = !m_isListed[node];
        m_isListed[node] = true;
        return isFirst;
    }

    void addFeature(std::size_t node, std::uint8_t depth)
    {
        m_list.push_back({ node, depth, false, levelOf(m_description.node(node).element) });
    }

    void addFeatures(std::size_t category, std::uint8_t depth)
    {
        forEachMember(category, [&](std::size_t node) {
            if (takeFeature(node)) {
                addFeature(node, depth);
            }
        });
    }

    void addCategories(std::size_t parent, std::uint8_t depth)
    {
        forEachMember(parent, [&](std::size_t node) {
            if (depth < maxDepth && takeCategory(node)) {
                addCategory(node, depth);
            }
        });
    }

    /// Members in the order of the description, features and sub-categories mixed.
    void addCategory(std::size_t category, std::uint8_t depth)
    {
        const auto inside = static_cast<std::uint8_t>(depth + 1);
        m_list.push_back({ category, depth, true, 0 });
        forEachMember(category, [&](std::size_t node) {
            if (takeFeature(node)) {
                addFeature(node, inside);
            } else if (inside < maxDepth && takeCategory(node)) {
                addCategory(node, inside);
            }
        });
    }

    const Description& m_description;
    std::vector<bool> m_isListed;
    std::vector<ListedNode> m_list;
};

} // namespace

std::vector<ListedNode> listFeatures(const Description& description)
{
    return Lister(description).list();
}

std::vector<ListedNode> unlistedFeatures(
    const Description& description, const std::vector<ListedNode>& listed)
{
    std::vector<bool> isListed(description.nodes().size(), false);
    for (const ListedNode& entry : listed) {
        isListed[entry.node] = true;
    }
    std::vector<ListedNode> unlisted;
    for (const std::size_t node :
        reachable(description, description.find("Root"), only(ReferenceTag::Feature))) {
        if (!isListed[node] && hasValue(description.node(node).kind)) {
            unlisted.push_back({ node, 0, false, 0 });
        }
    }
    return unlisted;
}

std::uint8_t levelOf(const pugi::xml_node& element)
{
    const std::string_view visibility = childText(element, "Visibility");
    if (visibility == "Invisible") {
        return 0;
    }
    if (visibility == "Guru") {
        return featurebrowser::LEVEL_GURU;
    }
    return visibility == "Expert" ? featurebrowser::LEVEL_EXPERT : featurebrowser::LEVEL_BEGINNER;
}

} // namespace zqcameralib
