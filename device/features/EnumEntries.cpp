#include "features/EnumEntries.h"

#include "base/NumberText.h"

#include <algorithm>
#include <unordered_map>

namespace zqcameralib {

namespace {

std::string_view nameOf(ArvGcFeatureNode* node)
{
    const char* name = arv_gc_feature_node_get_name(node);
    return name == nullptr ? "" : name;
}

/// The entry, or the first after it that the node map has: those with a value.
pugi::xml_node firstUsable(pugi::xml_node entry)
{
    while (entry && !entry.child("Value")) {
        entry = entry.next_sibling("EnumEntry");
    }
    return entry;
}

/// Entries may share a name.
bool isSame(ArvGcFeatureNode* node, pugi::xml_node entry)
{
    return nameOf(node) == entry.attribute("Name").value()
        && arv_gc_enum_entry_get_value(ARV_GC_ENUM_ENTRY(node), nullptr)
        == leadingInteger(childText(entry, "Value"));
}

/// The node map's entries, in the order of the description.
std::vector<ArvGcFeatureNode*> entryNodes(ArvGcEnumeration* enumeration, pugi::xml_node first)
{
    std::vector<ArvGcFeatureNode*> nodes;
    for (const GSList* at = arv_gc_enumeration_get_entries(enumeration); at != nullptr;
         at = at->next) {
        if (ARV_IS_GC_ENUM_ENTRY(at->data)) {
            nodes.push_back(ARV_GC_FEATURE_NODE(at->data));
        }
    }
    // The node map collects them by prepending.
    if (!nodes.empty() && isSame(nodes.back(), first)) {
        std::reverse(nodes.begin(), nodes.end());
    }
    return nodes;
}

/// Of several conditions of a kind the first one counts.
bool isEntryCondition(const DescriptionNode& node, const Reference& reference)
{
    const pugi::xml_node entry = reference.element.parent();
    return (reference.tag == ReferenceTag::IsImplemented
               || reference.tag == ReferenceTag::IsAvailable)
        && reference.isResolved() && entry != node.element
        && reference.element == entry.child(reference.element.name());
}

using References = std::vector<const Reference*>;

/// The conditions of the entries, by their elements.
std::unordered_map<std::size_t, References> entryConditions(const DescriptionNode& node)
{
    std::unordered_map<std::size_t, References> conditions;
    for (const Reference& reference : node.references) {
        if (isEntryCondition(node, reference)) {
            conditions[reference.element.parent().hash_value()].push_back(&reference);
        }
    }
    return conditions;
}

} // namespace

std::vector<EnumEntry> enumEntries(ArvGcEnumeration* enumeration, const DescriptionNode& node)
{
    auto conditions = entryConditions(node);
    std::vector<EnumEntry> entries;
    pugi::xml_node element = firstUsable(node.element.child("EnumEntry"));
    for (ArvGcFeatureNode* gc : entryNodes(enumeration, element)) {
        EnumEntry entry;
        entry.name = nameOf(gc);
        entry.value = arv_gc_enum_entry_get_value(ARV_GC_ENUM_ENTRY(gc), nullptr);
        for (const Reference* reference : conditions[element.hash_value()]) {
            entry.availableIf.push_back(conditionOf(gc, *reference));
        }
        element = firstUsable(element.next_sibling("EnumEntry"));
        entries.push_back(std::move(entry));
    }
    return entries;
}

} // namespace zqcameralib
