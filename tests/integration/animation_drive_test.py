"""Animated previews under a script: the display is refreshed by hand, and the view says where it is."""

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


def states(file, refreshes, cache=None):
    """The frame index after each refresh, up to the end: frames come one refresh after they are
    first asked for, as many ahead as the cache may hold."""
    gif = json.loads(subprocess.run([program(), "gif", file], check=True, capture_output=True).stdout)
    delays, size, count = gif["delays"], cache or gif["optimalCacheSize"], len(gif["delays"])
    cached, index, spent, result = {gif["posterFrame"]}, 0, 0.0, []
    while len(result) < refreshes and index < count:
        asked = {(index + ahead) % count for ahead in range(size)}
        shown = index in cached
        cached = (cached & asked) | asked | {gif["posterFrame"]}
        if shown:
            spent += REFRESH
            while index < count and spent >= single(delays[index]):
                spent -= single(delays[index])
                index += 1
        result.append(index)
    return result


class Animations(unittest.TestCase):
    def setUp(self):
        self.drive = Drive()
        self.addCleanup(self.drive.__exit__)
        self.drive.do("push", pane=PANE)
        rows = self.drive.rows()
        self.row = next(row["index"] for row in rows if row["row"] >= 0 and
                        animations(self.drive.do("views", row=row["index"])["view"]))

    def view(self):
        return animations(self.drive.do("views", row=self.row)["view"])[0]

    def refresh(self, count):
        self.drive.do("refresh", count=count, duration=REFRESH)

    def test_a_preview_starts_by_itself_on_its_first_frame(self):
        view = self.view()
        gif = json.loads(subprocess.run([program(), "gif", BUNDLE + "Style-0.gif"], check=True,
                                        capture_output=True).stdout)
        self.assertEqual(view["frames"], gif["frames"])
        self.assertEqual((view["frameIndex"], view["animating"], view["loopCountdown"]), (0, True, 1))

    def test_each_refresh_moves_it_as_its_delays_say(self):
        expected = states(BUNDLE + "Style-0.gif", 10_000)
        self.assertEqual(expected[-1], self.view()["frames"])
        for index in expected[:200]:
            self.refresh(1)
            self.assertEqual(self.view()["frameIndex"], index)

    def test_it_plays_once_and_stops_with_the_last_frame(self):
        expected = states(BUNDLE + "Style-0.gif", 10_000)
        self.refresh(len(expected) - 1)
        self.assertTrue(self.view()["animating"])
        self.refresh(1)
        end = self.view()
        self.assertEqual((end["frameIndex"], end["animating"], end["loopCountdown"]),
                         (end["frames"], False, 0))
        self.refresh(100)
        self.assertEqual(self.view(), end)

    def test_time_alone_moves_nothing(self):
        self.drive.do("advance", seconds=60)
        self.assertEqual(self.view()["frameIndex"], 0)

    def test_another_segment_plays_its_own_preview_from_the_start(self):
        self.refresh(math.ceil(1.5 / REFRESH))
        self.drive.do("segment", row=self.row, index=1)
        view = self.view()
        self.assertEqual((view["frameIndex"], view["animating"]), (0, True))
        expected = states(BUNDLE + "Style-1.gif", 90)
        self.refresh(90)
        self.assertEqual(self.view()["frameIndex"], expected[-1])

    def test_after_four_memory_warnings_it_plays_on_with_one_frame_ahead(self):
        for _ in range(4):
            self.drive.do("memory-warning")
        self.drive.do("advance", seconds=60)
        expected = states(BUNDLE + "Style-0.gif", 150, cache=1)
        self.refresh(150)
        self.assertEqual(self.view()["frameIndex"], expected[-1])
        self.assertTrue(self.view()["animating"])

    def test_a_covered_preview_waits(self):
        self.refresh(30)
        self.drive.do("push", pane="QDCountryPrefixController")
        self.refresh(300)
        self.drive.do("pop")
        expected = states(BUNDLE + "Style-0.gif", 60)
        self.refresh(30)
        self.assertEqual(self.view()["frameIndex"], expected[-1])


if __name__ == "__main__":
    unittest.main()
