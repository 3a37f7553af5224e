#!/usr/bin/env python3

# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

"""Says in lines what an application is built against, from what abidw writes (standard input): every
symbol, what it gives, the layout of each record, the virtual functions of each class, the values of
enumerations.

Not left to abidiff: it follows functions to their types, and so misses the records that are handed
out in containers, whose insides are the standard library's.
"""
import sys
import xml.etree.ElementTree as xml

OURS = ("zqcameralib", "featurebrowser")
MODIFIERS = {"pointer-type-def": "*", "reference-type-def": "&", "qualified-type-def": " const"}


def type_name(types, key, depth=0):
    node = types.get(key)
    if node is None or depth > 9:
        return "?"
    if node.tag in MODIFIERS:
        return type_name(types, node.get("type-id"), depth + 1) + MODIFIERS[node.tag]
    return node.get("name") or node.tag


def record(types, node):
    """Size and layout of a class in one text: whatever becomes of it, applications notice."""
    parts = [f"{node.get('size-in-bits')} bits"]
    for base in node.findall("base-class"):
        parts.append(f"{type_name(types, base.get('type-id'))} at {base.get('layout-offset-in-bits')}")
    for member in node.findall("data-member"):
        variable = member.find("var-decl")
        place = member.get("layout-offset-in-bits") or "static"
        parts.append(f"{type_name(types, variable.get('type-id'))} {variable.get('name')} at {place}")
    slots = {}
    for function in node.findall("member-function[@vtable-offset]"):
        slots.setdefault(int(function.get("vtable-offset")), function.find("function-decl").get("name"))
    parts += [f"virtual {slot}: {name}" for slot, name in sorted(slots.items())]
    return "; ".join(parts)


def walk(types, node, scope, facts, records):
    for child in node:
        name = "::".join(scope + [child.get("name") or ""])
        is_ours = scope and scope[0] in OURS
        if child.tag == "class-decl" and is_ours and not child.get("is-declaration-only"):
            # Some sources see less of it than others.
            records[name] = max(records.get(name, ""), record(types, child), key=len)
        if child.tag == "enum-decl" and is_ours:
            facts.update(f"{name}: {e.get('name')} = {e.get('value')}" for e in child.iter("enumerator"))
        if child.get("elf-symbol-id"):
            result = child.find("return")
            kind = child.get("type-id") if result is None else result.get("type-id")
            facts.add(f"{child.get('elf-symbol-id')} gives {type_name(types, kind)}")
        inner = scope + [child.get("name")] if child.tag in ("namespace-decl", "class-decl") else scope
        walk(types, child, inner, facts, records)


root = xml.parse(sys.stdin).getroot()
types = {node.get("id"): node for node in root.iter() if node.get("id")}
facts, records = {f"soname {root.get('soname')}"}, {}
facts.update(f"symbol {symbol.get('name')}" for symbol in root.iter("elf-symbol"))
walk(types, root, [], facts, records)
facts.update(f"{name}: {layout}" for name, layout in records.items())
print("\n".join(sorted(facts)))
