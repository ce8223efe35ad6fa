"""Two terminals whose commands are killed at random moments: the file is whole at every moment, and nothing is lost that
was answered with success. QUIETDIAL_KILLS says how many kills."""

import os
import plistlib
import random
import subprocess
import sys
import threading
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from drive import program  # noqa: E402
from settings_terminal import Terminal, isolate  # noqa: E402

KILLS = int(os.environ.get("QUIETDIAL_KILLS", "400"))
KEYS = ["customText", "systemWideTwoButtonText"]


class Worker(threading.Thread):
    """One terminal: sets its own key to one number after the other."""

    def __init__(self, terminal, key, seed):
        super().__init__()
        self._terminal = terminal
        self._key = key
        self._random = random.Random(seed)
        self.killed = self.answered = 0
        self.faults = []

    def run(self):
        number = 0
        longest = 0.02
        while self.killed < KILLS // len(KEYS) and not self.faults:
            number += 1
            process = subprocess.Popen([program(), "set", "-q", self._key, str(number), "--root", self._terminal.root],
                                       env=self._terminal.environment, stderr=subprocess.PIPE)
            try:
                _, error = process.communicate(timeout=self._random.uniform(0, longest))
            except subprocess.TimeoutExpired:
                process.kill()
                _, error = process.communicate()
            if process.returncode == -9:
                self.killed += 1
                # Most are killed on their way, however fast the machine is.
                longest = min(longest * 1.05, 5)
                continue
            longest *= 0.9
            self.answered += 1
            stored = self._terminal.stored().get(self._key)
            if process.returncode != 0 or stored != str(number):
                self.faults.append((number, stored, process.returncode, error))


class Kills(unittest.TestCase):
    def test_nothing_is_torn_and_nothing_is_lost(self):
        with Terminal() as terminal:
            terminal.store({"other": list(range(100))})
            workers = [Worker(terminal, key, seed) for seed, key in enumerate(KEYS)]
            for worker in workers:
                worker.start()
            reads = 0
            while any(worker.is_alive() for worker in workers):
                try:
                    self.assertEqual(terminal.stored().get("other"), list(range(100)))
                except plistlib.InvalidFileException as fault:
                    self.fail(f"the file is torn: {fault}")
                reads += 1
            for worker in workers:
                worker.join()
                self.assertEqual(worker.faults, [])
                self.assertGreater(worker.answered, 0)
            self.assertGreater(reads, 0)
            # Whatever the killed ones have left is no hindrance.
            self.assertEqual(terminal.run("set", "dialerMode", "1").returncode, 0)
            self.assertEqual([name for name in os.listdir(os.path.dirname(terminal.file)) if name.endswith(".tmp")], [])
            print(sum(worker.killed for worker in workers), "kills,", sum(worker.answered for worker in workers),
                  "answers,", reads, "reads")


if __name__ == "__main__":
    isolate()
    unittest.main()
