"""A thousand random taps and typings over the prefix pane, against a small model of what must hold."""

import os
import plistlib
import random
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from drive import SETTINGS, Drive  # noqa: E402
from settings_model import SettingsModel  # noqa: E402

CUSTOM = "Custom (enter below)"
COUNTRIES = [
    ("Algeria", "#31#"), ("Argentina", "#31#"), ("Australia", "#31# "), ("Brazil", "#31#"), ("Canada", "*67"),
    ("Colombia", "#31#"), ("Cyprus", "#31#"), ("Czech Republic", "#31#"), ("Dominican Republic", "*67"),
    ("Finland", "#31#"), ("France", "#31#"), ("Germany", "#31#"), ("Greece", "#31#"), ("Iceland", "#31#"),
    ("India", "*31#"), ("Ireland", "141"), ("Israel", "*43"), ("Italy", "#31#"), ("Japan", "184"),
    ("South Korea", "*23#"), ("Malaysia", "*67"), ("Mexico", "#31#"), ("Netherlands", "#31#"),
    ("Pakistan", "*32# "), ("Portugal", "#31#"), ("Puerto Rico", "#31#"), ("Republic of Ireland", "#31#"),
    ("Romania", "#31#"), ("Spain", "#31#"), ("Sweden", "#31#"), ("Taiwan", "#31#"), ("UK ", "141"),
    ("US", "*67"), ("Most other counties", "#31#"),
]
CUSTOM_ROW = 36
FIELD_ROW = 37
TEXTS = ["", " ", "*31#", "#30#", "141", "  *67 ", "ä", "日本", "a\tb", "<&>\"'", "x" * 300, "line\nbreak", "cr\rhere", "\u0001"]


class Model(SettingsModel):
    def __init__(self, stored, first_panes):
        super().__init__(stored, first_panes)
        self.opens()

    def opens(self):
        for key, value in (("selectedCountry", "Most other counties"), ("selectedPrefix", "#31#"), ("customPrefix", "")):
            if key not in self.file:
                self.writes(key, value)
        self.country = self.file["selectedCountry"]
        self.custom = self.file["customPrefix"]

    def taps(self, row):
        name, prefix = COUNTRIES[row - 1] if row <= len(COUNTRIES) else (CUSTOM, self.custom)
        self.country = name
        self.writes("selectedCountry", name)
        self.writes("selectedPrefix", prefix)

    def types(self, text):
        self.custom = text
        if self.country == CUSTOM:
            self.writes("selectedPrefix", text)
        self.writes("customPrefix", text)

    def checked(self):
        names = [name for name, _ in COUNTRIES] + [CUSTOM]
        return [self.country] if self.country in names else []


class PrefixPane(unittest.TestCase):
    def check_rows(self, drive, model):
        rows = drive.rows()
        self.assertEqual([row["title"] for row in rows if row["properties"].get("checked") == 1], model.checked())
        self.assertEqual(rows[FIELD_ROW]["value"], model.custom)
        for index, (name, prefix) in enumerate(COUNTRIES, 1):
            self.assertEqual((rows[index]["title"], rows[index]["properties"]["detailText"]), (name, prefix))
        for row in rows[1:35] + [rows[CUSTOM_ROW]]:
            view = drive.do("views", row=row["index"])["view"]
            self.assertEqual(view["accessory"] == "checkmark", row["title"] in model.checked(), row["title"])

    def play(self, seed, stored, first_panes):
        random_ = random.Random(seed)
        with tempfile.TemporaryDirectory() as root, Drive("--root", root) as drive:
            if stored:
                path = root + SETTINGS
                os.makedirs(os.path.dirname(path))
                with open(path, "wb") as file:
                    plistlib.dump(stored, file)
            for _ in range(first_panes):
                drive.do("push", pane="QDPreferencesListController")
            drive.do("push", pane="QDCountryPrefixController")
            model = Model(stored, first_panes)
            model.check(self, drive)
            for step in range(1000):
                choice = random_.random()
                if choice < 0.55:
                    row = random_.randint(1, 34)
                    drive.do("tap", row=row)
                    model.taps(row)
                elif choice < 0.7:
                    drive.do("tap", row=CUSTOM_ROW)
                    model.taps(CUSTOM_ROW)
                elif choice < 0.9:
                    text = random_.choice(TEXTS)
                    drive.do("type", row=FIELD_ROW, text=text)
                    model.types(text)
                elif choice < 0.95:
                    # The headers and the field take no tap.
                    drive.do("tap", row=random_.choice([0, 35, FIELD_ROW]))
                else:
                    drive.do("pop")
                    model.first_page_appears()
                    drive.do("push", pane="QDCountryPrefixController")
                    model.opens()
                model.check(self, drive)
                if step % 50 == 0:
                    self.check_rows(drive, model)
            self.check_rows(drive, model)

    def test_a_thousand_random_steps_without_a_first_page(self):
        self.play(seed=1, stored={}, first_panes=0)

    def test_a_thousand_random_steps_from_a_file_with_other_keys_and_an_unknown_country(self):
        stored = {"selectedCountry": "UK", "customPrefix": "*99", "other": [1, 2.5, True, {"a": "b"}]}
        self.play(seed=3, stored=stored, first_panes=1)

    def test_a_thousand_random_steps_over_two_first_pages(self):
        self.play(seed=2, stored={}, first_panes=2)


if __name__ == "__main__":
    unittest.main()
