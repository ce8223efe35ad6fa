"""The still pictures and the icons: sizes, templates, legibility."""

import argparse
import itertools
import os
import struct
import sys
import unittest
import xml.etree.ElementTree

import numpy
from PIL import Image

SIZES = {
    "tallowbyteLogoNavBar": (120, 28), "heart": (22, 20), "gear-white": (29, 29), "icon": (29, 29),
    "GrayButton1": (72, 72), "GrayButton2": (72, 72), "GrayButton3": (72, 72), "GrayButton4": (72, 72),
    "tallowbyte-logo": (200, 56), "avatar-orlan": (80, 80), "avatar-tavish": (80, 80),
}
BUTTONS = [f"GrayButton{i}" for i in range(1, 5)]
TEMPLATES = BUTTONS + ["tallowbyteLogoNavBar", "heart"]
SUFFIXES = {1: "", 2: "@2x", 3: "@3x"}
SVG = "{http://www.w3.org/2000/svg}"

options = argparse.Namespace(bundle=None, icons=None)


def picture(name, scale):
    with Image.open(path(name, scale)) as image:
        return image.convert("RGBA")


def path(name, scale):
    return os.path.join(options.bundle, name + SUFFIXES[scale] + ".png")


def contrast(a, b):
    def light(colour):
        channels = [c / 255 / 12.92 if c <= 10 else ((c / 255 + 0.055) / 1.055) ** 2.4 for c in colour]
        return 0.2126 * channels[0] + 0.7152 * channels[1] + 0.0722 * channels[2] + 0.05
    high, low = sorted((light(a), light(b)), reverse=True)
    return high / low


class StillsTest(unittest.TestCase):
    def test_each_has_its_size_at_each_scale(self):
        for name, (width, height) in SIZES.items():
            for scale in SUFFIXES:
                with self.subTest(name=name, scale=scale):
                    self.assertEqual(picture(name, scale).size, (width * scale, height * scale))

    def test_files_hold_the_picture_and_nothing_else(self):
        for name in SIZES:
            for scale in SUFFIXES:
                with self.subTest(name=name, scale=scale), open(path(name, scale), "rb") as file:
                    data, at, kinds = file.read(), 8, []
                    while at < len(data):
                        length, kind = struct.unpack_from(">I4s", data, at)
                        kinds.append(kind)
                        at += 12 + length
                    self.assertEqual(set(kinds), {b"IHDR", b"IDAT", b"IEND"})

    def test_templates_carry_their_shape_in_alpha_alone(self):
        for name in TEMPLATES:
            for scale in SUFFIXES:
                with self.subTest(name=name, scale=scale):
                    pixels = numpy.asarray(picture(name, scale))
                    alpha = pixels[..., 3]
                    self.assertEqual((alpha.min(), alpha.max()), (0, 255))
                    self.assertTrue((pixels[alpha > 0][:, :3] == 0).all())
                    self.assertTrue(0.08 < (alpha / 255).mean() < 0.8)

    def test_buttons_differ_also_at_24_points(self):
        for size in (72, 24):
            shapes = [numpy.asarray(picture(n, 3).getchannel("A").resize((size, size), Image.BOX)) / 255
                      for n in BUTTONS]
            for a, b in itertools.combinations(range(4), 2):
                with self.subTest(size=size, pair=(a + 1, b + 1)):
                    self.assertGreater(abs(shapes[a] - shapes[b]).mean(), 0.15)

    def test_buttons_keep_clear_marks_at_24_points(self):
        for name in BUTTONS:
            with self.subTest(name):
                shape = numpy.asarray(picture(name, 3).getchannel("A").resize((24, 24), Image.BOX))
                inner = shape[5:19, 5:19]
                # The sign in the middle is neither closed up nor washed out.
                self.assertGreater((inner > 190).mean(), 0.10)
                self.assertGreater((inner < 65).mean(), 0.10)

    def test_the_gear_is_white(self):
        pixels = numpy.asarray(picture("gear-white", 3))
        self.assertTrue((pixels[pixels[..., 3] > 0][:, :3] == 255).all())
        self.assertEqual(pixels[43, 43, 3], 0)

    def test_the_logo_stands_out_on_light_and_dark(self):
        pixels = numpy.asarray(picture("tallowbyte-logo", 2))
        word = pixels[:, 100:][pixels[:, 100:, 3] == 255][:, :3]
        colour = numpy.median(word, axis=0)
        for ground in ((255, 255, 255), (28, 28, 30)):
            self.assertGreater(contrast(colour, ground), 3)

    def test_avatars_are_round(self):
        for name in ("avatar-orlan", "avatar-tavish"):
            alpha = numpy.asarray(picture(name, 2))[..., 3]
            self.assertEqual([alpha[y, x] for y in (2, -3) for x in (2, -3)], [0] * 4)
            self.assertEqual([alpha[80, 1], alpha[80, -2], alpha[1, 80], alpha[-2, 80]], [255] * 4)


class IconsTest(unittest.TestCase):
    def read(self, name):
        root = xml.etree.ElementTree.parse(os.path.join(options.icons, name)).getroot()
        self.assertEqual(root.tag, SVG + "svg")
        return root

    def test_the_scalable_icon_is_square(self):
        self.assertEqual(self.read("quietdial.svg").get("viewBox"), "0 0 128 128")

    def test_the_symbolic_icon_is_filled_paths_of_one_colour(self):
        root = self.read("quietdial-symbolic.svg")
        self.assertEqual(root.get("viewBox"), "0 0 16 16")
        drawn = [e for e in root.iter() if e.tag not in (SVG + "svg", SVG + "title")]
        self.assertEqual({e.tag for e in drawn}, {SVG + "path"})
        self.assertEqual(len({e.get("fill") for e in drawn}), 1)
        self.assertTrue(all(e.get("stroke") is None for e in drawn))


if __name__ == "__main__":
    arguments = argparse.ArgumentParser(add_help=False)
    arguments.add_argument("--bundle", required=True)
    arguments.add_argument("--icons", required=True)
    rest = arguments.parse_known_args(namespace=options)[1]
    unittest.main(argv=sys.argv[:1] + rest)
