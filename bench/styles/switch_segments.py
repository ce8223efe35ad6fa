#!/usr/bin/env python3
"""How long the main thread is taken when segments are switched 500 times without a pause, with the
previews and without them, and what memory that leaves. Needs a built tree:

    bench/styles/switch_segments.py [BUILD FOLDER]
"""

import json
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

SWITCHES = 500
PANES = ("QDDialerStyleSelectionController", "QDSystemwideStyleSelectionController")
LIBRARY = "Library/PreferenceBundles/quietDialPreferences.bundle"


class Session:
    def __init__(self, program, root):
        self.process = subprocess.Popen([program, "drive", "--root", root], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                        text=True, bufsize=1)

    def ask(self, **request):
        self.process.stdin.write(json.dumps(request) + "\n")
        reply = json.loads(self.process.stdout.readline())
        assert reply["ok"], reply

    def resident(self):
        """Most memory that the process has had, in MiB."""
        with open(f"/proc/{self.process.pid}/status", encoding="ascii") as status:
            line = next(line for line in status if line.startswith("VmHWM"))
        return int(line.split()[1]) / 1024

    def close(self):
        self.process.stdin.close()
        self.process.wait()


def switch(program, root, pane):
    session = Session(program, root)
    session.ask(do="push", pane=pane)
    for index in (0, 1, 2):
        session.ask(do="segment", row=1, index=index)
    before, times = session.resident(), []
    for step in range(SWITCHES):
        start = time.perf_counter()
        # The reply comes before background work: what has passed is the main thread's.
        session.ask(do="segment", row=1, index=step % 3, settle=False)
        times.append((time.perf_counter() - start) * 1000)
        session.ask(do="refresh", count=1, duration=1 / 60)
    after = session.resident()
    session.close()
    return times, before, after


def main():
    build = sys.argv[1] if len(sys.argv) > 1 else "build"
    program = os.path.join(build, "bin", "quietdial")
    bundle = os.path.join(build, LIBRARY)
    print(f"{'pane':40} {'previews':9} {'median ms':>9} {'longest ms':>10} {'MiB before':>10} {'after':>6}")
    for pane in PANES:
        for previews in (True, False):
            with tempfile.TemporaryDirectory() as root:
                if not previews:
                    # The device's own library goes before the installed one: damaged previews there.
                    folder = os.path.join(root, LIBRARY)
                    os.makedirs(folder)
                    for name in os.listdir(bundle):
                        if name.endswith(".gif"):
                            with open(os.path.join(folder, name), "wb"):
                                pass
                        else:
                            shutil.copy(os.path.join(bundle, name), folder)
                times, before, after = switch(program, root, pane)
            print(f"{pane:40} {'yes' if previews else 'no':9} {statistics.median(times):9.2f} "
                  f"{max(times):10.2f} {before:10.1f} {after:6.1f}")


if __name__ == "__main__":
    main()
