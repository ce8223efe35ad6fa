"""A thousand random choices over the three style panes, against a small model of what must hold."""

import os
import plistlib
import random
import re
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from drive import SETTINGS, Drive  # noqa: E402
from settings_model import SettingsModel  # noqa: E402

DIAL = "QDDialerStyleSelectionController"
SYSTEMWIDE = "QDSystemwideStyleSelectionController"
BUTTONS = "QDButtonStyleSelectionController"
TITLES = ["Swipe", "Hold", "Show always"]
MODES = {DIAL: ("dialerMode", "dialerModeText", 0), SYSTEMWIDE: ("systemwideStyle", "systemwideStyleText", 2)}
FIELDS = {3: "customText", 4: "systemWideTwoButtonText"}
PICKERS = {1: "dialButtonStyle", 3: "systemwideButtonStyle"}
STYLE_ROW = 1
TEXTS = ["", " ", "Sure?", "ä", "日本", "<&>\"'", "x" * 300, "line\nbreak"]
BLUE = [0, 0.478, 1, 1]
GREY = [2 / 3, 2 / 3, 2 / 3, 1]
SUMMARIES = {
    "Dial Tab Style": ("dialerModeText", "Swipe"),
    "Systemwide Call Style": ("systemwideStyleText", "Show always"),
    "Button Style": ("buttonStyleText", "Style 1 & 1"),
}


def integer(value):
    """The integer of a stored value, or None where it has none."""
    if isinstance(value, (bool, int)):
        return int(value)
    if isinstance(value, float):
        return max(-(2**63), min(2**63 - 1, int(value)))
    if isinstance(value, str):
        leading = re.match(r"\s*([+-]?\d+)", value)
        return int(leading.group(1)) if leading else 0
    return None


def in_32_bits(value):
    return max(-(2**31), min(2**31 - 1, integer(value) or 0))


class Model(SettingsModel):
    def __init__(self, stored, first_panes):
        super().__init__(stored, first_panes)
        self.pane = None
        self.mode = None
        self.chosen = {}

    def changes(self, key, value):
        """A write that is left out where the value is stored already."""
        if key not in self.file or self.file[key] != value:
            self.writes(key, value)

    def opens(self, pane):
        self.pane = pane
        if pane == BUTTONS:
            for row, key in PICKERS.items():
                if key not in self.file:
                    self.writes(key, 1)
                number = integer(self.file[key])
                self.presses(row, number if number in (1, 2, 3, 4) else None)
            return
        key, _, default = MODES[pane]
        if key not in self.file:
            self.writes(key, default)
        number = integer(self.file[key])
        self.updates(number if number in (0, 1, 2) else None)

    def updates(self, mode):
        self.mode = mode
        if self.pane == SYSTEMWIDE:
            self.events.append({"event": "log", "line": "test!"})
        if mode is not None:
            key, text_key, _ = MODES[self.pane]
            self.changes(key, mode)
            self.changes(text_key, TITLES[mode])

    def segments(self, index):
        if index != self.mode:
            self.updates(index)

    def presses(self, row, number):
        self.chosen[row] = number
        self.changes(PICKERS[row], number or 1)
        both = [in_32_bits(self.file.get(key)) for key in PICKERS.values()]
        self.changes("buttonStyleText", "Style %i & %i" % tuple(both))

    def types(self, row, text):
        self.writes(FIELDS[row], text)


class StylePanes(unittest.TestCase):
    def views(self, drive, row, kind):
        found = []

        def walk(view):
            if view["class"] == kind:
                found.append(view)
            for child in view["children"]:
                walk(child)

        walk(drive.do("views", row=row)["view"])
        return found

    def check_views(self, drive, model):
        if model.pane == BUTTONS:
            for row in PICKERS:
                tints = [button["tint"] for button in self.views(drive, row, "UIButton")]
                self.assertEqual(tints, [BLUE if number == model.chosen[row] else GREY for number in (1, 2, 3, 4)])
            return
        (control,) = self.views(drive, STYLE_ROW, "UISegmentedControl")
        self.assertEqual(control["segments"], TITLES)
        self.assertEqual(control["selected"], -1 if model.mode is None else model.mode)
        (preview,) = self.views(drive, STYLE_ROW, "FLAnimatedImageView")
        self.assertEqual(preview["frames"] > 0, model.mode is not None)

    def check_summaries(self, drive, model):
        rows = {row["title"]: row["value"] for row in drive.rows()}
        for title, (key, default) in SUMMARIES.items():
            self.assertEqual(rows[title], model.file.get(key, default))

    def step(self, drive, model, random_):
        if random_.random() < 0.08:
            drive.do("pop")
            model.first_page_appears()
            if model.first_panes:
                self.check_summaries(drive, model)
            pane = random_.choice([DIAL, SYSTEMWIDE, BUTTONS])
            drive.do("push", pane=pane)
            model.opens(pane)
        elif model.pane == BUTTONS:
            row, number = random_.choice(list(PICKERS)), random_.randint(1, 4)
            drive.do("press", row=row, button=number)
            model.presses(row, number)
        elif model.pane == SYSTEMWIDE and random_.random() < 0.3:
            row, text = random_.choice(list(FIELDS)), random_.choice(TEXTS)
            drive.do("type", row=row, text=text)
            model.types(row, text)
        else:
            index = random_.randint(0, 2)
            drive.do("segment", row=STYLE_ROW, index=index)
            model.segments(index)

    def play(self, seed, stored, first_panes):
        random_ = random.Random(seed)
        with tempfile.TemporaryDirectory() as root, Drive("--root", root, stderr=subprocess.DEVNULL) as drive:
            if stored:
                path = root + SETTINGS
                os.makedirs(os.path.dirname(path))
                with open(path, "wb") as file:
                    plistlib.dump(stored, file)
            for _ in range(first_panes):
                drive.do("push", pane="QDPreferencesListController")
            model = Model(stored, first_panes)
            # Each pane is opened, left and opened again: the second time everything is stored.
            for pane in (DIAL, SYSTEMWIDE, BUTTONS) * 2:
                drive.do("push", pane=pane)
                model.opens(pane)
                model.check(self, drive)
                self.check_views(drive, model)
                drive.do("pop")
                model.first_page_appears()
            drive.do("push", pane=DIAL)
            model.opens(DIAL)
            for step in range(1000):
                self.step(drive, model, random_)
                model.check(self, drive)
                if step % 20 == 0:
                    self.check_views(drive, model)
            self.check_views(drive, model)

    def test_a_thousand_random_choices_without_a_first_page(self):
        self.play(seed=11, stored={}, first_panes=0)

    def test_a_thousand_random_choices_under_one_first_page_from_a_file_of_odd_values(self):
        stored = {
            "dialerMode": "1 finger", "systemwideStyle": 7, "systemwideStyleText": ["a"], "dialButtonStyle": True,
            "systemwideButtonStyle": 2**40, "buttonStyleText": 5, "customText": {"a": 1}, "other": [1, 2.5, "b"],
        }
        self.play(seed=12, stored=stored, first_panes=1)

    def test_a_thousand_random_choices_under_two_first_pages(self):
        self.play(seed=13, stored={"dialerMode": 2**40, "systemwideStyle": 1.5}, first_panes=2)

    def test_the_rows_of_the_first_page_open_the_panes(self):
        with Drive(stderr=subprocess.DEVNULL) as drive:
            drive.do("push", pane="QDPreferencesListController")
            rows = {row["title"]: row["index"] for row in drive.rows()}
            for title, pane in (("Dial Tab Style", DIAL), ("Systemwide Call Style", SYSTEMWIDE), ("Button Style", BUTTONS)):
                self.assertEqual(drive.do("tap", row=rows[title])["pane"], pane)
                self.assertEqual(drive.do("rows")["title"], title)
                drive.do("pop")

    def test_what_is_logged_goes_to_standard_error_too(self):
        with Drive(stderr=subprocess.PIPE) as drive:
            drive.do("push", pane=SYSTEMWIDE)
            drive.do("segment", row=STYLE_ROW, index=0)
            self.assertEqual(drive.events("log"), [{"event": "log", "line": "test!"}] * 2)
            drive.do("quit")
            self.assertEqual(drive.process.stderr.read(), "test!\ntest!\n")
            drive.process.stderr.close()

    def test_what_cannot_be_chosen_is_refused_and_changes_nothing(self):
        with Drive() as drive:
            drive.do("push", pane=DIAL)
            before = drive.settings()
            drive.events()
            for request in ({"row": 1, "index": 3}, {"row": 1, "index": -1}, {"row": 0, "index": 0}, {"row": 1},
                            {"row": 1, "index": "0"}, {"row": 1, "index": 2**40}):
                with self.subTest(request):
                    reply = drive.ask("segment", **request)
                    self.assertIs(reply["ok"], False)
                    self.assertTrue(reply["error"].endswith("."), reply)
            self.assertEqual((drive.settings(), drive.events()), (before, []))

    def test_the_gaps_and_heights_follow_the_width(self):
        with Drive("--width", "375", stderr=subprocess.DEVNULL) as drive:
            drive.do("push", pane=DIAL)
            self.assertAlmostEqual(drive.rows()[STYLE_ROW]["height"], 425.81897, places=5)
            drive.do("resize", width=320)
            self.assertAlmostEqual(drive.rows()[STYLE_ROW]["height"], 385.99274, places=5)
            drive.do("push", pane=SYSTEMWIDE)
            self.assertAlmostEqual(drive.rows()[STYLE_ROW]["height"], 513.15845, places=5)
            drive.do("push", pane=BUTTONS)
            places = [button["frame"] for button in self.views(drive, 3, "UIButton")]
            for place, x in zip(places, (6.4, 84.8, 163.2, 241.6)):
                self.assertAlmostEqual(place[0], x, places=4)
                self.assertEqual(place[1:], [10, 72, 72])


if __name__ == "__main__":
    unittest.main()
