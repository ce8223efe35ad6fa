"""The changes that were judged to change nothing, each with its reason."""

import json
import pathlib

FILE = pathlib.Path(__file__).parent / "equal.json"


def reasons():
    """The reason of each, by the change's key."""
    if not FILE.exists():
        return {}
    return {
        (entry["file"], entry["before"], entry["after"], entry.get("nth", 0)): entry["reason"]
        for entry in json.loads(FILE.read_text())
    }
