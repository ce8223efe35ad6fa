#!/usr/bin/env python3
"""Which folder may include what. The arrows go one way: panes -> platform <- services <- programs.
In a folder with rooms they go one way between these as well."""

import graphlib
import pathlib
import re
import subprocess
import sys

PANES = {"core", "root", "styles", "prefix", "extras", "animated", "bundle"}

# folder -> project folders that it may include, besides itself
ALLOWED = {
    "platform": set(),
    "core": {"platform"},
    "root": {"core", "platform"},
    "prefix": {"core", "platform"},
    "styles": {"core", "animated", "platform"},
    "extras": {"core", "root", "platform"},
    "animated": {"platform"},
    "bundle": PANES | {"platform"},
    "examples": {"platform"},
    "calling": {"core", "platform/foundation/asciiText.h", "prefix"},
    "linux": {"calling", "core/preferenceStore.h", "core/settingsTable.h", "platform"},
    "changes": {"calling", "core", "linux", "platform", "prefix"},
    "headless": {"platform"},
    "dialler": {"calling", "linux", "platform", "settings"},
    "settings": {"changes", "core/settingsTable.h", "linux", "headless", "platform", "tools/version.h"},
    "tools": PANES | {"calling", "changes", "linux", "headless", "platform"},
}

# What every framework may use.
SERVICES = {"platform/api.h", "platform/services.h"}
# What every program on the window may use.
WINDOW = {"settings/" + room for room in ("accessibility", "appearance", "bundles", "items", "messages", "mirror",
                                          "navigation", "pictures", "qml", "services", "sheets", "start", "window")}

# room -> what of its own folder and of those that only some rooms use it may include, besides itself
ROOMS = {
    "platform": {"platform/" + room for room in ("coregraphics", "foundation", "imageio", "libsystem", "makers",
                                                 "messageui", "preferences", "quartzcore", "social", "uikit")},
    "platform/coregraphics": {"platform/api.h"},
    "platform/foundation": SERVICES,
    "platform/imageio": {"platform/api.h", "platform/coregraphics", "platform/foundation/asciiText.h"},
    "platform/libsystem": SERVICES | {"platform/foundation"},
    "platform/quartzcore": SERVICES | {"platform/coregraphics", "platform/foundation"},
    "platform/uikit": SERVICES | {"platform/coregraphics", "platform/foundation", "platform/quartzcore"},
    "platform/preferences": SERVICES | {"platform/foundation", "platform/uikit"},
    "platform/messageui": SERVICES | {"platform/foundation", "platform/uikit"},
    "platform/social": SERVICES | {"platform/foundation", "platform/uikit"},
    "platform/makers": SERVICES | {"platform/foundation", "platform/preferences", "platform/uikit"},
    "settings/accessibility": set(),
    "settings/messages": set(),
    "settings/appearance": {"settings/messages"},
    "settings/pictures": set(),
    "settings/qml": set(),
    "settings/sheets": {"linux", "settings/messages"},
    "settings/services": {"linux", "settings/appearance", "tools"},
    "settings/mirror": {"settings/accessibility", "settings/appearance", "settings/messages", "settings/qml"},
    "settings/items": {"linux", "settings/accessibility", "settings/appearance", "settings/mirror", "settings/pictures",
                       "settings/services"},
    "settings/navigation": {"settings/appearance", "settings/mirror", "settings/pictures"},
    "settings/window": WINDOW - {"settings/bundles", "settings/start", "settings/window"} | {"core", "linux"},
    "settings/start": WINDOW - {"settings/bundles", "settings/start"} | {"linux", "tools"},
    "settings/bundles": {"linux", "settings/messages", "settings/start", "settings/window"},
    "settings/tour": WINDOW | {"headless", "linux"},
    "settings/phone": {"linux"},
    "settings/program": WINDOW | {"linux", "settings/phone"},
    "dialler/look": set(),
    "dialler/model": {"calling", "linux"},
    "dialler/desk": {"dialler/model", "linux"},
    "dialler/program": WINDOW - {"settings/bundles"} | {"dialler/desk", "dialler/model", "linux"},
}
# Folders that every room of a folder may include.
SHARED = {"dialler": {"platform"}, "settings": {"platform"}, "platform": set()}

# These stay on the standard library.
STANDARD_ONLY = PANES | {"calling", "examples", "platform", "headless"}

# Headers of the standard library have no dot, no slash and no capital letter.
STANDARD_HEADER = re.compile(r"^[a-z_0-9]+$")


def room_of(name: str) -> str:
    """The room that a file lies in; its folder where that has no rooms, or the file stands before them."""
    folder, room = name.split("/")[:2]
    return f"{folder}/{room}" if folder in SHARED and "." not in room else folder


def is_allowed(room: str, target: str) -> bool:
    folder, top = room.split("/")[0], target.split("/")[0]
    if top != folder and top not in ALLOWED[folder] and target not in ALLOWED[folder]:
        return False
    if folder not in SHARED or room_of(target) == room:
        return True
    allowed = ROOMS.get(room, set()) | SHARED[folder]
    return top in allowed or room_of(target) in allowed or target in allowed


def main() -> int:
    graphlib.TopologicalSorter(ROOMS).prepare()  # raises where rooms lead in a circle
    files = subprocess.run(["scripts/sources", "*.h", "*.cc"], check=True, stdout=subprocess.PIPE, text=True).stdout
    faults = []
    for name in files.split():
        folder = name.split("/")[0]
        if folder not in ALLOWED:
            continue
        room = room_of(name)
        if folder in SHARED and room not in ROOMS:
            faults.append(f"{name}: {room}/ is no room of {folder}/ that scripts/check-includes.py knows")
            continue
        for number, line in enumerate(pathlib.Path(name).read_text().splitlines(), 1):
            include = re.match(r'\s*#include\s+([<"])([^>"]+)[>"]', line)
            if not include:
                continue
            bracket, target = include.groups()
            if bracket == '"':
                if not is_allowed(room, target):
                    faults.append(f"{name}:{number}: {room}/ may not include {target}")
            elif folder in STANDARD_ONLY and not STANDARD_HEADER.match(target):
                faults.append(f"{name}:{number}: {folder}/ stays on the standard library, not <{target}>")
    for fault in faults:
        print(fault, file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
