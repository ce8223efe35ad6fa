"""Draws changes by a seed, area by area, in an order that other changes of the sources hardly alter."""

import hashlib
import math
import re
from collections import Counter

PANES = ("core", "root", "prefix", "styles", "extras", "animated")
# What is drawn for, and the folders of each.
GROUPS = {"panes": PANES, "platform": ("platform",), "linux": ("linux",), "calling": ("calling",)}
GROUP_OF = {folder: group for group, folders in GROUPS.items() for folder in folders}


def folder_of(file):
    return file.split("/")[0]


def chance(seed, key):
    """A number above 0 and at most 1, the same for the same seed and key."""
    digest = hashlib.sha256(repr((seed, *key)).encode()).digest()
    return (int.from_bytes(digest[:8], "big") + 1) / 2**64


def weights(changes):
    """A file weighs as much as the square root of its changes, so that tables do not outweigh what decides; the kinds
    of change that it has weigh the same."""
    of_file = Counter(change.file for change in changes)
    of_kind = Counter((change.file, change.kind) for change in changes)
    kinds = Counter(file for file, _ in of_kind)
    return {
        change.key: math.sqrt(of_file[change.file]) / kinds[change.file] / of_kind[change.file, change.kind]
        for change in changes
    }


def drawn(changes, seed):
    """All of them in the order in which they are drawn, each with a chance by its weight among those left."""
    weight = weights(changes)
    return sorted(changes, key=lambda change: -math.log(chance(seed, change.key)) / weight[change.key])


def changed_lines(difference):
    """The lines of each file that `git diff -U0` says were added or changed."""
    lines = {}
    file = None
    for line in difference.splitlines():
        if line.startswith("+++ "):
            file = line[6:] if line.startswith("+++ b/") else None
        hunk = re.match(r"@@ -\S+ \+(\d+)(?:,(\d+))? @@", line)
        if hunk and file:
            first, count = int(hunk.group(1)), int(hunk.group(2) or 1)
            lines.setdefault(file, set()).update(range(first, first + count))
    return lines
