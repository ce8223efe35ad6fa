"""The prefix is chosen by keyboard alone, without a mouse."""

import os
import plistlib
import tempfile
import unittest

import desktop
import program

TYPED = "*31#9"


class KeyboardJourney(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = os.path.join(folder.name, program.SETTINGS_FILE)
        self.application = desktop.Application(folder.name)
        self.addCleanup(self.application.close)

    def press(self, *keys):
        desktop.xdotool("key", *keys)

    def on(self, role, name):
        self.application.wait_for_state(role, name, "focused")

    def settings(self):
        with open(self.file, "rb") as file:
            return plistlib.load(file)

    def test_country_and_custom_prefix(self):
        self.application.wait_for("push button", "QuietDial")
        self.application.wait_for_state("list", "Settings", "focused")
        self.press("Down")
        self.on("push button", "QuietDial")
        self.press("Return")
        self.application.wait_for("push button", "Hide Caller ID Prefix")
        self.application.wait_for_state("list", "Settings", "focused")
        self.press("Down")
        self.on("push button", "Hide Caller ID Prefix")
        self.press("space")

        self.application.wait_for("radio button", "Algeria")
        self.application.wait_for_state("list", "Settings", "focused")
        desktop.xdotool("type", "uk")
        self.on("radio button", "UK")
        self.press("Return")
        self.application.wait_for_state("radio button", "UK", "checked")
        # The row was built anew; the keyboard is still on it.
        self.on("radio button", "UK")
        self.assertEqual(self.settings()["selectedCountry"], "UK ")

        self.press("End")
        self.on("text", "Enter your custom prefix here")
        desktop.xdotool("type", "--delay", "30", TYPED[:-1])
        self.press("Up")
        desktop.wait_for(lambda: self.settings()["customPrefix"] == TYPED[:-1],
                         "what was typed to be kept when the keyboard goes on")
        self.press("Down")
        self.on("text", "Enter your custom prefix here")
        desktop.xdotool("type", "--delay", "30", TYPED[-1])
        self.press("Return")
        desktop.wait_for(lambda: self.settings()["customPrefix"] == TYPED,
                         "what was typed to be kept on Return")
        self.assertEqual(self.settings()["selectedPrefix"], "141")
        self.press("Up")
        self.on("radio button", "Custom")
        self.press("space")
        self.application.wait_for_state("radio button", "Custom", "checked")

        self.press("Escape")
        self.application.wait_for("push button",
                                  "Hide Caller ID Prefix, star three one hash nine")
        # The keyboard comes back to the row that led away, though that row was built anew.
        self.on("push button", "Hide Caller ID Prefix")
        self.press("alt+Left")
        self.application.wait_for("push button", "QuietDial")
        self.on("push button", "QuietDial")

    def test_tab_goes_round_bar_list_and_field(self):
        self.application.wait_for_state("list", "Settings", "focused")
        self.press("Down", "Return")
        self.application.wait_for("push button", "Hide Caller ID Prefix")
        self.application.wait_for_state("list", "Settings", "focused")
        self.press("Down", "Return")
        self.application.wait_for("radio button", "Algeria")
        self.application.wait_for_state("list", "Settings", "focused")
        self.press("Down")
        self.on("radio button", "Algeria")
        self.press("Tab")
        self.on("text", "Enter your custom prefix here")
        self.press("Tab")
        self.on("push button", "Back")
        self.press("Tab")
        self.on("text", "Enter your custom prefix here")
        self.press("shift+Tab")
        self.on("push button", "Back")
        self.press("Return")
        self.application.wait_for("push button", "Dial Tab Style")

    def test_the_share_sheet_takes_the_keyboard_and_gives_it_back(self):
        self.application.wait_for_state("list", "Settings", "focused")
        self.press("Down", "Return")
        self.application.wait_for("push button", "Share")
        self.application.wait_for_state("list", "Settings", "focused")
        self.press("Down")
        self.on("push button", "Hide Caller ID Prefix")
        self.press("Tab", "Tab")
        self.on("push button", "Share")
        self.press("space")
        self.application.wait_for("dialog", "Twitter")
        desktop.xdotool("type", "--delay", "30", " Yes")
        text = self.application.wait_for("text", "Text").queryText()
        desktop.wait_for(lambda: text.getText(0, -1) ==
                         "I'm loving #QuietDial from @Tallowbyte! Yes", "the typed text")
        self.press("Escape")
        desktop.wait_for(lambda: not self.application.find("dialog", "Twitter"),
                         "the sheet to go")
        self.on("push button", "Share")
        self.press("Tab", "Down")
        self.on("push button", "Dial Tab Style")

    def test_home_end_and_page_keys(self):
        self.application.wait_for_state("list", "Settings", "focused")
        self.press("Down", "Return")
        self.application.wait_for("push button", "Credits")
        self.application.wait_for_state("list", "Settings", "focused")
        self.press("End")
        self.on("push button", "Credits")
        self.press("Up")
        self.on("push button", "Support")
        self.press("Home")
        self.on("push button", "Hide Caller ID Prefix")
        self.press("Next")
        self.on("push button", "Credits")
        self.press("Prior")
        self.on("push button", "Hide Caller ID Prefix")


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
