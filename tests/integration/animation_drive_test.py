"""Animated previews under a script: the display is refreshed by hand, and the view says where it is."""

import copy
import functools
import json
import math
import os
import struct
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from drive import Drive, program  # noqa: E402

BUNDLE = os.path.join(os.path.dirname(os.environ["QUIETDIAL_MODULE"]), "")
PANE = "QDDialerStyleSelectionController"
# The panes with their previews, by segment.
PREVIEWS = {PANE: [f"Style-{i}.gif" for i in range(3)],
            "QDSystemwideStyleSelectionController": [f"SystemWideStyle-{i}.gif" for i in range(3)]}
REFRESH = 1 / 60


def animations(view):
    """The animated views in a view, outermost first."""
    found = [view] if "frames" in view else []
    for child in view["children"]:
        found += animations(child)
    return found


def single(number):
    """The number as single precision has it."""
    return struct.unpack("f", struct.pack("f", number))[0]


@functools.cache
def gif(name):
    """What the terminal program tells of a preview."""
    return json.loads(subprocess.run([program(), "gif", BUNDLE + name], check=True, capture_output=True).stdout)


class Player:
    """What a view of a preview does: a frame is there one refresh after it was first asked for, and a view asks for
    as many ahead as the cache may hold."""

    def __init__(self, name):
        self.delays, self._poster = gif(name)["delays"], gif(name)["posterFrame"]
        self.size = gif(name)["optimalCacheSize"]
        self.index, self._asked, self._spent, self._cached = 0, 0, 0.0, {self._poster}

    def hold(self, size):
        """From now on the cache holds so many frames."""
        self.size = size
        self._purge()

    def refresh(self, duration=REFRESH):
        """The index of the frame to be shown after one refresh of the display."""
        if self.index < len(self.delays):
            self._asked = self.index
            shown = self.index in self._cached
            self._purge()
            self._cached |= self._wanted()
            if shown:
                self._spent += duration
                while self.index < len(self.delays) and self._spent >= single(self.delays[self.index]):
                    self._spent -= single(self.delays[self.index])
                    self.index += 1
        return self.index

    def refreshes(self, count, duration=REFRESH):
        return [self.refresh(duration) for _ in range(count)]

    def play(self):
        """The indexes up to the end."""
        indexes = [self.refresh()]
        while indexes[-1] < len(self.delays):
            indexes.append(self.refresh())
        return indexes

    def holding(self, size):
        """This player, as it would go on with another cache."""
        other = copy.deepcopy(self)
        other.hold(size)
        return other

    def _wanted(self):
        return {(self._asked + ahead) % len(self.delays) for ahead in range(self.size)} | {self._poster}

    def _purge(self):
        if len(self._cached) > self.size:
            self._cached &= self._wanted()


class Animations(unittest.TestCase):
    def setUp(self):
        self.open(PANE)

    def open(self, pane):
        self.drive = Drive()
        self.addCleanup(self.drive.__exit__)
        self.drive.do("push", pane=pane)
        rows = self.drive.rows()
        self.row = next(row["index"] for row in rows if row["row"] >= 0 and
                        animations(self.drive.do("views", row=row["index"])["view"]))

    def view(self):
        return animations(self.drive.do("views", row=self.row)["view"])[0]

    def refresh(self, count, duration=REFRESH):
        self.drive.do("refresh", count=count, duration=duration)

    def indexes(self, count, duration=REFRESH):
        """The frame index after each of so many refreshes."""
        found = []
        for _ in range(count):
            self.refresh(1, duration)
            found.append(self.view()["frameIndex"])
        return found

    def test_a_preview_starts_by_itself_on_its_first_frame(self):
        view = self.view()
        self.assertEqual(view["frames"], gif("Style-0.gif")["frames"])
        self.assertEqual((view["frameIndex"], view["animating"], view["loopCountdown"]), (0, True, 1))

    def test_each_refresh_moves_it_as_its_delays_say(self):
        expected = Player("Style-0.gif").play()
        self.assertEqual(expected[-1], self.view()["frames"])
        self.assertEqual(self.indexes(len(expected)), expected)

    def test_it_plays_once_and_stops_with_the_last_frame(self):
        expected = Player("Style-0.gif").play()
        self.refresh(len(expected) - 1)
        self.assertTrue(self.view()["animating"])
        self.refresh(1)
        end = self.view()
        self.assertEqual((end["frameIndex"], end["animating"], end["loopCountdown"]),
                         (end["frames"], False, 0))
        self.refresh(100)
        self.assertEqual(self.view(), end)

    def test_each_preview_plays_for_as_long_as_it_says(self):
        for rate in (24, 60, 144):
            for pane, previews in PREVIEWS.items():
                self.open(pane)
                for segment, name in enumerate(previews):
                    with self.subTest(rate=rate, preview=name):
                        # Another segment first: the one that is chosen would not start again.
                        self.drive.do("segment", row=self.row, index=(segment + 1) % len(previews))
                        self.drive.do("segment", row=self.row, index=segment)
                        declared, refreshes = sum(gif(name)["delays"]), 0
                        while self.view()["animating"] and refreshes < 10 * rate:
                            self.refresh(1, 1 / rate)
                            refreshes += 1
                        self.assertAlmostEqual(refreshes / rate, declared, delta=0.03 * declared)

    def test_time_alone_moves_nothing(self):
        self.drive.do("advance", seconds=60)
        self.assertEqual(self.view()["frameIndex"], 0)

    def test_another_segment_plays_its_own_preview_from_the_start(self):
        self.refresh(math.ceil(1.5 / REFRESH))
        self.drive.do("segment", row=self.row, index=1)
        view = self.view()
        self.assertEqual((view["frameIndex"], view["animating"]), (0, True))
        expected = Player("Style-1.gif").refreshes(90)
        self.refresh(90)
        self.assertEqual(self.view()["frameIndex"], expected[-1])

    def moving(self):
        """A player that has come with the view to where every other refresh shows another frame."""
        player = Player("Style-0.gif")
        self.assertEqual(player.size, 5)
        while player.index < 13:
            player.refresh()
            self.refresh(1)
        self.assertEqual(self.view()["frameIndex"], player.index)
        return player

    def test_a_memory_warning_leaves_one_frame_and_room_for_more_comes_back_in_time(self):
        player, sixtieth, longer = self.moving(), (6, REFRESH), (2, 0.08)

        def plays_holding(size, refreshes, *unlike):
            others = [player.holding(other).refreshes(*refreshes) for other in unlike]
            player.hold(size)
            expected = player.refreshes(*refreshes)
            self.assertNotIn(expected, others)
            self.assertEqual(self.indexes(*refreshes), expected)

        self.drive.do("memory-warning")
        plays_holding(1, sixtieth, 2, 5)
        self.drive.do("advance", seconds=2)
        plays_holding(2, sixtieth, 1)
        plays_holding(2, longer, 5)
        self.drive.do("advance", seconds=3)
        plays_holding(5, longer, 1, 2)

    def test_after_four_memory_warnings_it_plays_on_with_one_frame_ahead(self):
        player = self.moving()
        unhindered = player.holding(5).play()
        for _ in range(4):
            self.drive.do("memory-warning")
        self.drive.do("advance", seconds=60)
        player.hold(1)
        expected = player.play()
        self.assertGreater(len(expected), len(unhindered) + 20)
        self.assertEqual(self.indexes(len(expected)), expected)
        self.assertFalse(self.view()["animating"])

    def test_a_covered_preview_waits(self):
        self.refresh(30)
        self.drive.do("push", pane="QDCountryPrefixController")
        self.refresh(300)
        self.drive.do("pop")
        expected = Player("Style-0.gif").refreshes(60)
        self.refresh(30)
        self.assertEqual(self.view()["frameIndex"], expected[-1])


if __name__ == "__main__":
    unittest.main()
