"""The drawing of the previews: moves, and poses of one frame between them."""

import os
import sys
import unittest

import numpy


class PreviewsTest(unittest.TestCase):
    previews = None

    def for_each(self):
        for name, preview in self.previews.items():
            with self.subTest(name):
                yield preview()

    def test_nothing_moves_while_a_pose_is_held(self):
        for preview in self.for_each():
            held = [0] + [end for _, end in preview.moves]
            left = [start for start, _ in preview.moves] + [preview.length]
            for since, until in zip(held, left):
                self.assertLess(since, until)
                pose = preview.at(since)
                for moment in ((since + until) / 2, until):
                    self.assertTrue(numpy.array_equal(preview.at(moment), pose), f"{since} is not {moment}")

    def test_frames_last_as_long_as_the_preview(self):
        for preview in self.for_each():
            moments = preview.moments()
            self.assertEqual((moments[0], moments), (0, sorted(set(moments))))
            delays = [later - sooner for sooner, later in zip(moments, [*moments[1:], preview.length])]
            moving = {moment for start, end in preview.moves for moment in moments if start < moment < end}
            for moment, delay in zip(moments, delays):
                if moment in moving:
                    self.assertLessEqual(delay, preview.step)
            self.assertEqual([delay for _, delay in preview.frames()], delays)
            self.assertEqual(sum(delays), preview.length)


if __name__ == "__main__":
    sys.path.insert(0, os.path.join(sys.argv.pop(1), "art"))
    from quietart import previews
    PreviewsTest.previews = previews.PREVIEWS
    unittest.main()
