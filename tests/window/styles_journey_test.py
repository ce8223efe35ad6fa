"""The three style panes in the window: chosen through the accessibility bus and by keyboard, and the
previews seen moving."""

import os
import plistlib
import tempfile
import unittest

import desktop
import program
from rest import Rest

DIAL = "QDDialerStyleSelectionController"
SYSTEMWIDE = "QDSystemwideStyleSelectionController"
BUTTONS = "QDButtonStyleSelectionController"


def pixels_of(picture):
    return [picture[at:at + 4] for at in range(0, len(picture), 4)]


class StylesJourney(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.file = os.path.join(folder.name, program.SETTINGS_FILE)

    def start(self, *arguments):
        self.application = desktop.Application(self.folder, *arguments)
        self.addCleanup(self.application.close)

    def start_on_first_page(self):
        self.start("--pane", "QDPreferencesListController")
        self.application.wait_for("push button", "Dial Tab Style, Swipe")

    def store(self, settings):
        os.makedirs(os.path.dirname(self.file), exist_ok=True)
        with open(self.file, "wb") as file:
            plistlib.dump(settings, file)

    def settings(self):
        try:
            with open(self.file, "rb") as file:
                return plistlib.load(file)
        except FileNotFoundError:
            return {}

    def wait_for_setting(self, key, value):
        desktop.wait_for(lambda: self.settings().get(key) == value, f"{key} to be {value}")

    def do_press(self, element):
        action = element.queryAction()
        names = [action.getName(index) for index in range(action.nActions)]
        self.assertEqual(names.count("Press"), 1, names)
        self.assertTrue(action.doAction(names.index("Press")))

    def press(self, role, name):
        self.application.press(role, name)

    def keys(self, *keys):
        desktop.xdotool("key", *keys)

    def on(self, role, name):
        self.application.wait_for_state(role, name, "focused")

    def on_button(self, group, name):
        """Waits until the keyboard is on that button of that group."""
        def focused():
            return any(child.name == name and "focused" in self.application.states(child)
                       for element in self.application.elements() if element.name == group
                       for child in element)
        desktop.wait_for(focused, f"“{name}” of “{group}” to be focused")

    def groups(self):
        """The titles of all groups with their radio buttons and whether each is checked."""
        groups = []
        for element in self.application.elements():
            if element.getRoleName() == "panel" and element.name:
                choices = [(child.name, "checked" in self.application.states(child))
                           for child in element if child.getRoleName() == "radio button"]
                if choices:
                    groups.append((element.name, choices))
        return groups

    def wait_for_groups(self, expected):
        desktop.wait_for(lambda: self.groups() == expected, f"the groups to be {expected}")

    def test_hold_is_chosen_through_the_bus_and_the_first_page_says_so(self):
        self.start_on_first_page()
        self.press("push button", "Dial Tab Style, Swipe")
        self.wait_for_groups([("Dial tab style",
                               [("Swipe", True), ("Hold", False), ("Show always", False)])])
        self.assertTrue(self.application.wait_for("image", "Animation: a finger swipes"))
        self.assertTrue(self.application.wait_for("label", "Swipe to the left"))
        self.press("radio button", "Hold")
        self.application.wait_for_state("radio button", "Hold", "checked")
        self.assertEqual(self.settings(), {"dialerMode": 1, "dialerModeText": "Hold"})
        self.assertTrue(self.application.wait_for("image", "Animation: a finger rests"))
        self.assertTrue(self.application.wait_for("label", "Tap and hold"))
        self.press("push button", "Back")
        self.application.wait_for("push button", "Dial Tab Style, Hold")

    def test_hold_is_chosen_by_keyboard_and_the_first_page_says_so(self):
        self.start_on_first_page()
        self.application.wait_for_state("list", "Settings", "focused")
        self.keys("Down", "Down")
        self.on("push button", "Dial Tab Style")
        self.keys("Return")
        self.application.wait_for("radio button", "Hold")
        self.application.wait_for_state("list", "Settings", "focused")
        self.keys("Down")
        self.on("radio button", "Swipe")
        self.keys("Right")
        self.on("radio button", "Hold")
        self.assertEqual(self.settings()["dialerMode"], 0)
        self.keys("space")
        self.application.wait_for_state("radio button", "Hold", "checked")
        self.assertEqual(self.settings(), {"dialerMode": 1, "dialerModeText": "Hold"})
        self.keys("Right", "Right")
        self.on("radio button", "Show always")
        self.keys("Left")
        self.on("radio button", "Hold")
        self.keys("Escape")
        self.application.wait_for("push button", "Dial Tab Style, Hold")

    def test_the_system_wide_page_is_used_by_keyboard_alone(self):
        self.start("--pane", SYSTEMWIDE)
        self.wait_for_groups([("Systemwide call style",
                               [("Swipe", False), ("Hold", False), ("Show always", True)])])
        self.application.wait_for_state("list", "Settings", "focused")
        self.keys("Down")
        self.on("radio button", "Show always")
        self.keys("Left", "space")
        self.wait_for_setting("systemwideStyleText", "Hold")
        self.keys("Down")
        self.on("text", "Are you sure you want to call?")
        desktop.xdotool("type", "--delay", "30", "Sure?")
        self.keys("Down")
        self.on("text", "How would you like to call?")
        self.wait_for_setting("customText", "Sure?")
        self.keys("Up", "Up")
        self.on("radio button", "Hold")

    def test_a_tap_outside_the_field_closes_the_keyboard_and_still_chooses(self):
        self.start("--pane", SYSTEMWIDE, "--size", "375x900")
        self.application.click("text", "Are you sure you want to call?")
        self.on("text", "Are you sure you want to call?")
        desktop.xdotool("type", "--delay", "30", "Sure?")
        x, y, width, height = self.application.resting_place("radio button", "Swipe")
        self.assertLess(height, 44)
        # A finger needs 44 points: the segment takes what is just above it, too.
        desktop.xdotool("mousemove", x + width // 2, y - (44 - height) // 2 + 1, "click", 1)
        self.wait_for_setting("customText", "Sure?")
        self.wait_for_setting("systemwideStyleText", "Swipe")
        desktop.wait_for(lambda: "focused" not in self.application.states(
            self.application.wait_for("text", "Are you sure you want to call?")),
            "the field to lose the keyboard")

    def test_buttons_are_chosen_through_the_bus_each_in_its_group(self):
        self.start("--pane", BUTTONS)
        first = [(f"Button {number}", number == 1) for number in (1, 2, 3, 4)]
        self.wait_for_groups([("Dial Button Style", first), ("Systemwide BUtton Style", first)])
        group = [element for element in self.application.elements()
                 if element.name == "Systemwide BUtton Style"
                 and element.getRoleName() == "panel"][0]
        self.do_press(group[2])
        third = [(f"Button {number}", number == 3) for number in (1, 2, 3, 4)]
        self.wait_for_groups([("Dial Button Style", first), ("Systemwide BUtton Style", third)])
        self.assertEqual(self.settings(), {"dialButtonStyle": 1, "systemwideButtonStyle": 3,
                                           "buttonStyleText": "Style 1 & 3"})

    def test_buttons_are_chosen_by_keyboard(self):
        self.store({"dialButtonStyle": 2, "systemwideButtonStyle": 4,
                    "buttonStyleText": "Style 2 & 4"})
        self.start("--pane", BUTTONS)
        self.application.wait_for("radio button", "Button 1")
        self.application.wait_for_state("list", "Settings", "focused")
        self.keys("Down")
        self.on_button("Dial Button Style", "Button 2")
        self.keys("Right", "space")
        self.wait_for_setting("buttonStyleText", "Style 3 & 4")
        self.keys("Down")
        self.on_button("Systemwide BUtton Style", "Button 4")
        self.keys("Left", "Left", "Return")
        self.wait_for_setting("buttonStyleText", "Style 3 & 2")

    def watch(self, place):
        """Pictures of the place until the window rests, without repeats."""
        course, rest = [], Rest(self.application.process.pid)

        def rests():
            picture = desktop.screen(*place)
            if not course or picture != course[-1]:
                course.append(picture)
            return rest.look() and picture == desktop.screen(*place)
        desktop.wait_for(rests, "the preview to come to rest")
        return course

    def test_each_preview_is_seen_moving_and_its_last_frame_stays(self):
        for pane, first, later in ((DIAL, "Swipe", ("Hold", "Show always")),
                                   (SYSTEMWIDE, "Show always", ("Swipe", "Hold"))):
            self.start("--pane", pane, "--size", "375x900")
            self.application.wait_for("radio button", first)
            ends = []
            for name in (first, *later):
                if name != first:
                    self.press("radio button", name)
                preview = self.application.wait_for("image", "Animation: ")
                with self.subTest(pane=pane, preview=name):
                    place = self.application.place(preview)
                    course = self.watch(place)
                    self.assertGreaterEqual(len(set(course)), 4)
                    # It stays, and it is not where it began.
                    self.assertEqual(desktop.screen(*place), course[-1])
                    self.assertNotEqual(course[-1], course[0])
                    ends.append(course[-1])
            self.assertEqual(len(set(ends)), 3)
            self.assertGreater(len(set(pixels_of(ends[-1]))), 50)
            self.application.close()

    def colours_before_the_last(self, course):
        """The colours of what was seen in the place of the last picture before that was there."""
        last = pixels_of(course[-1])
        return {pixel for picture in course for pixel, end in zip(pixels_of(picture), last) if pixel != end}

    def test_with_reduced_motion_a_preview_is_its_last_frame(self):
        ends = []
        for arguments in (["--motion", "reduced"], []):
            self.start("--pane", DIAL, "--size", "375x900", *arguments)
            preview = self.application.wait_for("image", "Animation: ")
            course = self.watch(self.application.place(preview))
            ends.append(course[-1])
            # The empty window and the empty place may be seen before it, and parts of both while it is painted:
            # two colours. What moves shows thousands.
            self.assertEqual(len(self.colours_before_the_last(course)) <= 2, bool(arguments))
            self.application.close()
        self.assertEqual(ends[0], ends[1])


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
