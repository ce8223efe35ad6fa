"""Runs the tests of a build, in a process namespace and a home folder of their own: a changed program may kill or
write what it should not."""

import json
import os
import pathlib
import re
import resource
import signal
import subprocess
import sys
import time

ISOLATED = pathlib.Path(__file__).resolve().parents[2] / "tests" / "support" / "isolated.py"
# What no change of a C++ source can reach, or what only compiles.
LEFT_OUT = [r"^(commands|art|window)\.", r"^integration\.benchmark_build_test$"]
# A change may make a loop endless; it is not to take the machine's memory along.
MEMORY_LIMIT = 8 << 30
# A test that takes longer is a slow one.
QUICK_SECONDS = 2
# The time limit of some tests is this much longer than they take unchanged, for a busy machine.
LIMIT_FACTOR = 5
LIMIT_SECONDS = 40


class Tests:
    def __init__(self, build, home, jobs, kept):
        """What was measured is kept in the file `kept`."""
        self._build = build
        self._home = home
        self._jobs = jobs
        self._kept = kept
        self._seconds = {}
        self._left_out = []

    def measure(self, anew):
        """How long each test takes, from running all of them once, unless that is known. Those that fail are left out
        from then on; returns them."""
        if anew or not self._kept.exists():
            output, _ = self._run([], None, LEFT_OUT)
            self._kept.write_text(json.dumps({"failing": failures(output), "seconds": self._costs()}, indent=1))
        known = json.loads(self._kept.read_text())
        self._seconds = known["seconds"]
        self._left_out = LEFT_OUT + [exactly(name) for name in known["failing"]]
        return known["failing"]

    def _costs(self):
        lines = (self._build / "Testing" / "Temporary" / "CTestCostData.txt").read_text().splitlines()
        found = [re.match(r"(.+) \d+ ([\d.e+-]+)$", line) for line in lines]
        return {match.group(1): float(match.group(2)) for match in found if match}

    def first_failure(self, wanted, unwanted=(), slow=False):
        """The first failing test of the quick or of the slow ones, among those whose names match one of `wanted` and
        none of `unwanted`; None for none. With whether time ran out instead."""
        left_out = [*self._left_out, *unwanted]
        of_these = [name for name in self._seconds if matches(name, wanted) and not matches(name, left_out)]
        slow_ones = [exactly(name) for name in of_these if self._seconds[name] > QUICK_SECONDS]
        if not slow:
            return self._first_failure(wanted, [*left_out, *slow_ones])
        return self._first_failure(slow_ones, left_out) if slow_ones else (None, False)

    def _first_failure(self, wanted, left_out):
        limit = LIMIT_SECONDS + LIMIT_FACTOR * sum(
            seconds for name, seconds in self._seconds.items() if matches(name, wanted) and not matches(name, left_out))
        while True:
            output, ran_out = self._run(["--stop-on-failure", "-R", "|".join(wanted)], limit, left_out)
            failing = failures(output)
            if ran_out or not failing:
                return (unfinished(output) if ran_out else None), ran_out
            # Once is no proof on a busy machine.
            again, ran_out = self._run(["-R", exactly(failing[0])], limit, [])
            if ran_out or failures(again):
                return failing[0], ran_out
            left_out = [*left_out, exactly(failing[0])]

    def _run(self, words, limit, left_out):
        """What ctest printed, and whether time ran out."""
        command = [sys.executable, "-B", ISOLATED, "env", "-u", "QUIETDIAL_TEST_ISOLATED",
                   "ctest", "--test-dir", self._build, "-j", str(self._jobs), *words]
        if left_out:
            command += ["-E", "|".join(left_out)]
        self._home.mkdir(exist_ok=True)
        environment = dict(os.environ, HOME=str(self._home), XDG_DATA_HOME="", XDG_CACHE_HOME="", XDG_CONFIG_HOME="")
        with subprocess.Popen(
            command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env=environment,
            start_new_session=True, text=True, errors="replace",
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT)),
        ) as process:
            try:
                output, _ = process.communicate(timeout=limit)
                return output, False
            except subprocess.TimeoutExpired:
                os.killpg(process.pid, signal.SIGKILL)
                return process.communicate()[0], True
            except BaseException:
                os.killpg(process.pid, signal.SIGKILL)
                raise


def exactly(name):
    return f"^{re.escape(name)}$".replace(r"\-", "-")


def matches(name, patterns):
    return any(re.search(pattern, name) for pattern in patterns)


def failures(output):
    """The names in ctest's closing list, and what could not even be listed."""
    names = re.findall(r"^\t *\d+ - (.+) \([^()]*\)(?: .*)?$", output, re.MULTILINE)
    return names or re.findall(r"^Unable to find executable.*$", output, re.MULTILINE)


def unfinished(output):
    """The tests that had begun and not ended."""
    begun = dict(re.findall(r"^ *Start +(\d+): (.+)$", output, re.MULTILINE))
    for number in re.findall(r"Test +#(\d+):", output):
        begun.pop(number, None)
    return ", ".join(begun.values())
