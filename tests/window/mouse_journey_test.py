"""The prefix is chosen with the mouse, a custom one is typed, and the file has both."""

import os
import plistlib
import subprocess
import tempfile
import unittest

import desktop
import program

TYPED = "*31#9"
WHEEL_NOTCH = 120  # points, at most, that the list moves for one


class MouseJourney(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = folder.name
        self.application = desktop.Application(self.root, "--pane", "QDPreferencesListController")
        self.addCleanup(self.application.close)

    def settings(self):
        path = os.path.join(self.root, program.SETTINGS_FILE)
        try:
            with open(path, "rb") as file:
                return plistlib.load(file)
        except FileNotFoundError:
            return {}

    def wait_for_settings(self, expected):
        desktop.wait_for(lambda: self.settings() == expected, f"the file to hold {expected}")

    def click(self, role, name):
        self.application.click(role, name)

    def scroll_to(self, role, name):
        """Turns the wheel over the list until the element is in sight."""
        _, top, _, bottom = self.application.place(self.application.wait_for("panel", ""))
        def in_sight():
            _, y, _, height = self.application.resting_place(role, name)
            if top + 60 <= y and y + height <= top + bottom:
                return True
            notches = max(1, abs(y - top - 300) // WHEEL_NOTCH)
            desktop.xdotool("mousemove", 187, 400, "click", "--repeat", notches, "--delay", 5,
                            5 if y > top + 300 else 4)
            return False
        desktop.wait_for(in_sight, f"{role} “{name}” to come into sight")

    def test_country_and_custom_prefix(self):
        self.click("push button", "Hide Caller ID Prefix")
        self.application.wait_for("radio button", "Algeria")
        self.wait_for_settings({"selectedCountry": "Most other counties",
                                "selectedPrefix": "#31#", "customPrefix": ""})

        self.scroll_to("radio button", "UK")
        self.click("radio button", "UK")
        self.application.wait_for_state("radio button", "UK", "checked")
        self.wait_for_settings({"selectedCountry": "UK ", "selectedPrefix": "141",
                                "customPrefix": ""})

        self.scroll_to("text", "Enter your custom prefix here")
        self.click("text", "Enter your custom prefix here")
        self.application.wait_for_state("text", "Enter your custom prefix here", "focused")
        desktop.xdotool("type", "--delay", "30", TYPED)
        self.scroll_to("radio button", "Custom")
        self.click("radio button", "Custom")
        self.application.wait_for_state("radio button", "Custom", "checked")
        self.wait_for_settings({"selectedCountry": "Custom (enter below)",
                                "selectedPrefix": TYPED, "customPrefix": TYPED})

        self.click("push button", "Back")
        self.application.wait_for("push button",
                                  "Hide Caller ID Prefix, star three one hash nine")

    def test_what_is_typed_is_stored_before_the_tap_that_took_the_keyboard_away(self):
        posts = desktop.Posts("me.orlanvey.quietDial/PreferencesChanged")
        self.click("push button", "Hide Caller ID Prefix")
        self.scroll_to("text", "Enter your custom prefix here")
        self.click("text", "Enter your custom prefix here")
        self.application.wait_for_state("text", "Enter your custom prefix here", "focused")
        desktop.xdotool("type", "--delay", "30", TYPED)
        posts.wait_for(3)  # the defaults of a first visit
        self.click("radio button", "Custom")
        self.wait_for_settings({"selectedCountry": "Custom (enter below)",
                                "selectedPrefix": TYPED, "customPrefix": TYPED})
        # The typed prefix, then country and prefix. The other way round the typed prefix would be
        # stored a second time, as the one in force.
        posts.wait_for(6)
        self.click("push button", "Back")
        self.application.wait_for("push button",
                                  "Hide Caller ID Prefix, star three one hash nine")
        self.assertEqual(posts.count(), 6)

    def test_a_field_stays_in_sight_when_the_window_gets_lower(self):
        self.click("push button", "Hide Caller ID Prefix")
        self.scroll_to("text", "Enter your custom prefix here")
        self.click("text", "Enter your custom prefix here")
        self.application.wait_for_state("text", "Enter your custom prefix here", "focused")
        window = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid",
                                 str(self.application.process.pid)], capture_output=True,
                                text=True, check=True).stdout.split()[-1]
        desktop.xdotool("windowsize", window, 375, 300)

        def in_sight():
            _, top, _, height = self.application.place(self.application.wait_for("panel", ""))
            _, y, _, row = self.application.place(
                self.application.wait_for("text", "Enter your custom prefix here"))
            return height == 300 and top + 44 <= y and y + row <= top + 300
        desktop.wait_for(in_sight, "the field to stay above the window's lower end")

    def test_what_is_typed_is_kept_when_the_window_is_closed(self):
        self.click("push button", "Hide Caller ID Prefix")
        self.scroll_to("text", "Enter your custom prefix here")
        self.click("text", "Enter your custom prefix here")
        self.application.wait_for_state("text", "Enter your custom prefix here", "focused")
        desktop.xdotool("type", "--delay", "30", "#30#")
        desktop.wait_for(lambda: self.application.wait_for("text", "Enter").queryText()
                         .getText(0, -1) == "#30#", "the field to hold what was typed")
        desktop.xdotool("key", "ctrl+q")
        self.application.process.wait(desktop.PATIENCE)
        self.assertEqual(self.settings()["customPrefix"], "#30#")

    def test_what_is_typed_is_kept_when_the_program_is_asked_to_end(self):
        self.click("push button", "Hide Caller ID Prefix")
        self.scroll_to("text", "Enter your custom prefix here")
        self.click("text", "Enter your custom prefix here")
        self.application.wait_for_state("text", "Enter your custom prefix here", "focused")
        desktop.xdotool("type", "--delay", "30", "1")
        desktop.wait_for(lambda: self.application.wait_for("text", "Enter").queryText()
                         .getText(0, -1) == "1", "the field to hold what was typed")
        self.application.process.terminate()
        self.assertEqual(self.application.process.wait(desktop.PATIENCE), 0)
        self.assertEqual(self.settings()["customPrefix"], "1")

    def test_a_swipe_from_the_left_edge_goes_back(self):
        self.click("push button", "Hide Caller ID Prefix")
        self.application.resting_place("radio button", "Algeria")
        left, top, width, _ = self.application.place(self.application.wait_for("panel", ""))
        desktop.xdotool("mousemove", left + 5, top + 300, "mousedown", 1)
        for x in range(10, width - 20, 25):
            desktop.xdotool("mousemove", left + x, top + 300)
        desktop.xdotool("mouseup", 1)
        self.application.wait_for("push button", "Hide Caller ID Prefix")
        desktop.wait_for(lambda: not self.application.find("radio button", "Algeria"),
                         "the page to go")


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
