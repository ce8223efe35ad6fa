#!/usr/bin/env python3
"""Which folder may include what. The arrows go one way: panes -> platform <- services <- programs."""

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
    "calling": {"core", "prefix"},
    "linux": {"calling", "core/preferenceStore.h", "core/settingsTable.h", "platform"},
    "headless": {"platform"},
    "settings": {"core/settingsTable.h", "linux", "headless", "platform", "tools/version.h"},
    "tools": PANES | {"calling", "linux", "headless", "platform"},
}

# These stay on the standard library.
STANDARD_ONLY = PANES | {"calling", "platform", "headless"}

# Headers of the standard library have no dot, no slash and no capital letter.
STANDARD_HEADER = re.compile(r"^[a-z_0-9]+$")


def main() -> int:
    files = subprocess.run(["scripts/sources", "*.h", "*.cc"], check=True, stdout=subprocess.PIPE, text=True).stdout
    faults = []
    for name in files.split():
        folder = name.split("/")[0]
        if folder not in ALLOWED:
            continue
        for number, line in enumerate(pathlib.Path(name).read_text().splitlines(), 1):
            include = re.match(r'\s*#include\s+([<"])([^>"]+)[>"]', line)
            if not include:
                continue
            bracket, target = include.groups()
            if bracket == '"':
                top = target.split("/")[0]
                if top != folder and top not in ALLOWED[folder] and target not in ALLOWED[folder]:
                    faults.append(f"{name}:{number}: {folder}/ may not include {target}")
            elif folder in STANDARD_ONLY and not STANDARD_HEADER.match(target):
                faults.append(f"{name}:{number}: {folder}/ stays on the standard library, not <{target}>")
    print("\n".join(faults), file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
