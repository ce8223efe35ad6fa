"""Two thousand random steps over the terminal's commands and the panes on one file, against a small model of what must
hold: the file, the notifications and the restarts agree at each step."""

import json
import os
import random
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from drive import CHANGED, Drive  # noqa: E402
from prefix_model_test import COUNTRIES, CUSTOM, CUSTOM_ROW, FIELD_ROW  # noqa: E402
from settings_terminal import TOLD, Terminal, isolate  # noqa: E402
from styles_model_test import BUTTONS, DIAL, MODES, PICKERS, SYSTEMWIDE, TITLES  # noqa: E402

PREFIX = "QDCountryPrefixController"
STEPS = 2000
TEXTS = ["", " ", "Sure?", "ä 日本", "-q", "x" * 200, "line\nbreak"]
PREFIXES = ["", "*31#", "#30#", " *67 ", "141"]
BUTTON_TEXT = "Style %i & %i"
DEFAULTS = {"dialerMode": 0, "systemwideStyle": 2, "dialButtonStyle": 1, "systemwideButtonStyle": 1,
            "selectedCountry": "Most other counties", "selectedPrefix": "#31#", "customPrefix": ""}


class Model:
    """What is in the file, by what was done to it."""

    def __init__(self):
        self.file = {}

    def value(self, key):
        return self.file.get(key, DEFAULTS.get(key))

    def words(self, key):
        """Brings the text of a mode or a button up to date."""
        for mode, text_key, _ in MODES.values():
            if key == mode:
                self._text(text_key, [mode], TITLES[self.value(mode)])
        if key in PICKERS.values():
            self._text("buttonStyleText", PICKERS.values(), BUTTON_TEXT % tuple(map(self.value, PICKERS.values())))

    def _text(self, text_key, keys, text):
        if any(key in self.file for key in keys):
            self.file[text_key] = text
        else:
            self.file.pop(text_key, None)

    def set(self, key, value):
        self.file[key] = value
        self.words(key)
        if key == "customPrefix" and self.value("selectedCountry") == CUSTOM:
            self.file["selectedPrefix"] = value

    def choose(self, country):
        self.file["selectedCountry"] = country
        self.file["selectedPrefix"] = dict(COUNTRIES).get(country, self.value("customPrefix"))

    def reset(self, key):
        group = [key, "selectedPrefix"] if key == "selectedCountry" else [key]
        if all(name not in self.file or self.file[name] == DEFAULTS.get(name) for name in group):
            return
        for name in group:
            self.file.pop(name, None)
        self.words(key)
        if key == "customPrefix" and self.value("selectedCountry") == CUSTOM:
            self.file["selectedPrefix"] = ""

    def reset_all(self):
        for key in [*MODES_KEYS, *PICKERS.values(), "customText", "systemWideTwoButtonText", "selectedCountry", "customPrefix"]:
            self.reset(key)

    # What entering a pane writes.

    def enters(self, pane):
        if pane == PREFIX:
            for key in ("selectedCountry", "selectedPrefix", "customPrefix"):
                self.file.setdefault(key, DEFAULTS[key])
        elif pane == BUTTONS:
            for key in PICKERS.values():
                self.file.setdefault(key, 1)
                # Each button of the two is shown, and stores the text of both as they are by then.
                self.file["buttonStyleText"] = BUTTON_TEXT % tuple(self.file.get(each, 0) for each in PICKERS.values())
        else:
            key, _, default = MODES[pane]
            self.file.setdefault(key, default)
            self.words(key)


MODES_KEYS = [mode for mode, _, _ in MODES.values()]


class Walk(unittest.TestCase):
    def setUp(self):
        self.terminal = Terminal()
        self.addCleanup(self.terminal.close)
        self.terminal.start_dialler()
        self.model = Model()
        self.random = random.Random(21)
        self.exported = []

    def command(self):
        """One command, and what the model makes of it."""
        pick = self.random.choice
        kind = self.random.random()
        if kind < 0.3:
            key = pick([*MODES_KEYS, *PICKERS.values()])
            value = pick([0, 1, 2] if key in MODES_KEYS else [1, 2, 3, 4])
            self.model.set(key, value)
            return ["set", key, TITLES[value].lower() if key in MODES_KEYS and self.random.random() < 0.5 else str(value)]
        if kind < 0.4:
            key, text = pick(["customText", "systemWideTwoButtonText"]), pick(TEXTS)
            self.model.set(key, text)
            return ["set", key, "--", text]
        if kind < 0.6:
            country = pick([name for name, _ in COUNTRIES] + [CUSTOM])
            self.model.choose(country)
            return ["prefix", country]
        if kind < 0.7:
            text = pick(PREFIXES)
            self.model.set("customPrefix", text)
            if self.random.random() < 0.5:
                self.model.choose(CUSTOM)
                return ["prefix", "--custom", text]
            return ["set", "customPrefix", "--", text]
        if kind < 0.85:
            key = pick([*MODES_KEYS, *PICKERS.values(), "customText", "selectedCountry", "customPrefix"])
            self.model.reset(key)
            return ["reset", "--yes", key]
        if kind < 0.9:
            self.model.reset_all()
            return ["reset", "--yes"]
        return self.move()

    def move(self):
        """Keeps an export, or imports one that was kept."""
        if len(self.exported) < 3 or self.random.random() < 0.3:
            path = self.terminal.path(f"export {len(self.exported)}.json")
            self.exported.append((path, dict(self.model.file)))
            return ["export", path]
        path, settings = self.random.choice(self.exported)
        for key, value in settings.items():
            if key not in ("dialerModeText", "systemwideStyleText", "buttonStyleText"):
                self.model.file[key] = value
        # A prefix of one's own that the file does not have stays, and is in force with its row.
        if settings.get("selectedCountry") == CUSTOM or (
                "customPrefix" in settings and self.model.value("selectedCountry") == CUSTOM):
            self.model.file["selectedPrefix"] = self.model.value("customPrefix")
        for key in settings:
            self.model.words(key)
        return ["import", path]

    def step_on_the_terminal(self):
        before = dict(self.model.file)
        words = self.command()
        result = self.terminal.run(*words)
        changes = before != self.model.file
        self.assertEqual((result.returncode, result.stderr), (0, ""), words)
        self.assertEqual(self.terminal.stored(), self.model.file, (words, before))
        self.assertEqual(self.terminal.heard(), TOLD if changes else [], words)
        self.terminal.check_dialler(self, restarts=changes)

    def step_on_a_pane(self, drive):
        pane = self.random.choice([PREFIX, DIAL, SYSTEMWIDE, BUTTONS])
        drive.do("push", pane=pane)
        self.model.enters(pane)
        self.assertEqual(drive.settings(), self.model.file, pane)
        if pane == PREFIX:
            self.tap_a_prefix(drive)
        elif pane == BUTTONS:
            row, number = self.random.choice(list(PICKERS)), self.random.randint(1, 4)
            drive.do("press", row=row, button=number)
            self.model.set(PICKERS[row], number)
        else:
            index = self.random.randint(0, 2)
            drive.do("segment", row=1, index=index)
            self.model.set(MODES[pane][0], index)
        drive.do("pop")
        self.assertEqual(drive.settings(), self.model.file, pane)
        events = drive.events("post", "spawn")
        posts = [event for event in events if event.get("name") == CHANGED]
        spawns = [event for event in events if event["event"] == "spawn"]
        self.assertEqual(len(posts), len(spawns), "each write is applied once, by the one first page")

    def tap_a_prefix(self, drive):
        if self.random.random() < 0.3:
            text = self.random.choice(PREFIXES)
            drive.do("type", row=FIELD_ROW, text=text)
            self.model.set("customPrefix", text)
        else:
            row = self.random.choice([*range(1, 35), CUSTOM_ROW, CUSTOM_ROW])
            drive.do("tap", row=row)
            self.model.choose(COUNTRIES[row - 1][0] if row <= len(COUNTRIES) else CUSTOM)

    def test_two_thousand_steps(self):
        with Drive("--root", self.terminal.root, stderr=subprocess.DEVNULL, environment=self.terminal.environment) as drive:
            drive.do("push", pane="QDPreferencesListController")
            drive.events()
            for _ in range(STEPS):
                if self.random.random() < 0.5:
                    self.step_on_the_terminal()
                    self.assertEqual(drive.settings(), self.model.file)
                else:
                    self.step_on_a_pane(drive)
        listed = json.loads(self.terminal.run("list", "--json").stdout)
        self.assertEqual({entry["key"]: entry["value"] for entry in listed if entry["key"] in self.model.file}, self.model.file)


if __name__ == "__main__":
    isolate()
    unittest.main()
