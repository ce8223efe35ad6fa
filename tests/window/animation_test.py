"""An animated picture plays smoothly, for as long as it says, and costs nothing when it is over."""

import os
import re
import subprocess
import tempfile
import time
import unittest

from PIL import Image, ImageDraw

import desktop
import program

WIDTH, HEIGHT = 580, 420
FRAMES = 60
DELAY = 0.05  # seconds
LENGTH = FRAMES * DELAY


def write_animation(path, frames=FRAMES, delay=DELAY):
    """An animation of the size of a preview: a picture in which a good part changes each time."""
    pictures = []
    for index in range(frames):
        picture = Image.new("P", (WIDTH, HEIGHT))
        picture.putpalette([level for shade in range(256) for level in (shade, 255 - shade, 128)])
        draw = ImageDraw.Draw(picture)
        for line in range(0, HEIGHT, 6):
            draw.rectangle([0, line, WIDTH, line + 5], fill=(line // 6 + index) % 256)
        draw.ellipse([index * 7, 100, index * 7 + 150, 250], fill=255)
        pictures.append(picture)
    pictures[0].save(path, save_all=True, append_images=pictures[1:], duration=int(delay * 1000))


class Player:
    """The program with its own notes of when it is refreshed and when it draws."""

    LINE = re.compile(r"^\s*([0-9.]+) (\S+) (.*)$")

    def __init__(self, folder, *arguments, **environment):
        self.notes = os.path.join(folder, "notes")
        variables = dict(os.environ, QT_MESSAGE_PATTERN="%{time process} %{category} %{message}",
                         QT_LOGGING_RULES="quietdial.refresh.debug=true;"
                                          "qt.scenegraph.time.renderloop.debug=true", **environment)
        with open(self.notes, "w", encoding="utf-8") as output:
            self.process = subprocess.Popen(
                [program.PROGRAM, "--root", os.path.join(folder, "root"), "--effects", "none",
                 *arguments], stderr=output, env=variables)

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

    def play(self):
        """When the animation began and ended."""
        self.wait_for("stops")
        return self.times("starts")[0], self.times("stops")[0]

    def gaps(self):
        """Between refreshes, while it plays."""
        begin, end = self.play()
        ticks = [when for when in self.times("refreshes") if begin <= when <= end]
        return [later - earlier for earlier, later in zip(ticks, ticks[1:])]

    def wake_ups(self):
        with open(f"/proc/{self.process.pid}/status", encoding="utf-8") as status:
            return int(re.search(r"^voluntary_ctxt_switches:\s*(\d+)", status.read(), re.M)[1])


class Animation(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.pictures = tempfile.TemporaryDirectory()
        cls.animation = os.path.join(cls.pictures.name, "animation.gif")
        write_animation(cls.animation)

    @classmethod
    def tearDownClass(cls):
        cls.pictures.cleanup()

    def start(self, *arguments, **environment):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        player = Player(folder.name, *arguments, **environment)
        self.addCleanup(player.close)
        return player

    def test_lasts_as_long_as_its_delays_whatever_the_screens_rate(self):
        for rate in (24, 48, 60, 75, 144):
            with self.subTest(rate=rate):
                begin, end = self.start("--gif", self.animation, "--refresh-rate", str(rate)).play()
                self.assertAlmostEqual(end - begin, LENGTH, delta=0.03 * LENGTH)

    def test_lasts_as_long_where_the_toolkit_calls_back_unthrottled(self):
        player = self.start("--gif", self.animation, "--refresh-rate", "60",
                            QT_QPA_UPDATE_IDLE_TIME="0")
        begin, end = player.play()
        self.assertAlmostEqual(end - begin, LENGTH, delta=0.03 * LENGTH)

    def test_no_refresh_waits_for_a_decode(self):
        playing = self.start("--gif", self.animation, "--refresh-rate", "60").gaps()
        # The same window, refreshed for as long, with nothing to decode.
        still = os.path.join(self.pictures.name, "still.gif")
        write_animation(still, 1, LENGTH)
        resting = self.start("--gif", still, "--refresh-rate", "60").gaps()
        print(f"\nlongest gap between refreshes: {max(playing) * 1000:.0f} ms playing,"
              f" {max(resting) * 1000:.0f} ms without anything to decode", flush=True)
        self.assertLess(max(playing), max(resting) + 2 / 60)

    def test_when_it_is_over_nothing_is_drawn_and_nothing_wakes_up(self):
        player = self.start("--gif", self.animation)
        player.play()
        # The last frame is on screen, and the window has come to rest.
        desktop.wait_for(lambda: self.rests(player), "the window to rest")
        before, woken = player.events(), player.wake_ups()
        time.sleep(5)  # what is counted is that nothing happens meanwhile
        self.assertEqual(player.events(), before)
        self.assertLessEqual(player.wake_ups() - woken, 2)

    def rests(self, player):
        before = player.events()
        time.sleep(0.5)
        return player.events() == before

    def test_draws_no_more_than_there_are_frames(self):
        player = self.start("--gif", self.animation, "--refresh-rate", "144")
        begin, end = player.play()
        drawn = [when for when in player.times("drawn") if begin <= when <= end]
        self.assertGreater(len(drawn), FRAMES * 0.8)
        self.assertLess(len(drawn), FRAMES * 2 + 10)

    def test_a_hidden_window_stops_it_and_showing_it_goes_on(self):
        player = self.start("--gif", self.animation)
        player.wait_for("refreshes", 10)
        window = subprocess.run(["xdotool", "search", "--sync", "--name", "^Settings$"], check=True,
                                capture_output=True, text=True).stdout.split()[0]
        desktop.xdotool("windowunmap", "--sync", window)
        player.wait_for("stops")
        before = player.events()
        time.sleep(1)  # what is counted is that nothing happens meanwhile
        self.assertEqual(player.events(), before)
        desktop.xdotool("windowmap", "--sync", window)
        player.wait_for("stops", 2)
        seen = sum(end - begin for begin, end in
                   zip(player.times("starts"), player.times("stops")))
        self.assertAlmostEqual(seen, LENGTH, delta=0.03 * LENGTH + 2 / 60)

    def test_a_covered_page_stops_it(self):
        player = self.start("--gif", self.animation)
        player.wait_for("refreshes", 10)
        desktop.xdotool("key", "Escape")
        player.wait_for("stops")
        begin, end = player.play()
        self.assertLess(end - begin, LENGTH / 2)


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
