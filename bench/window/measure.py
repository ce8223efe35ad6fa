#!/usr/bin/env python3
"""Measures the window beside a bare Qt Quick window: start, idling, scrolling.

    bench/window/measure.py BUILD-FOLDER

Both programs run on an X server (Xvfb) and a session bus of their own, one after the other in turns,
with the software renderer. Needs no accessibility bus; prints one table."""

import mmap
import os
import re
import statistics
import struct
import subprocess
import sys
import tempfile
import time

SIZE = (414, 896)
STARTS = 25
IDLE_SECONDS = 5
FRAME = 1000 / 60  # milliseconds
SPOT = (300, 20)  # painted in the first frame of both
TITLE = (60, 66, 200, 130)  # lies on texts in both


class Screen:
    """What the X server shows, read from its memory."""

    def __init__(self, folder):
        self._file = open(os.path.join(folder, "Xvfb_screen0"), "rb")
        self._map = mmap.mmap(self._file.fileno(), 0, prot=mmap.PROT_READ)
        header = struct.unpack(">25I", self._map[:100])
        self._start, self._line = header[0] + 12 * header[19], header[12]

    def row(self, y, left, right):
        start = self._start + y * self._line
        return self._map[start + 4 * left:start + 4 * right]

    def is_painted(self):
        if max(self.row(SPOT[1], SPOT[0], SPOT[0] + 1)[:3]) < 40:
            return False
        left, top, right, bottom = TITLE
        return any(min(self.row(y, left, right)[::4]) < 120 for y in range(top, bottom, 2))

    def content(self):
        return b"".join(self.row(y, 0, SIZE[0]) for y in range(SIZE[1]))


def switches(process):
    """How often all threads of a process were put to sleep or woken so far."""
    total = 0
    for task in os.listdir(f"/proc/{process.pid}/task"):
        with open(f"/proc/{process.pid}/task/{task}/status", encoding="ascii") as file:
            total += sum(int(number) for number in re.findall(r"ctxt_switches:\s+(\d+)", file.read()))
    return total


def wait_until(condition, seconds):
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            raise SystemExit("waited in vain for a window")
        time.sleep(0.0005)


def start(screen, command, **environment):
    """The process and the milliseconds until its window was painted."""
    begin = time.monotonic()
    process = subprocess.Popen(command, env={**os.environ, **environment}, stdin=subprocess.DEVNULL,
                               stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
    wait_until(screen.is_painted, 30)
    return process, (time.monotonic() - begin) * 1000


def end(screen, process):
    process.terminate()
    text = process.communicate()[1]
    wait_until(lambda: not screen.is_painted(), 10)
    return text


def measure_idling(screen, command):
    process, _ = start(screen, command)
    time.sleep(3)
    before, picture = switches(process), screen.content()
    time.sleep(IDLE_SECONDS)
    woken, redrawn = switches(process) - before, screen.content() != picture
    end(screen, process)
    return woken, redrawn


def measure_scrolling(screen, command):
    """The milliseconds of work of each frame while the list is flung up and down."""
    process, _ = start(screen, command, QT_LOGGING_RULES="qt.scenegraph.time.renderloop=true")
    time.sleep(1)
    def fling(y, step):
        move = []
        for _ in range(10):
            y += step
            move += ["mousemove", "200", str(y), "sleep", "0.01"]
        subprocess.run(["xdotool", "mousemove", "200", str(y - 10 * step), "mousedown", "1", *move,
                        "mouseup", "1"], check=True)
        time.sleep(1.2)
    for _ in range(4):
        fling(700, -45)
        fling(250, 45)
    log = end(screen, process)
    frames = [int(number) for number in re.findall(r"Frame rendered [^\n]*? in (\d+)ms", log)]
    if len(frames) < 100:
        raise SystemExit(f"the toolkit reported {len(frames)} frames only:\n{log[:500]}")
    return frames


def main(build):
    with tempfile.TemporaryDirectory() as folder:
        display = subprocess.Popen(["Xvfb", "-displayfd", "1", "-screen", "0", "800x1000x24",
                                    "-fbdir", folder], stdout=subprocess.PIPE,
                                   stderr=subprocess.DEVNULL, text=True)
        bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"],
                               stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        os.environ["DISPLAY"] = ":" + display.stdout.readline().strip()
        os.environ["QT_QPA_PLATFORM"] = "xcb"
        os.environ["XDG_RUNTIME_DIR"] = folder
        try:
            report(build, Screen(folder), os.path.join(folder, "device"))
        finally:
            for process in (display, bus):
                process.terminate()
                process.wait()


def report(build, screen, root):
    window = [os.path.join(build, "bin", "quietdial-settings"), "--root", root, "--effects", "none",
              "--size", "%dx%d" % SIZE, *(["--allow-root"] if os.geteuid() == 0 else [])]
    first = [*window, "--pane", "QDPreferencesListController"]
    bare = [os.path.join(build, "bench", "bare_window")]

    dialler = [os.path.join(build, "bin", "quietdial-dialler"), "--root", root, "--via", "print", "--size",
               "%dx%d" % SIZE, *(["--allow-root"] if os.geteuid() == 0 else []), "tel:+49-30-123456"]

    times = {"window": [], "bare": [], "dialler": []}
    for _ in range(STARTS + 1):  # the first of each fills the caches
        for name, command in (("bare", [*bare, "10"]), ("window", first), ("dialler", dialler)):
            process, milliseconds = start(screen, command)
            end(screen, process)
            times[name].append(milliseconds)
    medians = {name: statistics.median(values[1:]) for name, values in times.items()}
    print(f"start to first painted page   window {medians['window']:.0f} ms, bare "
          f"{medians['bare']:.0f} ms, ratio {medians['window'] / medians['bare']:.2f}")
    print(f"start to first painted screen dialler {medians['dialler']:.0f} ms, bare "
          f"{medians['bare']:.0f} ms, ratio {medians['dialler'] / medians['bare']:.2f}")

    for name, command in (("bare", [*bare, "10"]), ("window", first)):
        woken, redrawn = measure_idling(screen, command)
        print(f"idle {IDLE_SECONDS} s, {name:6}               {woken} context switches, "
              f"{'redrawn' if redrawn else 'not redrawn'}")

    scrolled = {"bare": [*bare, "38"],
                "window": [*window, "--pane", "QDCountryPrefixController"]}
    for name, command in scrolled.items():
        frames = measure_scrolling(screen, command)
        late = sum(frame > FRAME for frame in frames)
        print(f"scrolling, {name:6}               {len(frames)} frames, {late} late "
              f"({100 * (1 - late / len(frames)):.1f} % on time), median "
              f"{statistics.median(frames):.0f} ms, 99 of 100 within "
              f"{sorted(frames)[int(len(frames) * 0.99)]} ms")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    main(sys.argv[1])
