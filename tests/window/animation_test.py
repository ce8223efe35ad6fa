"""An animated picture plays smoothly, for as long as it says, and costs nothing when it is over."""

import os
import tempfile
import unittest

from PIL import Image, ImageDraw

import desktop
from player import Player

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


class Animation(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.pictures = tempfile.TemporaryDirectory()
        cls.animation = os.path.join(cls.pictures.name, "animation.gif")
        write_animation(cls.animation)

    @classmethod
    def tearDownClass(cls):
        cls.pictures.cleanup()

    def start(self, animation, *arguments, **options):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        player = Player(folder.name, "--gif", animation, *arguments, **options)
        self.addCleanup(player.close)
        return player

    def write(self, name, frames, delay):
        path = os.path.join(self.pictures.name, name)
        write_animation(path, frames, delay)
        return path

    def test_lasts_as_long_as_its_delays_whatever_the_screens_rate(self):
        for rate in (24, 48, 60, 75, 144):
            with self.subTest(rate=rate):
                self.start(self.animation, rate=rate).assert_lasts(self, LENGTH)

    def test_lasts_as_long_where_the_toolkit_calls_back_unthrottled(self):
        self.start(self.animation, QT_QPA_UPDATE_IDLE_TIME="0").assert_lasts(self, LENGTH)

    def test_no_refresh_waits_for_a_decode(self):
        # So large that no frame is decoded ahead: the refresh that first asks for one goes by without it.
        frames, delay = 90, 0.03
        play, = self.start(self.write("large.gif", frames, delay)).plays()
        self.assertGreaterEqual(play.longest(), frames * delay + (frames - 1) / play.rate)

    def test_when_it_is_over_nothing_is_drawn_and_nothing_wakes_up(self):
        player = self.start(self.animation)
        player.plays()
        # The last frame is on screen, and the window has come to rest.
        player.wait_for_rest()
        before, woken = player.events(), player.wake_ups()
        # Meanwhile another one plays, where it cannot be seen from this window.
        other = self.start(self.animation, QT_QPA_PLATFORM="offscreen")
        other.plays()
        self.assertEqual(player.events(), before)
        self.assertLessEqual(player.wake_ups() - woken, 2)
        self.assertGreater(other.wake_ups(), FRAMES / 2)

    def test_draws_no_more_than_there_are_frames(self):
        player = self.start(self.animation, rate=144)
        play, = player.plays()
        drawn = [when for when in player.times("drawn") if play.begin <= when <= play.end]
        self.assertLess(len(drawn), FRAMES * 2 + 10)
        # Frames whose refreshes came due together are passed over.
        self.assertGreater(len(drawn), FRAMES * 0.8 - play.late(1 / play.rate) / DELAY)

    def test_a_hidden_window_stops_it_and_showing_it_goes_on(self):
        # Long enough not to be over before it is hidden.
        frames, delay = 60, 0.15
        player = self.start(self.write("long.gif", frames, delay))
        player.wait_for("refreshes", 10)
        window = player.window()
        desktop.xdotool("windowunmap", "--sync", window)
        player.wait_for("stops")
        player.wait_for_rest()
        desktop.xdotool("windowmap", "--sync", window)
        before, after = player.plays(2)
        length, missed = frames * delay, before.late() + after.late() + player.waited()
        self.assertLess(before.longest(), length)
        self.assertGreaterEqual(before.longest() + after.longest(), 0.97 * length)
        self.assertLessEqual(before.shortest() + after.shortest(), 1.03 * length + 2 / 60 + missed)

    def test_a_covered_page_stops_it(self):
        # Longer than anything is waited for.
        player = self.start(self.write("endless.gif", 2, 2 * desktop.PATIENCE))
        player.wait_for("refreshes", 10)
        desktop.xdotool("key", "Escape")
        player.wait_for("stops")


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
