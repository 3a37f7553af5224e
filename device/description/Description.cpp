// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "description/Description.h"

#include "words/Words.h"

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

/// Windows' own set has the same signs where descriptions have any: degrees, micro, accents.
bool isLatin1(std::string_view text)
{
    const std::string_view declaration = text.substr(0, 200);
    return declaration.find("8859-1") != std::string_view::npos
        || declaration.find("indows-1252") != std::string_view::npos;
}

/// Camera tools write a line about the camera before the XML.
void eraseBeforeFirstTag(std::string& text)
{
    text.erase(0, text.find('<'));
}

/// Below a blank, beyond ASCII or both, but for what parts words and lines: a control character, or
/// part of a longer one.
bool isSpecial(char c)
{
    return static_cast<signed char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
}

bool isControl(char c)
{
    return isSpecial(c) && static_cast<signed char>(c) >= 0;
}

/// Nearly all of a description is plain: blocks of a fixed size are looked through at once.
char* findSpecial(char* at, const char* end)
{
    constexpr std::ptrdiff_t blockSize = 64;
    const auto hasSpecial = [](const char* block) {
        unsigned char found = 0;
        for (std::ptrdiff_t i = 0; i < blockSize; ++i) {
            found |= static_cast<unsigned char>(isSpecial(block[i]));
        }
        return found != 0;
    };
    while (end - at >= blockSize && !hasSpecial(at)) {
        at += blockSize;
    }
    return std::find_if(at, const_cast<char*>(end), isSpecial);
}

/// What is not text in XML would stop the parsers below; it becomes question marks.
void replaceInvalidBytes(std::string& text)
{
    char* const end = text.data() + text.size();
    for (char* at = findSpecial(text.data(), end); at != end; at = findSpecial(at, end)) {
        // Of what is invalid, the two highest values tell.
        if (isControl(*at) || g_utf8_get_char_validated(at, end - at) > 0x10FFFF) {
            *at++ = '?';
        } else {
            at = g_utf8_next_char(at);
        }
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

/// The element after another in document order that is not inside of it; null behind the last one.
/// `depth` follows: that of the first ones below the root is 1.
pugi::xml_node nextBeside(pugi::xml_node element, int& depth)
{
    pugi::xml_node next = element.next_sibling();
    while (!next && --depth > 0) {
        element = element.parent();
        next = element.next_sibling();
    }
    return next;
}

/// Calls visit(element, depth) for all elements below another, in document order, but for
/// extensions.
template <typename Visit> void forEachBelow(const pugi::xml_node& root, Visit visit)
{
    int depth = 1;
    pugi::xml_node element = root.first_child();
    while (element) {
        if (isExtension(element)) {
            element = nextBeside(element, depth);
            continue;
        }
        visit(element, depth);
        if (const pugi::xml_node inside = element.first_child()) {
            element = inside;
            ++depth;
        } else {
            element = nextBeside(element, depth);
        }
    }
}

bool isText(const pugi::xml_node& node)
{
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

/// Comments and CDATA sections cut one text into several.
void joinTexts(pugi::xml_node element)
{
    const bool holdsFirst = element.value()[0] != '\0';
    const auto second = [&] {
        const pugi::xml_node child = element.first_child();
        return holdsFirst || !isText(child) ? child : child.next_sibling();
    };
    pugi::xml_node more = second();
    if (!isText(more)) {
        return;
    }
    std::string text = element.text().get();
    for (; isText(more); more = second()) {
        text += more.value();
        element.remove_child(more);
    }
    element.text().set(text.c_str());
}

std::string_view targetName(const Reference& reference)
{
    const bool canBeAttribute = reference.tag == ReferenceTag::Offset;
    return canBeAttribute && reference.element.attribute("pOffset")
        ? attributeText(reference.element, "pOffset")
        : elementText(reference.element);
}

void addReferences(std::vector<Reference>& references, const pugi::xml_node& element)
{
    if (!isReference(element.name())) {
        return;
    }
    references.push_back({ element, referenceTag(element.name()), Description::absent });
    if (element.attribute("pOffset")) {
        references.push_back({ element, ReferenceTag::Offset, Description::absent });
    }
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

std::string_view attributeText(const pugi::xml_node& element, const char* name)
{
    return trimmed(element.attribute(name).value());
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
            error = translated("not XML");
            return nullptr;
        }
        if (!isLatin1(text)) {
            replaceInvalidBytes(text);
        }
    }
    std::unique_ptr<Description> description(new Description);
    description->m_text = std::move(text);
    if (!description->load(error)) {
        return nullptr;
    }
    description->collectNodes();
    if (description->find("Root") == absent) {
        error = translated("not a camera description: no root category");
        return nullptr;
    }
    description->resolveReferences();
    return description;
}

bool Description::load(std::string& error)
{
    const pugi::xml_encoding encoding = isLatin1(m_text) ? pugi::encoding_latin1
        : isUtf16(m_text)                                ? pugi::encoding_auto
                                                         : pugi::encoding_utf8;
    const pugi::xml_parse_result result = m_document.load_buffer_inplace(
        m_text.data(), m_text.size(), pugi::parse_default | pugi::parse_embed_pcdata, encoding);
    if (!result) {
        error = worded("malformed XML at byte %s", std::to_string(result.offset).c_str()) + ": "
            + result.description();
        return false;
    }
    if (nodeKind(root().name()) != NodeKind::RegisterDescription) {
        error = translated("not a camera description: no RegisterDescription element");
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
    // Real descriptions have a node in 60 to 300 bytes.
    constexpr std::size_t bytesPerNode = 120;
    m_nodes.reserve(m_text.size() / bytesPerNode);
    m_byName.reserve(m_text.size() / bytesPerNode);
    struct Part {
        std::size_t node;
        pugi::xml_node element;
        int depth;
    };
    std::vector<Part> around; // the nodes that an element is part of
    forEachBelow(root(), [&](const pugi::xml_node& element, int depth) {
        joinTexts(element);
        while (!around.empty() && around.back().depth >= depth) {
            around.pop_back();
        }
        for (const Part& part : around) {
            DescriptionNode& node = m_nodes[part.node];
            if (node.element == part.element) {
                addReferences(node.references, element);
            }
        }
        const std::size_t node = addNode(element);
        if (node != absent && !isContainer(m_nodes[node].kind)) {
            around.push_back({ node, element, depth });
        }
    });
}

/// The node that an element is, or `absent`.
std::size_t Description::addNode(const pugi::xml_node& element)
{
    const std::string_view name = element.attribute("Name").value();
    if (name.empty() || !isNode(element.name())) {
        return absent;
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
    node.references.clear();
    return place->second;
}

void Description::resolveReferences()
{
    for (DescriptionNode& node : m_nodes) {
        if (node.kind == NodeKind::StructEntry) {
            for (const pugi::xml_node& shared : node.element.parent().children()) {
                addReferences(node.references, shared);
            }
        }
        for (Reference& reference : node.references) {
            reference.target = find(targetName(reference));
        }
    }
}

} // namespace zqcameralib
