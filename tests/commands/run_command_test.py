"""What ./run starts, with stand-ins for what it calls."""

import os
import shutil
import subprocess
import tempfile
import unittest

SOURCES = os.environ["QUIETDIAL_SOURCES"]
ROOT, USER = 0, 1000


class Run(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        shutil.copy(os.path.join(SOURCES, "run"), self.folder)
        for name in ("scripts/packages", "scripts/build"):
            self.program(name, "exit 0")
        self.program("scripts/with-catalogue", 'echo "started: $*"')

    def program(self, name, script):
        path = os.path.join(self.folder, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write("#!/bin/sh\n" + script + "\n")
        os.chmod(path, 0o755)

    def run_as(self, user, *arguments, **environment):
        """What it says, and the words that it starts the rest with."""
        self.program("bin/id", f"echo {user}")
        variables = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        variables |= {"PATH": os.path.join(self.folder, "bin") + ":/usr/bin:/bin", **environment}
        result = subprocess.run([os.path.join(self.folder, "run"), *arguments], env=variables,
                                capture_output=True, text=True, check=True)
        said, _, started = result.stdout.partition("started: ")
        return said, started.splitlines()[0].split() if started else []

    def test_root_is_told_that_the_window_is_not_meant_for_it(self):
        for environment in ({"DISPLAY": ":1"}, {}):
            for arguments in ((), ("--", "--pane", "A")):
                with self.subTest(environment=environment, arguments=arguments):
                    said, started = self.run_as(ROOT, *arguments, **environment)
                    self.assertIn("--allow-root", started)
                    self.assertIn("root", said)
                    self.assertIn("--allow-root", said)

    def test_no_one_else_is_asked_of(self):
        for arguments in ((), ("--", "--pane", "A")):
            said, started = self.run_as(USER, *arguments, DISPLAY=":1")
            self.assertNotIn("--allow-root", started)
            self.assertNotIn("root", said)
            self.assertIn("--pane", started)


if __name__ == "__main__":
    unittest.main()
