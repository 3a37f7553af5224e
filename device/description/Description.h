// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/NodeKind.h"
#include "description/ReferenceTag.h"
#include "words/Words.h"

#include <pugixml.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zqcameralib {

/// A reference of one node to another: the element that makes it, and the node it names.
struct Reference {
    pugi::xml_node element; ///< for example <pValue>
    ReferenceTag tag = ReferenceTag::Other;
    std::size_t target = 0; ///< index of the node referred to, or Description::absent

    bool isResolved() const;
};

/// One named node of a description.
struct DescriptionNode {
    pugi::xml_node element;
    std::string_view name;
    NodeKind kind = NodeKind::Other;
    std::vector<Reference> references; ///< in document order
    /// Set when the node cannot be evaluated: why, for the user.
    Words broken;

    bool isBroken() const { return !broken.empty(); }
    /// The element that says where the register is: that of the whole register, for an entry of it.
    pugi::xml_node registerElement() const;
    /// The node that the first reference of this tag leads to, or Description::absent.
    std::size_t target(ReferenceTag tag) const;
    bool refersBy(ReferenceTag tag) const;
    /// Calls visit(target) for every reference whose tag isFollowed(tag) and that leads to a node.
    template <typename Follows, typename Visit>
    void forEachTarget(Follows isFollowed, Visit visit) const
    {
        for (const Reference& reference : references) {
            if (reference.isResolved() && isFollowed(reference.tag)) {
                visit(reference.target);
            }
        }
    }
};

/// The text of an element without surrounding blanks.
std::string_view elementText(const pugi::xml_node& element);
/// The text of an attribute or a child element without surrounding blanks; empty when there is
/// none.
std::string_view attributeText(const pugi::xml_node& element, const char* name);
std::string_view childText(const pugi::xml_node& element, const char* tag);

/// A camera's description as a graph of named nodes. Holds static facts only; values are the node
/// map's business. Immutable once checked; views point into it.
class Description {
public:
    static constexpr std::size_t absent = static_cast<std::size_t>(-1);

    /// Parses the text of a description, with or without a byte-order mark or a line of text before
    /// the XML. Null and one line in `error` when it is not a well-formed description.
    static std::unique_ptr<Description> parse(std::string text, std::string& error);

    Description(const Description&) = delete;
    Description& operator=(const Description&) = delete;
    ~Description();

    const std::vector<DescriptionNode>& nodes() const { return m_nodes; }
    std::vector<DescriptionNode>& nodes() { return m_nodes; }
    const DescriptionNode& node(std::size_t index) const { return m_nodes[index]; }
    /// Index of one of the nodes().
    std::size_t indexOf(const DescriptionNode& node) const
    {
        return static_cast<std::size_t>(&node - m_nodes.data());
    }
    /// Index of a node, or `absent`.
    std::size_t find(std::string_view name) const;
    pugi::xml_node root() const { return m_document.document_element(); }
    std::string_view vendor() const { return root().attribute("VendorName").value(); }
    std::string_view model() const { return root().attribute("ModelName").value(); }

private:
    Description();
    bool load(std::string& error);
    void collectNodes();
    std::size_t addNode(const pugi::xml_node& element);
    void resolveReferences();

    std::string m_text; ///< the document is made of parts of it
    pugi::xml_document m_document;
    std::vector<DescriptionNode> m_nodes;
    std::unordered_map<std::string_view, std::size_t> m_byName;
};

inline bool Reference::isResolved() const
{
    return target != Description::absent;
}

} // namespace zqcameralib
