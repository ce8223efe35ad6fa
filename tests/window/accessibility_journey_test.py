"""The prefix is chosen through the accessibility bus alone, as with a screen reader."""

import os
import plistlib
import tempfile
import unittest

import desktop
import program

TYPED = "*31#9"


class AccessibilityJourney(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = os.path.join(folder.name, program.SETTINGS_FILE)
        self.application = desktop.Application(folder.name)
        self.addCleanup(self.application.close)

    def press(self, role, name):
        self.application.press(role, name)

    def settings(self):
        with open(self.file, "rb") as file:
            return plistlib.load(file)

    def test_country_and_custom_prefix(self):
        self.application.wait_for("heading", "Settings")
        self.press("push button", "QuietDial")
        self.press("push button", "Hide Caller ID Prefix, hash three one hash")
        self.application.wait_for("heading", "Prefixes")
        self.press("radio button", "UK, one four one")
        self.application.wait_for_state("radio button", "UK, one four one", "checked")
        self.assertEqual(self.settings()["selectedCountry"], "UK ")

        field = self.application.wait_for("text", "Enter your custom prefix here")
        self.assertIn("editable", self.application.states(field))
        self.assertTrue(field.queryEditableText().setTextContents(TYPED))
        self.assertEqual(field.queryText().getText(0, -1), TYPED)
        self.press("radio button", "Custom")
        self.application.wait_for_state("radio button", "Custom", "checked")
        self.assertEqual(self.settings(), {"selectedCountry": "Custom (enter below)",
                                           "selectedPrefix": TYPED, "customPrefix": TYPED})
        self.press("push button", "Back")
        self.application.wait_for("push button",
                                  "Hide Caller ID Prefix, star three one hash nine")

    def test_the_share_sheet_is_a_dialog_with_a_text_and_two_buttons(self):
        self.press("push button", "QuietDial")
        self.press("push button", "Share")
        dialog = self.application.wait_for("dialog", "Twitter")
        text = self.application.wait_for("text", "Text")
        self.assertEqual(text.queryText().getText(0, -1),
                         "I'm loving #QuietDial from @Tallowbyte!")
        self.assertTrue(self.application.find("push button", "Post"))
        # What lies under the sheet cannot be used.
        covered = self.application.wait_for("push button", "Hide Caller ID Prefix")
        self.assertNotIn("enabled", self.application.states(covered))
        self.press("push button", "Cancel")
        desktop.wait_for(lambda: not self.application.find("dialog", "Twitter"),
                         "the sheet to go")
        self.assertTrue(dialog)

    def test_nothing_is_listed_twice_and_everything_has_a_name(self):
        self.press("push button", "QuietDial")
        self.press("push button", "Hide Caller ID Prefix")
        self.application.wait_for("radio button", "Algeria")
        desktop.wait_for(lambda: not self.application.find("push button", "Credits"),
                         "the former page to be out of sight")
        elements = [(element.getRoleName(), element.name)
                    for element in self.application.elements()]
        rows = [name for role, name in elements if role == "radio button"]
        self.assertEqual(len(rows), 35)
        self.assertEqual(len(set(rows)), 35)
        self.assertEqual([entry for entry in elements if entry[0] == "filler"], [])
        nameless = [entry for entry in elements
                    if not entry[1] and entry[0] not in ("frame", "panel")]
        self.assertEqual(nameless, [])


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
