#!/usr/bin/env python3

# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

"""Each file includes only what its place in the house allows. Argument: the source directory.

Folders keep to their libraries; the rooms of a folder include downwards only, so that no circle
can arise; a room is small enough to be taken in at a glance.
"""
import pathlib
import re
import sys

UI = r"Q[A-Z]|Qt|qwt|qglobal|K[A-Z]"
CAMERA = r"arv|glib|gio|gobject|pugixml|libusb"
FORBIDDEN = {
    "include": f"{UI}|{CAMERA}|safe_",
    "src": rf"{UI}|{CAMERA}|\.\./",
    "widget": rf"{CAMERA}|safe_|\.\./(src|device)",
    "device": rf"{UI}|safe_|\.\./(src|widget)",
    "imageview": rf"{CAMERA}|safe_|\.\./(src|widget|device)",
    "viewer": rf"{CAMERA}|safe_|\.\./(src|widget|device)",
    "examples": rf"{CAMERA}|safe_|\.\./",
}
# A widget whose header shows what it is derived from.
UI_FACES = {"include/featurebrowser/ZQImageView.h"}
# From the ground up: a room may include those before it. docs/architecture.md draws them.
ROOMS = {
    "device": [
        "words", "base", "network", "usb", "frames", "scene", "registers", "formula", "description", "nodemap",
        "validation", "features",
        "memory", "simulation", "session", "stream", "link", "camera", "chunks", "operations",
        "acquisition", "opening", "settings", "capture", "transfer",
    ],
    "widget": ["row", "text", "look", "model", "events", "history", "editors", "tree", "panes", "window"],
    "imageview": ["formats", "rows", "view"],
    "viewer": ["program", "camera", "images", "log", "opening", "settings", "window", "batch"],
}
MOST_FILES = 16
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)')

root = pathlib.Path(sys.argv[1])
complaints = []


def sources(folder):
    return [f for f in sorted((root / folder).rglob("*")) if f.suffix in (".h", ".cpp")]


def includes(file):
    for number, line in enumerate(file.read_text().splitlines(), 1):
        found = INCLUDE.match(line)
        if found:
            yield f"{file.relative_to(root)}:{number}", found.group(2), found.group(1) == '"'


def check_folder(folder):
    for file in sources(folder):
        is_ui = str(file.relative_to(root)) in UI_FACES
        forbidden = f"{CAMERA}|safe_" if is_ui else FORBIDDEN[folder]
        for place, target, _ in includes(file):
            if re.match(forbidden, target):
                complaints.append(f"{place}: {folder} may not include {target}")


def check_declarations(file):
    text = file.read_text()
    for name in re.findall(r"^(?:class|struct) (\w+);$", text, re.MULTILINE):
        if len(re.findall(rf"\b{name}\b", text)) == 1:
            complaints.append(f"{file.relative_to(root)}: declares {name}, which it does not use")


def room_of(folder, file):
    parts = file.relative_to(root / folder).parts
    return parts[0] if len(parts) > 1 else None


def check_room(folder, rooms, file):
    room = room_of(folder, file)
    if room is not None and room not in rooms:
        complaints.append(f"{file.relative_to(root)}: no such room")
        return
    for place, target, is_own in includes(file):
        if not is_own or target.startswith("featurebrowser/"):
            continue
        other = target.split("/")[0]
        if other not in rooms:
            complaints.append(f"{place}: {target} does not name its room")
        elif room is not None and rooms.index(other) > rooms.index(room):
            complaints.append(f"{place}: {room} is below {other}")


def circle(file, folder, above, done):
    """The first include circle through `file`, as a text; empty when there is none."""
    if file in done or not file.exists():
        return ""
    if file in above:
        return " -> ".join(str(f.relative_to(root)) for f in [*above[above.index(file):], file])
    for _, target, is_own in includes(file):
        found = circle(root / folder / target, folder, [*above, file], done) if is_own else ""
        if found:
            return found
    done.add(file)
    return ""


for folder in FORBIDDEN:
    check_folder(folder)
    for file in sources(folder):
        check_declarations(file)
for folder, rooms in ROOMS.items():
    for file in sources(folder):
        check_room(folder, rooms, file)
    done = set()
    circles = (circle(file, folder, [], done) for file in sources(folder))
    complaints.extend(f"circle: {found}" for found in [next(filter(None, circles), "")] if found)
    for room in rooms:
        count = sum(1 for f in (root / folder / room).iterdir() if f.suffix in (".h", ".cpp"))
        if count > MOST_FILES:
            complaints.append(f"{folder}/{room}: {count} files, at most {MOST_FILES}")
    faces = [f for f in (root / folder).iterdir() if f.suffix == ".h"]
    complaints.extend(f"{f.relative_to(root)}: belongs in a room" for f in faces)

print("\n".join(complaints))
sys.exit(1 if complaints else 0)
