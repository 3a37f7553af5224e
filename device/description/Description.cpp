#include "description/Description.h"

#include <glib.h>

#include <algorithm>

namespace zqcameralib {

namespace {

std::string_view trimmed(std::string_view text)
{
    constexpr const char* blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool isUtf16(std::string_view text)
{
    return text.substr(0, 2) == "\xFF\xFE" || text.substr(0, 2) == "\xFE\xFF";
}

bool isLatin1(std::string_view text)
{
    return text.substr(0, 200).find("8859-1") != std::string_view::npos;
}

/// Camera tools write a line about the camera before the XML.
void eraseBeforeFirstTag(std::string& text)
{
    text.erase(0, text.find('<'));
}

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20U && c != '\t' && c != '\n' && c != '\r';
}

/// Most descriptions are, and are searched faster than validated.
bool isPlainAscii(std::string_view text)
{
    unsigned int faults = 0;
    for (const char c : text) {
        faults |= (static_cast<unsigned char>(c) & 0x80U) | (isControl(c) ? 1U : 0U);
    }
    return faults == 0;
}

/// What is not text in XML would stop the parsers below; it becomes question marks.
void replaceInvalidBytes(std::string& text)
{
    if (isPlainAscii(text)) {
        return;
    }
    std::replace_if(text.begin(), text.end(), isControl, '?');
    const char* invalid = nullptr;
    const char* rest = text.data();
    const char* const end = text.data() + text.size();
    while (g_utf8_validate_len(rest, static_cast<gsize>(end - rest), &invalid) == FALSE) {
        text[static_cast<std::size_t>(invalid - text.data())] = '?';
        rest = invalid;
    }
}

bool isReference(std::string_view name)
{
    return name.size() > 1 && name[0] == 'p' && g_ascii_isupper(name[1]);
}

/// Whether an element with a name is a node of the description, and not a part of one.
bool isNode(std::string_view name)
{
    return name != "EnumEntry" && name[0] != 'p' && name != "Constant" && name != "Expression"
        && name != "Group";
}

/// What stands in an extension is its maker's own; it may look like nodes, and is none.
bool isExtension(const pugi::xml_node& element)
{
    return element.name() == std::string_view("Extension");
}

/// The element after another in document order that is not inside of it; null behind `root`.
pugi::xml_node nextBeside(pugi::xml_node element, const pugi::xml_node& root)
{
    while (element != root && !element.next_sibling()) {
        element = element.parent();
    }
    return element == root ? pugi::xml_node() : element.next_sibling();
}

/// Calls visit(element) for all elements below another, in document order, but for extensions.
template <typename Visit> void forEachBelow(const pugi::xml_node& root, Visit visit)
{
    pugi::xml_node element = root.first_child();
    while (element) {
        if (isExtension(element)) {
            element = nextBeside(element, root);
            continue;
        }
        visit(element);
        element = element.first_child() ? element.first_child() : nextBeside(element, root);
    }
}

bool isText(const pugi::xml_node& node)
{
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

/// Comments and CDATA sections cut one text into several.
void joinTexts(pugi::xml_node element)
{
    pugi::xml_node first = element.first_child();
    if (!first || !isText(first) || !first.next_sibling()) {
        return;
    }
    std::string text = first.value();
    while (first.next_sibling() && isText(first.next_sibling())) {
        text += first.next_sibling().value();
        element.remove_child(first.next_sibling());
    }
    first.set_value(text.c_str());
}

} // namespace

pugi::xml_node DescriptionNode::registerElement() const
{
    return kind == NodeKind::StructEntry ? element.parent() : element;
}

std::size_t DescriptionNode::target(ReferenceTag tag) const
{
    const auto found
        = std::find_if(references.begin(), references.end(), [tag](const Reference& reference) {
              return reference.tag == tag && reference.isResolved();
          });
    return found == references.end() ? Description::absent : found->target;
}

bool DescriptionNode::refersBy(ReferenceTag tag) const
{
    return target(tag) != Description::absent;
}

std::string_view elementText(const pugi::xml_node& element)
{
    return trimmed(element.text().get());
}

std::string_view childText(const pugi::xml_node& element, const char* tag)
{
    return elementText(element.child(tag));
}

Description::Description() = default;
Description::~Description() = default;

std::unique_ptr<Description> Description::parse(std::string text, std::string& error)
{
    if (!isUtf16(text)) {
        eraseBeforeFirstTag(text);
        if (text.empty()) {
            error = "not XML";
            return nullptr;
        }
        if (!isLatin1(text)) {
            replaceInvalidBytes(text);
        }
    }
    std::unique_ptr<Description> description(new Description);
    if (!description->load(text, error)) {
        return nullptr;
    }
    // Real descriptions have a node in 60 to 300 bytes.
    constexpr std::size_t bytesPerNode = 120;
    description->m_nodes.reserve(text.size() / bytesPerNode);
    description->m_byName.reserve(text.size() / bytesPerNode);
    description->collectNodes();
    if (description->find("Root") == absent) {
        error = "not a camera description: no root category";
        return nullptr;
    }
    for (DescriptionNode& node : description->m_nodes) {
        node.references = description->referencesOf(node);
    }
    return description;
}

bool Description::load(const std::string& text, std::string& error)
{
    const pugi::xml_encoding encoding = isLatin1(text) ? pugi::encoding_latin1
        : isUtf16(text)                                ? pugi::encoding_auto
                                                       : pugi::encoding_utf8;
    const pugi::xml_parse_result result
        = m_document.load_buffer(text.data(), text.size(), pugi::parse_default, encoding);
    if (!result) {
        error = "malformed XML at byte " + std::to_string(result.offset) + ": "
            + result.description();
        return false;
    }
    if (nodeKind(root().name()) != NodeKind::RegisterDescription) {
        error = "not a camera description: no RegisterDescription element";
        return false;
    }
    return true;
}

std::size_t Description::find(std::string_view name) const
{
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? absent : found->second;
}

void Description::collectNodes()
{
    forEachBelow(root(), [this](const pugi::xml_node& element) {
        joinTexts(element);
        addNode(element);
    });
}

void Description::addNode(const pugi::xml_node& element)
{
    const std::string_view name = element.attribute("Name").value();
    if (name.empty() || !isNode(element.name())) {
        return;
    }
    // Of a name given twice, the last one counts.
    const auto [place, isFresh] = m_byName.emplace(name, m_nodes.size());
    if (isFresh) {
        m_nodes.emplace_back();
        m_nodes.back().name = name;
    }
    DescriptionNode& node = m_nodes[place->second];
    node.element = element;
    node.kind = nodeKind(element.name());
}

std::vector<Reference> Description::referencesOf(const DescriptionNode& node) const
{
    std::vector<Reference> references;
    const auto add = [&](const pugi::xml_node& element) { addReferences(references, element); };
    if (!isContainer(node.kind)) {
        forEachBelow(node.element, add);
    }
    if (node.kind == NodeKind::StructEntry) {
        const auto shared = node.element.parent().children();
        std::for_each(shared.begin(), shared.end(), add);
    }
    return references;
}

void Description::addReferences(
    std::vector<Reference>& references, const pugi::xml_node& element) const
{
    if (!isReference(element.name())) {
        return;
    }
    references.push_back({ element, referenceTag(element.name()), find(elementText(element)) });
    if (const pugi::xml_attribute offset = element.attribute("pOffset")) {
        references.push_back({ element, ReferenceTag::Offset, find(trimmed(offset.value())) });
    }
}

} // namespace zqcameralib
