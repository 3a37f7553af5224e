#!/usr/bin/env python3

# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

"""The libraries show what the public headers declare for export, and nothing else.

Arguments: nm, the folder of the headers, the libraries.
"""
import pathlib
import re
import subprocess
import sys

NOISE = re.compile(r"=\s*\{\}|//[^\n]*|^\s*#.*?$|\b(?:public|protected|private|Q_SIGNALS):", re.MULTILINE)
SCOPE = re.compile(r"(?:namespace|class|struct)\s+(ZQ_EXPORT )?(\w+)(?:\s*:.*)?$", re.DOTALL)
# What the macro of Qt's meta-objects declares.
META_OBJECT = {"metaObject", "qt_metacast", "qt_metacall", "staticMetaObject"}
CLASS_DATA = re.compile(r"(?:vtable|typeinfo|typeinfo name) for (.*)")
nm, headers, *libraries = sys.argv[1:]
classes, functions = set(), set()


def declare(text, scopes, has_body):
    """Takes the statement in, where it declares a function or variable for export."""
    is_exported = "ZQ_EXPORT" in text or (scopes and scopes[-1][1])
    found = re.search(r"(~?\w+)\s*\(|extern.* (\w+)$", text)
    if not is_exported or not found or re.match(r"(using|friend)\b", text):
        return
    name = "::".join([scope for scope, _ in scopes] + [found.group(1) or found.group(2)])
    if not has_body and not re.search(r"=\s*(0|delete|default)$", text):
        functions.add(name)


def skip_block(code, at):
    depth = 1
    while depth:
        depth += {"{": 1, "}": -1}.get(code[at], 0)
        at += 1
    return at


def read_header(code):
    scopes, start, at = [], 0, 0
    while found := re.compile("[{};]").search(code, at):
        text, at = code[start:found.start()].strip(), found.end()
        if "Q_OBJECT" in text:
            functions.update("::".join([s for s, _ in scopes] + [name]) for name in META_OBJECT)
            text = text.replace("Q_OBJECT", "").strip()
        scope = SCOPE.match(text)
        if found.group() == "{" and scope:
            scopes.append((scope.group(2), bool(scope.group(1))))
            if scope.group(1):
                classes.add("::".join(name for name, _ in scopes))
        elif found.group() == "{":
            at = skip_block(code, at)
            declare(text, scopes, True)
        elif found.group() == "}":
            scopes.pop()
        elif not scope:
            declare(text, scopes, False)
        start = at


def symbols(library):
    command = [nm, "-DC", "--defined-only", "--format=just-symbols", library]
    return set(subprocess.run(command, check=True, capture_output=True, text=True).stdout.splitlines())


def name_of(symbol):
    """The function or variable without its parameters, and of which ABI its result is."""
    return re.sub(r"\[abi:\w+\]|\(.*|@.*", "", symbol.replace("non-virtual thunk to ", ""))


for header in pathlib.Path(headers).glob("*.h"):
    read_header(NOISE.sub("", header.read_text()))
complaints, shown = [], set()
for library in libraries:
    for symbol in symbols(library):
        data = CLASS_DATA.match(symbol)
        if data.group(1) not in classes if data else name_of(symbol) not in functions:
            complaints.append(f"{pathlib.Path(library).name} shows what is internal: {symbol}")
        shown.add(name_of(symbol))
complaints += [f"No library shows {name}" for name in sorted(functions - shown)]
print("\n".join(complaints))
sys.exit(1 if complaints or not classes else 0)
