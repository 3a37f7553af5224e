#pragma once

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
    std::string_view tag; ///< its name, or "pOffset" for the attribute of a pIndex
    std::size_t target; ///< index of the node referred to, or Description::absent
};

/// One named node of a description.
struct DescriptionNode {
    pugi::xml_node element;
    std::string_view name;
    std::string_view kind; ///< element name: "Integer", "IntReg", "Category" ...
    std::vector<Reference> references; ///< in document order
    /// Set when the node cannot be evaluated: why, for the user.
    std::string broken;

    bool isBroken() const { return !broken.empty(); }
    /// Whether its value is kept in the camera, whole or as some bits.
    bool isRegister() const;
};

/// The text of an element without surrounding blanks.
std::string_view elementText(const pugi::xml_node& element);
/// The text of a child element without surrounding blanks; empty when there is none.
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
    /// Index of a node, or `absent`.
    std::size_t find(std::string_view name) const;
    pugi::xml_node root() const { return m_document.document_element(); }
    std::string_view vendor() const { return root().attribute("VendorName").value(); }
    std::string_view model() const { return root().attribute("ModelName").value(); }

private:
    Description();
    void collectNodes(const pugi::xml_node& parent);
    void collectReferences(DescriptionNode& node);

    pugi::xml_document m_document;
    std::vector<DescriptionNode> m_nodes;
    std::unordered_map<std::string_view, std::size_t> m_byName;
};

} // namespace zqcameralib
