"""Taps by mouse and by finger. On the page with text fields a tap anywhere beside a field closes the
keyboard, and still does what it does there; the left edge, from which a swipe goes back, is no
exception."""

import os
import plistlib
import string
import tempfile
import unittest

import desktop
import program
import touchscreen

CUSTOM = "Are you sure you want to call?"
TWO_BUTTON = "How would you like to call?"


SWIPE = 250  # points from the edge, enough to go back


class Mouse:
    environment = {}

    def tap(self, x, y):
        desktop.xdotool("mousemove", x, y, "click", 1)

    def drag(self, *places):
        (x, y), *others = places
        desktop.xdotool("mousemove", x, y, "mousedown", 1)
        for x, y in others:
            desktop.xdotool("mousemove", x, y)
        desktop.xdotool("mouseup", 1)


class Taps:
    """What holds for every pointer; `make_pointer` makes one."""

    def start(self, *arguments):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = os.path.join(folder.name, program.SETTINGS_FILE)
        self.pointer = self.make_pointer(folder.name)
        self.application = desktop.Application(folder.name, "--motion", "reduced", *arguments,
                                               **self.pointer.environment)
        self.addCleanup(self.application.close)
        # A tap on a window that is not on the screen yet is lost.
        self.application.wait_for_rest()

    def start_with_fields(self, height=950):
        # Usually high enough for the whole list and some room below it.
        self.start("--pane", "QDSystemwideStyleSelectionController", "--size", f"375x{height}")
        self.application.wait_for("text", CUSTOM)

    def settings(self):
        try:
            with open(self.file, "rb") as file:
                return plistlib.load(file)
        except FileNotFoundError:
            return {}

    def wait_for_setting(self, key, value):
        desktop.wait_for(lambda: self.settings().get(key) == value, f"{key} to be {value}")

    def place(self, role, name):
        return self.application.place(self.application.wait_for(role, name))

    def middle(self, role, name):
        x, y, width, height = self.place(role, name)
        return x + width // 2, y + height // 2

    def is_focused(self, name):
        return "focused" in self.application.states(self.application.wait_for("text", name))

    def type(self, text):
        """Puts the cursor into the first field and types; the text stands in the field then, and
        is not stored."""
        self.pointer.tap(*self.middle("text", CUSTOM))
        desktop.wait_for(lambda: self.is_focused(CUSTOM), "the field to have the keyboard")
        desktop.xdotool("key", "End", "type", text)

        def has_text():
            field = self.application.wait_for("text", CUSTOM).queryText()
            return field.getText(0, -1).endswith(text)
        desktop.wait_for(has_text, f"the field to end in {text}")

    def bare_areas(self):
        left, top, width, height = self.place("list", "Settings")
        middle = left + width // 2
        _, first_row, *_ = self.place("panel", "Systemwide call style")
        _, last_row, _, last_height = self.place("text", TWO_BUTTON)
        heading = self.middle("heading", "Custom Text")
        below = last_row + last_height
        self.assertGreater(first_row - top, 20)
        self.assertGreater(top + height - below, 60)
        return {
            "below the rows": (middle, top + height - 10),
            "just below the last row": (middle, below + 25),
            "the header's text": heading,
            "beside the header's text": (left + width - 20, heading[1]),
            "above the first row": (middle, top + (first_row - top) // 2),
            "the preview": self.middle("image", "Animation: "),
            "beside the preview": (left + width - 10, self.middle("image", "Animation: ")[1]),
            "at the left edge": (left + 3, heading[1]),
            "at the left edge, below the rows": (left + 3, top + height - 10),
            "a field's row beside the field": (left + width - 5, self.middle("text", TWO_BUTTON)[1]),
        }

    def test_a_tap_on_a_bare_area_closes_the_keyboard(self):
        self.start_with_fields()
        typed = ""
        for letter, (name, place) in zip(string.ascii_lowercase, self.bare_areas().items()):
            typed += letter
            self.type(letter)
            self.assertNotEqual(self.settings().get("customText"), typed)
            self.pointer.tap(*place)
            desktop.wait_for(lambda: not self.is_focused(CUSTOM), f"the keyboard to close: {name}")
            self.wait_for_setting("customText", typed)

    def test_a_tap_closes_the_keyboard_before_it_does_what_it_does_there(self):
        self.start_with_fields()
        self.type("Sure?")
        self.pointer.tap(*self.middle("radio button", "Hold"))
        self.wait_for_setting("systemwideStyleText", "Hold")
        self.assertEqual(self.settings()["customText"], "Sure?")
        desktop.wait_for(lambda: not self.is_focused(CUSTOM), "the keyboard to close")

    def test_a_tap_in_a_field_leaves_the_keyboard_to_the_field(self):
        self.start_with_fields()
        self.type("Sure?")
        x, y, width, height = self.place("text", CUSTOM)
        self.pointer.tap(x + 2, y + height // 2)
        desktop.wait_for(lambda: self.application.wait_for("text", CUSTOM).queryText().caretOffset
                         == 0, "the cursor to come before the first letter")
        desktop.xdotool("type", "Really? ")
        desktop.wait_for(lambda: self.application.wait_for("text", CUSTOM).queryText()
                         .getText(0, -1) == "Really? Sure?", "the field to take more letters")
        self.assertNotIn("customText", self.settings())
        self.assertTrue(self.is_focused(CUSTOM))

    def test_a_tap_in_the_other_field_takes_the_keyboard_there(self):
        self.start_with_fields()
        self.type("Sure?")
        self.pointer.tap(*self.middle("text", TWO_BUTTON))
        desktop.wait_for(lambda: self.is_focused(TWO_BUTTON), "the other field to have the keyboard")
        self.wait_for_setting("customText", "Sure?")
        desktop.xdotool("type", "How?")
        desktop.wait_for(lambda: self.application.wait_for("text", TWO_BUTTON).queryText()
                         .getText(0, -1) == "How?", "the other field to hold what was typed")

    def test_a_drag_from_a_bare_area_scrolls_and_leaves_the_keyboard(self):
        # The second field's lower part is out of sight.
        self.start_with_fields(820)
        self.type("Sure?")
        before = self.place("text", CUSTOM)
        x, y = self.middle("heading", "Custom Text")
        self.pointer.drag((x, y), (x, y - 30), (x, y - 60), (x, y - 90))
        self.application.wait_for_rest()
        self.assertLess(self.place("text", CUSTOM)[1], before[1] - 20)
        desktop.xdotool("type", "!")
        desktop.wait_for(lambda: self.application.wait_for("text", CUSTOM).queryText()
                         .getText(0, -1) == "Sure?!", "the field to take another letter")
        self.assertNotIn("customText", self.settings())

    def test_a_tap_at_the_left_edge_chooses_the_row(self):
        self.start("--pane", "QDCountryPrefixController")
        left, top, _, height = self.place("radio button", "Algeria")
        self.pointer.tap(left + 3, top + height // 2)
        self.application.wait_for_state("radio button", "Algeria", "checked")

    def test_a_swipe_from_the_left_edge_goes_back_and_chooses_nothing(self):
        self.start("--pane", "QDCountryPrefixController")
        left, top, _, height = self.place("radio button", "Algeria")
        self.wait_for_setting("selectedCountry", "Most other counties")
        y = top + height // 2
        self.pointer.drag(*((left + x, y) for x in range(3, SWIPE, 20)))
        self.application.wait_for("push button", "Hide Caller ID Prefix")
        desktop.wait_for(lambda: not self.application.find("radio button", "Algeria"),
                         "the page to go")
        self.assertEqual(self.settings()["selectedCountry"], "Most other counties")

    def test_a_short_swipe_from_the_left_edge_leaves_the_page(self):
        self.start("--pane", "QDCountryPrefixController")
        left, top, _, height = self.place("radio button", "Algeria")
        y = top + height // 2
        self.pointer.drag(*((left + x, y) for x in range(3, 80, 10)))
        # A row is chosen on the page that is back in its place, and on no other.
        self.pointer.tap(left + 100, y)
        self.application.wait_for_state("radio button", "Algeria", "checked")
        self.assertEqual(self.place("radio button", "Algeria"), (left, top, _, height))


class MouseTaps(Taps, unittest.TestCase):
    def make_pointer(self, _folder):
        return Mouse()


class FingerTaps(Taps, unittest.TestCase):
    def make_pointer(self, folder):
        return touchscreen.TouchScreen(folder)


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
