"""Where the programs look for libraries: in fixed places only, never in the folder that one happens to be in."""

import json
import os
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
import elf  # noqa: E402

BUILD = os.environ["QUIETDIAL_BUILD"]
LIBRARY = "lib/quietdial/libquietdial-platform.so"


class RunPath(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.prefix = folder.name
        cls.installed = elf.install(BUILD, cls.prefix)
        cls.sections = {path: elf.dynamic_section(path) for path in elf.programs(BUILD) + cls.installed}

    def test_what_is_built_and_installed_is_read(self):
        for folder, names in (
            (BUILD, ("bin/quietdial", "bin/standins/MobilePhone", LIBRARY, "tests/mail_test")),
            (self.prefix, ("bin/quietdial", LIBRARY)),
        ):
            for name in names:
                self.assertIn(os.path.join(folder, name), list(self.sections))

    def test_no_run_path_has_an_empty_or_relative_element(self):
        for path, section in self.sections.items():
            for run_path in elf.entries(section, "RUNPATH|RPATH"):
                for element in run_path.split(":"):
                    self.assertRegex(element, r"^(/|\$ORIGIN(/|$))", f"[{run_path}] of {path}")

    def test_libraries_are_known_by_name_and_not_by_a_path(self):
        for path, section in self.sections.items():
            for library in elf.entries(section, "NEEDED"):
                self.assertNotIn("/", library, path)

    def test_a_library_in_the_working_folder_is_not_loaded(self):
        installed = [path for path in self.installed if os.path.dirname(path) == os.path.join(self.prefix, "bin")]
        self.assertTrue(installed)
        for program in installed + [os.path.join(BUILD, "bin", os.path.basename(path)) for path in installed]:
            with self.subTest(program), tempfile.TemporaryDirectory() as folder:
                for line in elf.output("ldd", program).splitlines():
                    if "=>" in line:
                        # No library: the loader gives up where it comes upon it.
                        with open(os.path.join(folder, line.split()[0]), "wb") as file:
                            file.write(b"planted")
                answer = subprocess.run([program, "--version"], cwd=folder, capture_output=True, text=True, check=False)
                self.assertEqual((answer.returncode, answer.stderr), (0, ""))

    def test_what_is_installed_finds_the_panes(self):
        answer = subprocess.run(
            [os.path.join(self.prefix, "bin", "quietdial"), "drive"],
            input='{"do":"push","pane":"QDPreferencesListController"}\n', capture_output=True, text=True, check=False)
        self.assertEqual((answer.returncode, answer.stderr), (0, ""))
        self.assertTrue(json.loads(answer.stdout)["ok"], answer.stdout)


if __name__ == "__main__":
    unittest.main()
