"""The checks of the sources look at the same files in a repository and in an unpacked archive."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

SOURCES = pathlib.Path(os.environ["QUIETDIAL_SOURCES"])
FILES = ["core/rowHeight.h", "core/rowHeight.cc", "tests/unit/CMakeLists.txt", "tests/unit/core/rowHeight_test.cc",
         ".clang-format"]


class Sources(unittest.TestCase):
    """A small project with the scripts and a few files of this one."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        shutil.copytree(SOURCES / "scripts", self.folder / "scripts")
        for name in FILES:
            self.add(name, (SOURCES / name).read_text())

    def add(self, name, text):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def run_in(self, *command):
        return subprocess.run(command, cwd=self.folder, capture_output=True, text=True, check=False, timeout=60,
                              env=dict(os.environ, GIT_CEILING_DIRECTORIES=str(self.folder.parent)))

    def make_repository(self):
        for words in (["init", "-q"], ["add", "."]):
            self.assertEqual(self.run_in("git", *words).returncode, 0)

    def listed(self, *patterns):
        return sorted(self.run_in("scripts/sources", *patterns).stdout.split())

    def test_a_repository_and_an_archive_hold_the_same_files(self):
        archive = self.listed("*.h", "*.cc", "tests/*_test.cc")
        self.assertEqual(archive, sorted(name for name in FILES if name.endswith((".h", ".cc"))))
        self.make_repository()
        self.assertEqual(self.listed("*.h", "*.cc", "tests/*_test.cc"), archive)

    def test_what_is_built_in_an_archive_is_no_source(self):
        before = self.listed("*.h", "*.cc")
        for name in ("build/a.cc", "build-debug/x/a.h", ".cache/a.cc"):
            self.add(name, "")
        self.assertEqual(self.listed("*.h", "*.cc"), before)

    def test_no_file_at_all_is_a_fault(self):
        for make in (lambda: None, self.make_repository):
            make()
            result = self.run_in("scripts/sources", "*.nothing")
            self.assertNotEqual(result.returncode, 0)
            self.assertIn("*.nothing", result.stderr)

    def assert_lint(self, fault):
        """Lint finds that fault, and nothing without one."""
        result = self.run_in("scripts/lint")
        self.assertEqual(result.returncode != 0, bool(fault), result.stdout + result.stderr)
        self.assertIn(fault, result.stdout + result.stderr)

    def test_every_check_finds_its_fault_with_a_repository_and_without(self):
        faults = {
            "core/bad.cc": ('#include "linux/readFile.h"\n', "core/ may not include linux/readFile.h"),
            "core/badly.cc": ("int   a;\n", "core/badly.cc"),
            "tests/unit/core/forgotten_test.cc": ("", "forgotten_test.cc is in no CMakeLists.txt"),
        }
        for in_repository in (False, True):
            if in_repository:
                self.make_repository()
            self.assert_lint("")
            for name, (text, said) in faults.items():
                with self.subTest(name, in_repository=in_repository):
                    self.add(name, text)
                    if in_repository:
                        self.run_in("git", "add", name)
                    self.assert_lint(said)
                    if in_repository:
                        self.run_in("git", "rm", "-q", "--cached", name)
                    (self.folder / name).unlink()


if __name__ == "__main__":
    unittest.main()
