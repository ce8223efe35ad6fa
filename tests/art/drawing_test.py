"""The drawing command gives the committed files again, byte by byte."""

import filecmp
import os
import subprocess
import sys
import tempfile
import unittest


def files(folder, endings):
    return {name for name in os.listdir(folder) if name.endswith(endings)}


class DrawingTest(unittest.TestCase):
    resources = None

    def test_drawing_again_gives_the_same_bytes(self):
        with tempfile.TemporaryDirectory() as fresh:
            subprocess.run([os.path.join(self.resources, "art", "draw"), "--out", fresh], check=True)
            for folder, endings in (("quietDialPreferences.bundle", (".png", ".gif")), ("icons", (".svg",))):
                kept, drawn = os.path.join(self.resources, folder), os.path.join(fresh, folder)
                names = files(drawn, endings)
                self.assertTrue(names)
                # A picture that nothing draws is left over.
                self.assertEqual(files(kept, endings), names)
                _, different, unread = filecmp.cmpfiles(kept, drawn, names, shallow=False)
                self.assertEqual((different, unread), ([], []))


if __name__ == "__main__":
    DrawingTest.resources = sys.argv.pop(1)
    unittest.main()
