"""Whether a program is at rest: nothing of it moves, is drawn or waits for its turn."""

import glob
import re
import subprocess

from waiting import wait_for

# As many looks, one after the other, as a wait takes: together longer than any program that moves goes without a frame.
LOOKS = 6


def sync():
    """Waits until the X server has handled what it was sent and passed it on: it answers in order."""
    subprocess.run(["xdotool", "getmouselocation"], check=True, stdout=subprocess.DEVNULL)


class Rest:
    """Looks at a program's threads from outside. One that has something to do on a busy machine waits for a processor,
    and that is no rest, however long it takes."""

    def __init__(self, pid):
        self._pid = pid
        self._before = None
        self._looks = 0

    def _threads(self):
        """How often each thread has gone to sleep; None while one of them is awake."""
        slept = {}
        for file in glob.glob(f"/proc/{self._pid}/task/*/status"):
            try:
                with open(file, encoding="utf-8") as status:
                    text = status.read()
            except OSError:  # it has ended
                continue
            if not re.search(r"^State:\s*S", text, re.M):
                return None
            slept[file] = re.search(r"^voluntary_ctxt_switches:\s*(\d+)", text, re.M)[1]
        return slept

    def look(self):
        """Whether nothing has happened for so many looks, the X server included."""
        now = self._threads()
        self._looks = self._looks + 1 if now and now == self._before else 0
        self._before = now
        if self._looks < LOOKS:
            return False
        sync()
        return self._threads() == now


def wait_for_rest(pid):
    rest = Rest(pid)
    sync()
    wait_for(rest.look, "the program to rest")
