"""./test names what failed, each with the command that runs just that again, and keeps what others say out of
the terminal."""

import json
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

SOURCES = pathlib.Path(os.environ["QUIETDIAL_SOURCES"])
CHATTER = ["MobilePhone: no process found", "Qt WebEngine seems to be initialized from a plugin."]
PROJECT = """cmake_minimum_required(VERSION 3.25)
project(Small LANGUAGES NONE)
enable_testing()
add_test(NAME good COMMAND sh -c "echo ran good")
add_test(NAME suite.Bad/0.case COMMAND sh -c "echo the reason; cat chatter >&2; false")
add_test(NAME suiteXBad/0.case COMMAND sh -c "echo ran suiteXBad")
add_test(NAME late COMMAND sleep 1000)
set_tests_properties(late PROPERTIES TIMEOUT 0.1)
set_tests_properties(good suite.Bad/0.case suiteXBad/0.case PROPERTIES WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
"""
PRESETS = {
    "version": 3,
    "configurePresets": [{"name": name, "generator": "Ninja", "binaryDir": "${sourceDir}/" + folder}
                         for name, folder in (("release", "build"), ("asan", "build-asan"))],
    "testPresets": [{"name": name, "configurePreset": name, "output": {"outputOnFailure": True}}
                    for name in ("release", "asan")],
}


class TestCommand(unittest.TestCase):
    """The command in a small project of its own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "scripts").mkdir()
        shutil.copy(SOURCES / "test", self.folder)
        (self.folder / "CMakeLists.txt").write_text(PROJECT)
        (self.folder / "CMakePresets.json").write_text(json.dumps(PRESETS))
        (self.folder / "chatter").write_text("\n".join(CHATTER) + "\n")
        for name in ("packages", "daemons"):
            self.script(name, "true")
        self.script("lint", "true")
        self.script("build", 'cmake --preset "$1" >/dev/null')

    def script(self, name, text):
        path = self.folder / "scripts" / name
        path.write_text(f"#!/bin/sh\n{text}\n")
        path.chmod(0o755)

    def shell(self, command):
        result = subprocess.run(command, shell=True, cwd=self.folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                text=True, timeout=200, check=False)
        return result.returncode, result.stdout

    def only_good_tests(self):
        lines = PROJECT.splitlines()
        (self.folder / "CMakeLists.txt").write_text("\n".join(lines[:4]) + "\n")

    def failures(self, said):
        """The commands by the names of what failed."""
        listed = said.split("Failed, each with what runs it again:\n")[1]
        return dict(re.findall(r"^  (.*?): (.*)$", listed, re.MULTILINE))

    def test_each_failed_test_has_its_command(self):
        status, said = self.shell("./test --quick")
        self.assertEqual(status, 1)
        self.assertTrue(said.endswith("\n2 passed, 2 failed\n"), said)
        failures = self.failures(said)
        self.assertEqual(set(failures), {"suite.Bad/0.case", "late"}, said)
        for name, command in failures.items():
            status, alone = self.shell(command)
            self.assertNotEqual(status, 0)
            self.assertIn(f"{name} ...", alone)
            self.assertIn("1 tests failed out of 1", alone)

    def test_what_others_say_is_in_the_log_alone(self):
        _, said = self.shell("./test --quick")
        log = re.search(r"is in (\S+)\.$", said, re.MULTILINE)[1]
        kept = (self.folder / log).read_text()
        for line in ["the reason", *CHATTER]:
            self.assertIn(line, kept)
            self.assertNotIn(line, said)

    def test_a_run_keeps_nothing_of_the_one_before(self):
        self.shell("./test --quick")
        self.only_good_tests()
        self.shell("./test --quick")
        self.assertNotIn("the reason", (self.folder / "build/test.log").read_text())

    def test_nothing_failed(self):
        self.only_good_tests()
        status, said = self.shell("./test")
        self.assertEqual(status, 0, said)
        self.assertTrue(said.endswith("\n3 passed, 0 failed\n"), said)
        self.assertNotIn("Failed", said)
        self.assertNotIn("log", said)

    def test_a_check_is_its_own_command(self):
        self.only_good_tests()
        self.script("lint", "echo core/a.cc is wrong; exit 3")
        status, said = self.shell("./test")
        self.assertEqual(status, 1)
        self.assertEqual(self.failures(said), {"scripts/lint": "scripts/lint"})
        self.assertIn("core/a.cc is wrong", said)
        self.assertTrue(said.endswith("\n2 passed, 1 failed\n"), said)

    def test_what_does_not_build_is_named(self):
        self.only_good_tests()
        self.script("build", '[ "$1" = release ] && exec cmake --preset release >/dev/null; echo no semicolon; exit 1')
        status, said = self.shell("./test")
        self.assertEqual(status, 1)
        self.assertIn("no semicolon", said)
        self.assertEqual(self.failures(said), {"Building": "scripts/build asan"})

    def test_tests_that_cannot_be_run_are_a_failure(self):
        (self.folder / "CMakeLists.txt").write_text("\n".join(PROJECT.splitlines()[:3]) + "\n")
        status, said = self.shell("./test --quick")
        self.assertEqual(status, 1)
        self.assertEqual(list(self.failures(said)), ["All tests of release"])


if __name__ == "__main__":
    unittest.main()
