"""The example of docs/writing-a-pane.md as a bundle of its own under `quietdial drive`."""

import os
import pathlib
import plistlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from drive import Drive  # noqa: E402

SOURCES = pathlib.Path(__file__).parents[2]
BUNDLE = os.environ["QUIETDIAL_EXAMPLE"]
PANE = "EmergencyCardController"
NAME, NUMBER, CARD = 1, 2, 4
FILE = "/User/Library/Preferences/example.emergency-card.plist"


class EmergencyCard(unittest.TestCase):
    def open(self, *arguments, bundle=BUNDLE):
        drive = Drive("--bundle", bundle, *arguments)
        self.addCleanup(drive.__exit__)
        drive.do("push", pane=PANE)
        return drive

    def card(self, drive):
        """Text, text colour and background of the card as it is shown."""
        cell = drive.do("views", row=CARD)["view"]

        def labels(view):
            if view.get("text"):
                yield view
            for child in view["children"]:
                yield from labels(child)
        (label,) = labels({**cell, "text": None})
        return label["text"], label["textColor"], cell.get("background")

    def test_the_rows_are_those_of_the_list(self):
        rows = self.open().rows()
        self.assertEqual([row["title"] for row in rows],
                         ["Who is to be called", "Name", "Number", "The card", "Nobody yet"])

    def test_the_card_says_whom_to_call_once_name_and_number_are_there(self):
        drive = self.open()
        self.assertEqual(self.card(drive)[0], "Nobody yet")
        drive.do("type", row=NAME, text="Anna")
        empty = self.card(drive)
        self.assertEqual(empty[0], "Nobody yet")
        drive.do("type", row=NUMBER, text="0171 5550134")
        full = self.card(drive)
        self.assertEqual(full[0], "Anna: 0171 5550134")
        self.assertNotEqual(full[1:], empty[1:])

    def test_what_is_typed_is_kept_with_what_was_there(self):
        with tempfile.TemporaryDirectory() as root:
            file = root + FILE
            os.makedirs(os.path.dirname(file))
            with open(file, "wb") as stream:
                plistlib.dump({"name": "Bo", "blood": "A"}, stream)
            drive = self.open("--root", root)
            drive.do("type", row=NUMBER, text="112")
            self.assertEqual(self.card(drive)[0], "Bo: 112")
            with open(file, "rb") as stream:
                self.assertEqual(plistlib.load(stream), {"name": "Bo", "number": "112", "blood": "A"})

    def test_a_tap_on_the_card_calls(self):
        drive = self.open()
        drive.do("tap", row=CARD)
        self.assertEqual(drive.events("open"), [])
        drive.do("type", row=NUMBER, text="+49 171#5")
        drive.do("tap", row=CARD)
        self.assertEqual(drive.events("open"), [{"event": "open", "url": "tel:+49%20171%235"}])

    def test_the_page_shows_what_a_script_is_answered(self):
        page = (SOURCES / "docs/writing-a-pane.md").read_text()
        (block,) = re.findall(r"^```console\n\$ (.*?)^```$", page, re.M | re.S)
        command = re.match(r"(?:.*\\\n)*.*\n", block).group()
        programs = os.path.dirname(os.environ["QUIETDIAL"])
        there = command.replace("build/bin", programs).replace("build/examples", os.path.dirname(BUNDLE))
        self.assertEqual(there.count(BUNDLE), 1, there)
        result = subprocess.run(["bash", "-c", there], capture_output=True, text=True, check=True)
        self.assertEqual(command + result.stdout, block)

    def test_its_module_is_opened_only_where_nobody_else_may_write_it(self):
        with tempfile.TemporaryDirectory() as folder:
            copy = shutil.copytree(BUNDLE, os.path.join(folder, "EmergencyCard.bundle"))
            self.open(bundle=copy)
            os.chmod(os.path.join(copy, "EmergencyCard"), 0o775)
            self.assert_refused(copy, "The module cannot be opened: others may write to "
                                f"{os.path.realpath(copy)}/EmergencyCard.")

    def test_a_folder_without_a_usable_entry_is_no_bundle(self):
        with tempfile.TemporaryDirectory() as folder:
            self.assert_refused(folder, f"{folder} is no bundle: it has no Entry.plist that can be used.")
            with open(os.path.join(folder, "Entry.plist"), "wb") as stream:
                plistlib.dump({"label": "Card", "detail": PANE}, stream)
            self.assert_refused(folder, f"{folder} is no bundle: it has no Entry.plist that can be used.")

    def assert_refused(self, bundle, sentence):
        result = subprocess.run([os.environ["QUIETDIAL"], "drive", "--bundle", bundle], stdin=subprocess.DEVNULL,
                                capture_output=True, text=True, check=False)
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertEqual(result.stderr.splitlines()[-1], "quietdial drive: " + sentence)


if __name__ == "__main__":
    unittest.main()
