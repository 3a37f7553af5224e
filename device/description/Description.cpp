#include "description/Description.h"

#include <algorithm>
#include <array>

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

/// Camera tools write a line about the camera before the XML.
std::string_view fromFirstTag(std::string_view text)
{
    const std::size_t start = text.find('<');
    return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

bool isUtf16(std::string_view text)
{
    return text.size() >= 2
        && ((text[0] == '\xFF' && text[1] == '\xFE') || (text[0] == '\xFE' && text[1] == '\xFF'));
}

bool isContinuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// Bytes of the valid UTF-8 sequence at `at`, 0 when there is none.
std::size_t sequenceLength(std::string_view text, std::size_t at)
{
    const auto lead = static_cast<unsigned char>(text[at]);
    if (lead < 0x80U) {
        return lead >= 0x20U || lead == '\t' || lead == '\n' || lead == '\r' ? 1 : 0;
    }
    const std::size_t length = lead >= 0xF0U ? 4 : lead >= 0xE0U ? 3 : 2;
    if (lead < 0xC2U || lead > 0xF4U || at + length > text.size()) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if (!isContinuation(text[at + i])) {
            return 0;
        }
    }
    const auto second = static_cast<unsigned char>(text[at + 1]);
    const bool outside = (lead == 0xE0U && second < 0xA0U) || (lead == 0xEDU && second > 0x9FU)
        || (lead == 0xF0U && second < 0x90U) || (lead == 0xF4U && second > 0x8FU);
    return outside ? 0 : length;
}

/// What is not text in XML would stop the parsers below; it becomes question marks.
void replaceInvalidBytes(std::string& text)
{
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = sequenceLength(text, at);
        if (length == 0) {
            text[at] = '?';
        }
        at += std::max<std::size_t>(length, 1);
    }
}

/// Containers: what they hold counts as standing beside them.
bool isContainer(std::string_view kind)
{
    return kind == "Group" || kind == "RegisterDescription" || kind == "StructReg";
}

bool isReference(std::string_view tag)
{
    return tag.size() > 1 && tag[0] == 'p' && tag[1] >= 'A' && tag[1] <= 'Z';
}

} // namespace

bool DescriptionNode::isRegister() const
{
    return kind == "IntReg" || kind == "MaskedIntReg" || kind == "StructEntry" || kind == "FloatReg"
        || kind == "StringReg" || kind == "Register";
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
        const std::string_view xml = fromFirstTag(text);
        if (xml.empty()) {
            error = "not XML";
            return nullptr;
        }
        text.erase(0, text.size() - xml.size());
    }
    std::unique_ptr<Description> description(new Description);
    const bool latin1 = text.substr(0, 200).find("8859-1") != std::string::npos;
    if (!latin1 && !isUtf16(text)) {
        replaceInvalidBytes(text);
    }
    const pugi::xml_parse_result result
        = description->m_document.load_buffer(text.data(), text.size(), pugi::parse_default,
            latin1 ? pugi::encoding_latin1
                   : (isUtf16(text) ? pugi::encoding_auto : pugi::encoding_utf8));
    if (!result) {
        error = "malformed XML at byte " + std::to_string(result.offset) + ": "
            + result.description();
        return nullptr;
    }
    if (description->root().name() != std::string_view("RegisterDescription")) {
        error = "not a camera description: no RegisterDescription element";
        return nullptr;
    }
    description->collectNodes(description->root());
    if (description->find("Root") == absent) {
        error = "not a camera description: no root category";
        return nullptr;
    }
    for (DescriptionNode& node : description->m_nodes) {
        description->collectReferences(node);
    }
    return description;
}

std::size_t Description::find(std::string_view name) const
{
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? absent : found->second;
}

void Description::collectNodes(const pugi::xml_node& parent)
{
    struct Walker : pugi::xml_tree_walker {
        Description* description = nullptr;
        bool for_each(pugi::xml_node& element) override
        {
            const std::string_view kind = element.name();
            const std::string_view name = element.attribute("Name").value();
            if (name.empty() || kind == "EnumEntry" || kind[0] == 'p' || kind == "Constant"
                || kind == "Expression" || kind == "Group") {
                return true;
            }
            // A name given twice: the node map below keeps the last one.
            const auto [place, fresh]
                = description->m_byName.emplace(name, description->m_nodes.size());
            if (fresh) {
                description->m_nodes.push_back({ element, name, kind, {}, {} });
            } else {
                description->m_nodes[place->second].element = element;
                description->m_nodes[place->second].kind = kind;
            }
            return true;
        }
    };
    Walker walker;
    walker.description = this;
    pugi::xml_node start = parent;
    start.traverse(walker);
}

void Description::collectReferences(DescriptionNode& node)
{
    struct Walker : pugi::xml_tree_walker {
        Description* description = nullptr;
        DescriptionNode* node = nullptr;
        void add(const pugi::xml_node& element, std::string_view tag, const char* target) const
        {
            node->references.push_back({ element, tag, description->find(trimmed(target)) });
        }
        bool for_each(pugi::xml_node& element) override
        {
            if (!isReference(element.name())) {
                return true;
            }
            add(element, element.name(), element.text().get());
            if (const pugi::xml_attribute offset = element.attribute("pOffset")) {
                add(element, "pOffset", offset.value());
            }
            return true;
        }
    };
    Walker walker;
    walker.description = this;
    walker.node = &node;
    if (isContainer(node.kind)) {
        return;
    }
    node.element.traverse(walker);
    if (node.kind != "StructEntry") {
        return;
    }
    for (pugi::xml_node shared : node.element.parent().children()) {
        if (shared.name() != std::string_view("StructEntry") && isReference(shared.name())) {
            walker.for_each(shared);
        }
    }
}

} // namespace zqcameralib
