"""Each preview that comes with the bundle plays in the window for as long as it says, and then rests."""

import os
import plistlib
import tempfile
import unittest

from PIL import Image

import desktop
import program
from player import Player

BUNDLE = os.path.join(os.path.dirname(__file__), "..", "..", "resources", "quietDialPreferences.bundle")
# The panes with the setting that chooses a preview, and the previews' names.
PANES = {"QDDialerStyleSelectionController": ("dialerMode", "Style-{}.gif"),
         "QDSystemwideStyleSelectionController": ("systemwideStyle", "SystemWideStyle-{}.gif")}


def length(name):
    """Seconds that the frames of a preview add up to."""
    with Image.open(os.path.join(BUNDLE, name)) as picture:
        total = 0
        for index in range(picture.n_frames):
            picture.seek(index)
            total += picture.info["duration"]
        return total / 1000


class Previews(unittest.TestCase):
    def start(self, pane, settings, *arguments):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        path = os.path.join(folder.name, "root", program.SETTINGS_FILE)
        os.makedirs(os.path.dirname(path))
        with open(path, "wb") as file:
            plistlib.dump(settings, file)
        player = Player(folder.name, "--pane", pane, *arguments)
        self.addCleanup(player.close)
        return player

    def test_each_plays_for_as_long_as_it_says(self):
        for pane, (key, names) in PANES.items():
            for mode in range(3):
                name = names.format(mode)
                with self.subTest(name):
                    player = self.start(pane, {key: mode})
                    player.assert_lasts(self, length(name))
                    player.close()

    def test_a_resize_leaves_one_that_is_over_at_rest(self):
        for pane, (key, _) in PANES.items():
            with self.subTest(pane):
                player = self.start(pane, {key: 0}, "--size", "375x700")
                player.wait_for("stops")
                player.wait_for_rest()
                for width in (420, 340, 375):
                    drawn = len(player.times("drawn"))
                    desktop.xdotool("windowsize", "--sync", player.window(), width, 700)
                    player.wait_for("drawn", drawn + 1)
                    player.wait_for_rest()
                self.assertEqual(len(player.times("starts")), 1)
                player.close()


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
