"""Which test programs are asked about a file first."""

import json
import pathlib
import re


class Programs:
    """The test programs of a build, with the sources of each."""

    def __init__(self, sources, build):
        self._sources = {}
        for entry in json.loads((build / "compile_commands.json").read_text()):
            name = re.search(r" -o \S*CMakeFiles/([^/]+)\.dir/", entry["command"])
            file = pathlib.Path(entry["file"])
            if name and file.is_relative_to(sources / "tests") and file.stem.endswith("_test"):
                self._sources.setdefault(name.group(1), []).append(file)
        self._root = sources

    def names(self):
        return sorted(self._sources)

    def nearest_first(self, file):
        """The programs in three steps: those with a test by the file's own name (or, without one, by its header),
        those with the tests of its folder, the others."""
        path = pathlib.PurePath(file)
        by_name = self._those_with(lambda test: test.stem.startswith(path.stem))
        header = f'#include "{path.with_suffix(".h")}"'
        by_header = self._those_with(lambda test: header in test.read_text())
        of_folder = self._those_with(lambda test: test.parent.name == path.parent.name) | by_name | by_header
        first = by_name or by_header or of_folder
        steps = [first, of_folder - first, set(self.names()) - of_folder]
        return [sorted(step) for step in steps if step]

    def _those_with(self, is_wanted):
        return {name for name, tests in self._sources.items() if any(is_wanted(test) for test in tests)}
