"""The program playing an animation, with its own notes of when it is refreshed and when it draws."""

import glob
import os
import re
import statistics
import subprocess

import desktop
import program
from rest import wait_for_rest

# After this long without a refresh, in seconds, the count of refreshes starts anew.
LONGEST_GAP = 1
# What lies decoded ahead of a picture that plays lasts for at least so many seconds.
AHEAD = 0.1


class Play:
    """The refreshes from a start to a stop: when, and how many had come due."""

    def __init__(self, rate, begin, end, refreshes):
        self.rate, self.begin, self.end, self.refreshes = rate, begin, end, refreshes

    def shortest(self):
        """Seconds of the refreshes that there were, without those that came due together with the last one that the
        animation took."""
        return self.longest() - (self.refreshes[-1][1] - 1) / self.rate

    def longest(self):
        """Seconds of all refreshes that there were."""
        return sum(due for _, due in self.refreshes) / self.rate

    def late(self, ahead=AHEAD):
        """Seconds of refreshes that came too late together for what lay ready for so many seconds."""
        return sum(max(due / self.rate - ahead, 0) for _, due in self.refreshes)

    def drift(self):
        """Seconds by which the count of refreshes fell behind the clock. Each note by itself may be late, by as long as
        the machine did something else before it was written."""
        offsets, passed, before = [], 0, self.begin
        for when, due in self.refreshes:
            anew = due == 1 and when - before > LONGEST_GAP - 1 / self.rate
            passed += when - before if anew else due / self.rate
            offsets.append(when - passed)
            before = when
        third = max(len(offsets) // 3, 1)
        return statistics.median(offsets[-third:]) - statistics.median(offsets[:third])


class Player:
    LINE = re.compile(r"^\s*([0-9.]+) (\S+) (.*)$")

    def __init__(self, folder, *arguments, rate=60, **environment):
        self.rate = rate
        self.notes = os.path.join(folder, "notes")
        variables = dict(os.environ, QT_MESSAGE_PATTERN="%{time process} %{category} %{message}",
                         QT_LOGGING_RULES="quietdial.refresh.debug=true;"
                                          "qt.scenegraph.time.renderloop.debug=true", **environment)
        with open(self.notes, "w", encoding="utf-8") as output:
            self.process = subprocess.Popen(
                [*program.COMMAND, "--root", os.path.join(folder, "root"), "--effects", "none",
                 "--refresh-rate", str(rate), *arguments], stderr=output, env=variables)

    def close(self):
        if self.process.poll() is None:
            self.process.terminate()
        self.process.wait(desktop.PATIENCE)

    def events(self):
        """Time and what of each note: starts, stops, refreshes N, drawn."""
        found = []
        with open(self.notes, encoding="utf-8") as lines:
            for line in lines:
                match = self.LINE.match(line)
                if match and match[2] == "quietdial.refresh":
                    found.append((float(match[1]), match[3]))
                elif match and match[2] == "qt.scenegraph.time.renderloop":
                    found.append((float(match[1]), "drawn"))
        return found

    def times(self, what):
        return [when for when, event in self.events() if event.startswith(what)]

    def wait_for(self, what, count=1):
        desktop.wait_for(lambda: len(self.times(what)) >= count or self._check(), what)

    def _check(self):
        if self.process.poll() is not None:
            with open(self.notes, encoding="utf-8") as notes:
                raise AssertionError("the program has ended: " + notes.read())

    def plays(self, count=1):
        """What was played from each start to each stop, once there are so many."""
        self.wait_for("stops", count)
        found, begin, refreshes = [], 0.0, []
        for when, event in self.events():
            if event == "starts":
                begin, refreshes = when, []
            elif event == "stops":
                found.append(Play(self.rate, begin, when, refreshes))
            elif event.startswith("refreshes"):
                refreshes.append((when, int(event.split()[1])))
        return found

    def waited(self):
        """Seconds that the threads beside the main one, the decoding ones among them, waited for a processor that was
        busy with something else."""
        nanoseconds = 0
        for file in glob.glob(f"/proc/{self.process.pid}/task/*/schedstat"):
            if file.split("/")[-2] != str(self.process.pid):
                with open(file, encoding="ascii") as numbers:
                    nanoseconds += int(numbers.read().split()[1])
        return nanoseconds / 1e9

    def assert_lasts(self, test, length):
        """It has played once, for so many seconds of refreshes, and those were counted on the clock. What the machine
        took from it meanwhile is measured, too, and added to what it may have taken."""
        play, = self.plays()
        taken = f"{play.shortest():.2f} s of refreshes for {length:.2f} s"
        test.assertGreaterEqual(play.longest(), 0.97 * length, taken)
        test.assertLessEqual(play.shortest(), 1.03 * length + play.late() + self.waited(), taken)
        test.assertLessEqual(abs(play.drift()), 1 / play.rate + 0.03 * length)

    def wait_for_rest(self):
        wait_for_rest(self.process.pid)

    def window(self):
        """Its window's number at the X server."""
        return subprocess.run(["xdotool", "search", "--sync", "--name", "^Settings$"], check=True,
                              capture_output=True, text=True).stdout.split()[0]

    def wake_ups(self):
        with open(f"/proc/{self.process.pid}/status", encoding="utf-8") as status:
            return int(re.search(r"^voluntary_ctxt_switches:\s*(\d+)", status.read(), re.M)[1])
