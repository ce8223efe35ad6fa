"""Whose code is run: the installed bundle's, and only where nobody else may change it."""

import json
import os
import plistlib
import shutil
import subprocess
import tempfile
import unittest

QUIETDIAL = os.environ["QUIETDIAL"]
MODULE = os.environ["QUIETDIAL_MODULE"]
BUNDLE = "Library/PreferenceBundles/quietDialPreferences.bundle"
PANE = "QDSupportListController"
LIST = "quietDialSupportPreferences.plist"


def drive(root, program=QUIETDIAL):
    """What it writes and what it says when a page is asked for its rows."""
    result = subprocess.run([program, "drive", "--root", root], capture_output=True, text=True, check=False,
                            input=json.dumps({"do": "push", "pane": PANE}) + '\n{"do":"rows"}\n')
    return [json.loads(line) for line in result.stdout.splitlines()], result.stderr


class Bundle(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.root = os.path.join(self.folder, "root")

    def test_a_device_root_changes_what_the_panes_show_and_not_what_they_do(self):
        bundle = os.path.join(self.root, BUNDLE)
        os.makedirs(bundle)
        with open(os.path.join(bundle, os.path.basename(MODULE)), "wb") as file:
            file.write(b"whatever is planted here")
        with open(os.path.join(os.path.dirname(MODULE), LIST), "rb") as file:
            rows = plistlib.load(file)
        rows["items"][1]["label"] = "Of the device root"
        with open(os.path.join(bundle, LIST), "wb") as file:
            plistlib.dump(rows, file)
        (opened, listed), said = drive(self.root)
        self.assertEqual((opened["ok"], said), (True, ""))
        self.assertIn("Of the device root", [row["title"] for row in listed["rows"]])

    def test_a_module_that_others_may_write_is_not_opened(self):
        own, private = os.path.join(self.folder, "bin"), os.path.join("lib", "quietdial")
        os.makedirs(own)
        os.makedirs(os.path.join(self.folder, private))
        program = shutil.copy(QUIETDIAL, own)
        library = os.path.join(os.path.dirname(QUIETDIAL), "..", private, "libquietdial-platform.so")
        shutil.copy(library, os.path.join(self.folder, private))
        bundle = shutil.copytree(os.path.dirname(MODULE), os.path.join(self.folder, private, BUNDLE))
        module = os.path.join(bundle, os.path.basename(MODULE))
        (opened, _), said = drive(self.root, program)
        self.assertEqual((opened["ok"], said), (True, ""))
        for path in (bundle, module):
            with self.subTest(path):
                os.chmod(path, 0o775)
                replies, said = drive(self.root, program)
                self.assertEqual(replies, [])
                self.assertEqual(said, "quietdial drive: The module cannot be opened: others may write to "
                                       f"{os.path.realpath(path)}.\n")
                os.chmod(path, 0o755)


if __name__ == "__main__":
    unittest.main()
