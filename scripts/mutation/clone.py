"""A clone of the repository in which changes are made, built and tested; the checkout itself is never touched."""

import os
import shutil
import subprocess
import time
from typing import NamedTuple

from .programs import Programs
from .results import NOTICED, PENDING, RAN_OUT, UNBUILT, UNNOTICED
from .tests import Tests


class Outcome(NamedTuple):
    result: str
    # The test that noticed it.
    by: str
    seconds: float
    # Whether only the quick tests were asked.
    quick: bool


class Refused(Exception):
    """What was asked for cannot be done; the message says why."""


class Clone:
    def __init__(self, sources, folder, jobs):
        self._origin = sources
        self._folder = folder
        self._build = folder / "build-debug"
        self._tests = Tests(self._build, folder / "build-home", jobs, folder.parent / "tests.json")
        self._jobs = jobs
        self._programs = None

    def check_out(self):
        """Brings it to the checkout's commit, as committed."""
        if not (self._folder / ".git").exists():
            self._folder.parent.mkdir(parents=True, exist_ok=True)
            self._succeed(["git", "clone", "-q", "--shared", "--no-checkout", self._origin, self._folder], self._origin)
        commit = self._succeed(["git", "rev-parse", "HEAD"], self._origin).strip()
        self._succeed(["git", "fetch", "-q", "origin", commit])
        self._succeed(["git", "checkout", "-q", "--force", "--detach", commit])
        daemons = self._origin / "build" / "daemons"
        if daemons.exists() and not (self._folder / "build").exists():
            (self._folder / "build").mkdir()
            (self._folder / "build" / "daemons").symlink_to(daemons)
        return commit[:12]

    def build(self):
        """Each file by itself, and programs not linked again where a shared library changed: what is soonest built."""
        launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
        self._succeed(["cmake", "--preset", "debug", "-DQD_WINDOW=OFF", "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON", *launcher])
        fault = self._ninja([])
        if fault:
            raise Refused(f"The sources do not build as they are:\n{fault}")
        self._programs = Programs(self._folder, self._build)

    def measure(self, anew):
        """Runs every test once, unless that was done; returns those that fail without a change, which are left out."""
        return self._tests.measure(anew)

    def files(self, folders):
        """The C++ files in these folders."""
        patterns = [f"{folder}/*.{ending}" for folder in folders for ending in ("cc", "h")]
        return self._succeed(["git", "ls-files", "--", *patterns]).split()

    def source(self, file):
        return (self._folder / file).read_text()

    def difference(self, commit):
        return self._succeed(["git", "diff", "-U0", commit, "HEAD"])

    def users(self):
        """How many objects each file goes into."""
        count = {}
        for line in self._succeed(["ninja", "-C", self._build, "-t", "deps"]).splitlines():
            if line.startswith("    "):
                path = os.path.normpath(os.path.join(self._build, line.strip()))
                count[path] = count.get(path, 0) + 1
        return {os.path.relpath(path, self._folder): users for path, users in count.items()}

    def remove(self):
        shutil.rmtree(self._folder)

    def ask_quick(self, change):
        """What the quick unit tests say: those nearest to the file first, and only what they need built."""
        def ask(begun):
            for step in self._programs.nearest_first(change.file):
                found = self._built(step) or self._failed([rf"^{name}\." for name in self._written_since(begun, step)])
                if found:
                    return found
            return PENDING, ""
        return self._with(change, ask, True)

    def ask_slow(self, change):
        """What the slow unit tests and those of whole programs say."""
        def ask(begun):
            found = self._built([])
            if found:
                return found
            units = self._programs.names()
            untouched = set(units) - set(self._written_since(begun, units))
            # What the compiler refuses depends on headers.
            compiled = [] if change.file.endswith(".h") else [r"^compile\."]
            for names, slow in ((units, False), (untouched, True)):
                found = self._failed(["."], [*compiled, *(rf"^{name}\." for name in names)], slow)
                if found:
                    return found
            return UNNOTICED, ""
        return self._with(change, ask, False)

    def _with(self, change, ask, quick):
        """Makes the change, asks, and takes it back."""
        begun = time.time()
        path = self._folder / change.file
        original = path.read_text()
        path.write_text(change.applied(original))
        try:
            result, by = ask(begun)
        finally:
            path.write_text(original)
        return Outcome(result, by, time.time() - begun, quick)

    def _built(self, targets):
        """Nothing where they build."""
        fault = self._ninja(targets)
        if fault:
            # A program is asked for its tests as soon as it is linked.
            crashed = "Error running test executable" in fault
            return (NOTICED, "the list of a program's tests") if crashed else (UNBUILT, "")
        return None

    def _failed(self, wanted, unwanted=(), slow=False):
        """Nothing where all pass."""
        test, ran_out = self._tests.first_failure(wanted, unwanted, slow) if wanted else (None, False)
        if ran_out:
            return RAN_OUT, test
        return (NOTICED, test) if test else None

    def _written_since(self, begun, programs):
        """Those of the programs that the change has reached. A shared library reaches them all."""
        libraries = [file for file in self._build.glob("lib/**/*.so") if file.stat().st_mtime >= begun]
        return [name for name in programs
                if libraries or (self._build / "tests" / name).stat().st_mtime >= begun]

    def _ninja(self, targets):
        """What it printed where it failed."""
        command = ["ninja", "-C", self._build, "-j", str(self._jobs), *targets]
        done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              text=True, errors="replace", check=False)
        return done.stdout if done.returncode else None

    def _succeed(self, command, folder=None):
        done = subprocess.run(command, cwd=folder or self._folder, stdin=subprocess.DEVNULL, capture_output=True,
                              text=True, check=False)
        if done.returncode:
            raise Refused(f"{' '.join(map(str, command))} failed:\n{done.stdout}{done.stderr}")
        return done.stdout
