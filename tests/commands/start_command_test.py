"""What the window itself says reaches the terminal; what the toolkit and others say there goes to a log that is
named when the window fails."""

import os
import pathlib
import re
import subprocess
import tempfile
import unittest

SOURCES = pathlib.Path(os.environ["QUIETDIAL_SOURCES"])
CHATTER = "MobilePhone: no process found\nQt WebEngine seems to be initialized from a plugin.\n"
OWN = "quietdial-settings: the font cannot be loaded\nquietdial: no session bus\n"


class StartCommand(unittest.TestCase):
    """The script with stand-ins for the programs that it starts."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.program("standins/dialler-restarter", "exec sleep 1000")

    def program(self, name, text):
        path = self.folder / "bin" / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(f"#!/bin/sh\n{text}\n")
        path.chmod(0o755)

    def start(self, window, *arguments):
        self.program("quietdial-settings", window)
        return subprocess.run([SOURCES / "scripts/start", self.folder / "bin", *arguments], capture_output=True, text=True,
                              timeout=60, check=False,
                              env=dict(os.environ, DBUS_SESSION_BUS_ADDRESS="unix:path=/nowhere"))

    def said_by(self, text):
        return f"printf '{text}' >&2\n"

    def test_only_the_programs_own_words_are_shown(self):
        for arguments in ([], ["--screenshot", "a.png"]):
            with self.subTest(arguments):
                result = self.start(self.said_by(CHATTER + OWN), *arguments)
                self.assertEqual((result.returncode, result.stderr), (0, OWN))

    def test_a_window_that_fails_names_the_log(self):
        result = self.start(self.said_by(CHATTER + OWN) + "exit 3")
        self.assertEqual(result.returncode, 3)
        self.assertTrue(result.stderr.startswith(OWN), result.stderr)
        log = re.search(r"is in (.*)\.\n$", result.stderr)[1]
        self.assertEqual(pathlib.Path(log).read_text(), CHATTER + OWN)

    def test_nothing_is_kept_of_an_earlier_window(self):
        self.start(self.said_by(CHATTER))
        self.start("exit 0")
        self.assertEqual((self.folder / "run.log").read_text(), "")

    def test_where_the_folder_cannot_be_written_the_log_is_elsewhere(self):
        (self.folder / "run.log").mkdir()
        result = self.start(self.said_by(CHATTER) + "exit 3")
        log = pathlib.Path(re.search(r"is in (.*)\.\n$", result.stderr)[1])
        self.addCleanup(log.unlink)
        self.assertEqual(log.read_text(), CHATTER)

    def test_what_the_window_leaves_behind_is_not_waited_for(self):
        result = self.start("sleep 1000 >/dev/null &\necho $!")
        os.kill(int(result.stdout.split()[-1]), 9)
        self.assertEqual(result.returncode, 0)


if __name__ == "__main__":
    unittest.main()
