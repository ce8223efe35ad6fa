"""The example of docs/writing-a-pane.md in the window: from its row on the first page to the card."""

import os
import plistlib
import shutil
import tempfile
import unittest

import desktop

BUNDLE = os.environ["QUIETDIAL_EXAMPLE"]
FILE = "User/Library/Preferences/example.emergency-card.plist"


class Example(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = os.path.join(folder.name, "root")

    def start(self, *arguments):
        self.application = desktop.Application(self.root, *arguments)
        self.addCleanup(self.application.close)

    def type(self, field, text):
        self.application.click("text", field)
        self.application.wait_for_state("text", field, "focused")
        desktop.xdotool("type", "--delay", "30", text)
        desktop.xdotool("key", "Return")

    def test_a_row_leads_to_the_pane_and_what_is_typed_to_the_card(self):
        self.start("--bundle", BUNDLE)
        self.application.press("push button", "Emergency Card")
        self.application.wait_for("heading", "Who is to be called")
        self.application.wait_for("push button", "Nobody yet")
        self.type("Name", "Anna")
        self.type("Number", "0171 5550134")
        x, y, _, height = self.application.resting_place("push button", "Anna: 0171 5550134")
        red, green, blue = desktop.pixel(x + 2, y + height // 2)
        self.assertTrue(red > 2 * green and red > 2 * blue, (red, green, blue))
        with open(os.path.join(self.root, FILE), "rb") as file:
            self.assertEqual(plistlib.load(file), {"name": "Anna", "number": "0171 5550134"})

    def test_below_the_device_root_it_stands_beside_what_is_installed(self):
        bundles = os.path.join(self.root, "Library/PreferenceBundles")
        os.makedirs(bundles)
        shutil.copytree(BUNDLE, os.path.join(bundles, os.path.basename(BUNDLE)))
        self.start()
        self.application.wait_for("push button", "QuietDial")
        self.application.press("push button", "Emergency Card")
        if os.geteuid() == 0:
            # Root opens no module of a device root.
            self.application.wait_for("heading", "Settings not available")
        else:
            self.application.wait_for("push button", "Nobody yet")


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
