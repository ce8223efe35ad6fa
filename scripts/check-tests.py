#!/usr/bin/env python3
"""Every test file is named in a CMakeLists.txt: a test that is not built tests nothing."""

import pathlib
import subprocess
import sys


def main() -> int:
    tests = subprocess.run(
        ["scripts/sources", "tests/*_test.cc", "tests/*_test.py"], check=True, stdout=subprocess.PIPE, text=True
    ).stdout.split()
    lists = "\n".join(path.read_text() for path in pathlib.Path("tests").rglob("CMakeLists.txt"))
    forgotten = [name for name in tests if pathlib.Path(name).stem not in lists]
    for name in forgotten:
        print(f"{name} is in no CMakeLists.txt", file=sys.stderr)
    return 1 if forgotten else 0


if __name__ == "__main__":
    sys.exit(main())
