"""The animated previews: their measures, their timing, and that every decoder sees the same frames."""

import argparse
import functools
import os
import sys
import unittest

import numpy

import gif_file

RATIOS = {"Style": 1.381, "SystemWideStyle": 0.549}
# The points that each preview takes in a pane 375 points wide.
POINTS = {"Style": (345, 249.82), "SystemWideStyle": (295, 537.34)}
NAMES = [f"{kind}-{i}.gif" for kind in RATIOS for i in range(3)]
# Where the two buttons stand, in pixels from the top left.
CENTRES = {"Style": ((169, 302), (345, 302), 62), "SystemWideStyle": ((295, 794), (477, 794), 66)}
# The longest time in hundredths of a second that a frame shows while something moves: 25 frames a second.
MOVING = 4
GREY, GREY_PRESSED = (142, 142, 147), (104, 104, 110)
GREEN, GREEN_PRESSED = (76, 217, 100), (61, 188, 84)

options = argparse.Namespace(bundle=None, decoder=None)


def for_each_preview(test):
    """Runs a test once for each file; a failure names the file."""
    @functools.wraps(test)
    def run(self):
        for name in NAMES:
            path = os.path.join(options.bundle, name)
            with self.subTest(name):
                test(self, name.split("-")[0], path, gif_file.GifFile(path))
    return run


class PreviewTest(unittest.TestCase):
    def pictures(self, path, file):
        return [numpy.frombuffer(frame, numpy.uint8).reshape(file.height, file.width, 4)
                for frame in gif_file.pillow_frames(path)]

    @for_each_preview
    def test_sizes_and_ratios_fit_the_panes(self, kind, path, file):
        width, height = POINTS[kind]
        self.assertGreaterEqual(file.width, 2 * width)
        self.assertGreaterEqual(file.height + 0.5, 2 * height)
        # No whole number of rows comes nearer to the wanted ratio.
        self.assertEqual(file.height, round(file.width / RATIOS[kind]))
        self.assertLess(file.bytes, 600_000)

    @for_each_preview
    def test_each_plays_once_for_two_to_four_seconds(self, kind, path, file):
        self.assertEqual(file.applications, [])
        self.assertTrue(2.0 <= sum(f.delay for f in file.frames) / 100 <= 4.0)

    @for_each_preview
    def test_motion_has_25_frames_a_second(self, kind, path, file):
        delays = [f.delay for f in file.frames]
        # Two hundredths and more: nobody clamps such a delay.
        self.assertGreaterEqual(min(delays), 2)
        moving = [d for d in delays if d <= MOVING]
        self.assertGreaterEqual(sum(moving), 90)
        # What is no motion is a pose, held for long enough to be seen as one.
        self.assertGreaterEqual(min(d for d in delays if d > MOVING), 12)
        self.assertLessEqual(len(delays) - len(moving), 5)
        pictures = self.pictures(path, file)

        def step(i):
            return int(abs(pictures[i + 1].astype(int) - pictures[i]).sum())
        for i, delay in enumerate(delays[:-1]):
            self.assertGreater(step(i), 0, f"frame {i} again")
            if delay > MOVING:
                # A longer rest is one: the motion after it sets off gently.
                self.assertLess(step(i), step(i + 1) / 2, f"frame {i} rests {delay / 100} s before a jump")
        self.assertGreaterEqual(delays[-1], 50)

    @for_each_preview
    def test_players_decode_five_frames_ahead(self, kind, path, file):
        decoded = file.width * file.height * 4 * len(file.frames)
        self.assertLessEqual(decoded, 75 * 2**20, f"{decoded / 2**20:.1f} MB decoded")

    @for_each_preview
    def test_frames_are_small_and_share_one_palette(self, kind, path, file):
        self.assertEqual(file.colours, 256)
        area = file.width * file.height
        self.assertEqual((file.frames[0].width, file.frames[0].height), (file.width, file.height))
        self.assertFalse(file.frames[0].transparent)
        for frame in file.frames:
            self.assertFalse(frame.own_colours)
            self.assertEqual(frame.disposal, 1)
            self.assertLessEqual(frame.left + frame.width, file.width)
            self.assertLessEqual(frame.top + frame.height, file.height)
        later = [f.width * f.height for f in file.frames[1:]]
        self.assertLess(max(later), 0.4 * area)

    @for_each_preview
    def test_there_is_no_dithering_noise(self, kind, path, file):
        worst = 0
        for picture in self.pictures(path, file):
            packed = picture.astype(numpy.uint32) @ numpy.array([1 << 16, 1 << 8, 1, 0], numpy.uint32)
            middle = packed[1:-1, 1:-1]
            around = [packed[:-2, 1:-1], packed[2:, 1:-1], packed[1:-1, :-2], packed[1:-1, 2:]]
            alike = numpy.ones(middle.shape, bool)
            for side in around[1:]:
                alike &= side == around[0]
            worst = max(worst, int((alike & (middle != around[0])).sum()))
        # A dot among equal neighbours: dithering makes thousands of them, drawn edges a few.
        self.assertLess(worst, 100)

    @for_each_preview
    def test_every_pixel_is_opaque(self, kind, path, file):
        for picture in self.pictures(path, file):
            self.assertTrue((picture[..., 3] == 255).all())

    @for_each_preview
    def test_the_last_frame_shows_both_buttons(self, kind, path, file):
        last = self.pictures(path, file)[-1][..., :3]
        slot, call, radius = CENTRES[kind]
        for (x, y), colours in ((slot, (GREY, GREY_PRESSED)), (call, (GREEN, GREEN_PRESSED))):
            # The left edge of a disc, where no finger lies and no sign is drawn.
            colour = last[y - radius // 2, x - radius // 2 - 6].astype(int)
            self.assertTrue(any(abs(colour - c).max() <= 3 for c in colours), f"{colour} at {x}, {y}")

    @for_each_preview
    def test_the_button_comes_out_only_where_a_gesture_fetches_it(self, kind, path, file):
        first = self.pictures(path, file)[0][..., :3]
        (x, y), _, radius = CENTRES[kind]
        there = abs(first[y - radius // 2, x - radius // 2 - 6].astype(int) - GREY).max() <= 3
        self.assertEqual(there, path.endswith("-2.gif"))

    def test_the_six_end_differently(self):
        ends = set()
        for name in NAMES:
            *_, last = gif_file.pillow_frames(os.path.join(options.bundle, name))
            ends.add(last)
        self.assertEqual(len(ends), len(NAMES))

    @for_each_preview
    def test_ffmpeg_and_pillow_see_the_same_frames(self, kind, path, file):
        pillow = [gif_file.checksum(f) for f in gif_file.pillow_frames(path)]
        ffmpeg = [gif_file.checksum(f) for f in gif_file.ffmpeg_frames(path, file.width, file.height)]
        self.assertEqual(len(pillow), len(file.frames))
        self.assertEqual(ffmpeg, pillow)

    @for_each_preview
    def test_our_decoder_sees_the_same_frames(self, kind, path, file):
        self.assertIsNotNone(options.decoder, "needs --decoder PROGRAM")
        report = gif_file.decoder_report(options.decoder, path)
        self.assertEqual((report["width"], report["height"]), (file.width, file.height))
        self.assertEqual(report["frames"], len(file.frames))
        self.assertEqual(report["checksums"], [gif_file.checksum(f) for f in gif_file.pillow_frames(path)])


if __name__ == "__main__":
    arguments = argparse.ArgumentParser(add_help=False)
    arguments.add_argument("--bundle", required=True)
    arguments.add_argument("--decoder")
    rest = arguments.parse_known_args(namespace=options)[1]
    unittest.main(argv=sys.argv[:1] + rest)
