"""What is seen: sizes and colours at places that the look fixes, in pictures taken off screen."""

import os
import plistlib
import re
import shutil
import subprocess
import tempfile
import unittest

import program
from picture import Picture

PAGE = (239, 239, 244)
WHITE = (255, 255, 255)
RED = (255, 0, 0)
TINT = (0, 122, 255)
BLACK = (0, 0, 0)
DARK_ROW = (28, 28, 30)
DARK_TINT = (10, 132, 255)
SEPARATOR = (200, 199, 204)
BAR_LINE = (196, 196, 196)


class Pictures(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def take(self, *arguments):
        file = os.path.join(self.folder, "picture.png")
        result = program.run("--root", os.path.join(self.folder, "root"), "--screenshot", file,
                             *arguments)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(result.stderr, "")
        return Picture(file)

    def has_text(self, picture, left, top, right, bottom, background=WHITE):
        colors = picture.colors(left, top, right, bottom)
        return sum(count for color, count in colors.items() if color != background) > 20

    def test_a_picture_has_the_size_and_the_scale_asked_for(self):
        for arguments, size in ((["--size", "320x568"], (320, 568)),
                                (["--size", "414x736", "--scale", "2"], (828, 1472)),
                                (["--size", "320x400", "--scale", "1.5"], (480, 600))):
            picture = self.take(*arguments)
            self.assertEqual((picture.width, picture.height), size)

    def test_the_first_page_lists_the_bundle(self):
        picture = self.take("--size", "320x568", "--scale", "2")
        self.assertEqual(picture.at(300, 87), BAR_LINE)
        self.assertEqual(picture.at(300, 100), PAGE)
        first_row = (44 + 35) * 2
        self.assertEqual(picture.at(5, first_row), SEPARATOR)
        self.assertEqual(picture.at(5, first_row + 10), WHITE)
        self.assertTrue(self.has_text(picture, 118, first_row + 10, 300, first_row + 78))
        self.assertTrue(self.has_text(picture, 30, first_row + 16, 88, first_row + 74), "icon")
        self.assertEqual(picture.at(5, first_row + 87), SEPARATOR)
        self.assertEqual(picture.at(5, first_row + 90), PAGE)

    def test_lines_are_one_pixel_high_at_every_scale(self):
        for scale in (1, 2, 3):
            picture = self.take("--size", "320x568", "--scale", str(scale))
            below_bar, row, row_end = 44 * scale, 79 * scale, 123 * scale
            column = [picture.at(300 * scale, y) for y in range(below_bar - 4, row_end + 4)]
            lines = [y + below_bar - 4 for y, color in enumerate(column)
                     if color in (BAR_LINE, SEPARATOR)]
            self.assertEqual(lines, [below_bar - 1, row, row_end - 1], scale)

    def test_the_update_row_stands_red_under_the_first_row(self):
        pane = ["--pane", "QDPreferencesListController", "--size", "320x568", "--scale", "2"]
        second_row = (44 + 35 + 44) * 2
        self.assertEqual(self.take(*pane).at(5, second_row + 40), PAGE)
        for badge, color in (("New update available!", RED), ("3", PAGE), ("", PAGE)):
            picture = self.take(*pane, "--entry-badge", badge)
            self.assertEqual(picture.at(5, second_row + 40), color, badge)
        # The separator above the update row runs from edge to edge.
        picture = self.take(*pane, "--entry-badge", "New update available!")
        self.assertEqual(picture.at(0, second_row - 1), SEPARATOR)
        self.assertEqual(picture.at(639, second_row - 1), SEPARATOR)

    def test_separators_between_rows_begin_where_the_titles_do(self):
        picture = self.take("--pane", "QDCountryPrefixController", "--size", "320x568",
                            "--scale", "2")
        rows = [y for y in range(90, 1136) if picture.at(200, y) == SEPARATOR]
        between = [y for y in rows if picture.at(5, y) == WHITE]
        self.assertGreater(len(between), 8)
        for y in between:
            self.assertEqual(picture.at(29, y), WHITE)
            self.assertEqual(picture.at(30, y), SEPARATOR)
            self.assertEqual(picture.at(639, y), SEPARATOR)
        self.assertEqual({b - a for a, b in zip(between, between[1:])}, {88})

    def test_the_bar_shows_logo_and_heart_in_the_tint(self):
        picture = self.take("--pane", "QDPreferencesListController", "--size", "320x568",
                            "--scale", "2")
        self.assertGreater(picture.colors(200, 10, 440, 80).get(TINT, 0), 100)
        self.assertGreater(picture.colors(560, 10, 640, 80).get(TINT, 0), 30)

    def test_a_check_mark_stands_on_the_chosen_row_alone(self):
        root = os.path.join(self.folder, "root")
        os.makedirs(os.path.dirname(os.path.join(root, program.SETTINGS_FILE)))
        first = second = None
        for country in ("Argentina", "nowhere"):
            with open(os.path.join(root, program.SETTINGS_FILE), "wb") as file:
                plistlib.dump({"selectedCountry": country}, file)
            picture = self.take("--pane", "QDCountryPrefixController", "--size", "320x568",
                                "--scale", "2")
            tinted = picture.colors(570, 100, 640, 1136).get(TINT, 0)
            first, second = (tinted, second) if country == "Argentina" else (first, tinted)
        self.assertGreater(first, 20)
        self.assertEqual(second, 0)

    def test_a_bundle_that_does_not_load_is_a_page_that_says_so(self):
        bundle = os.path.join(self.folder, "Broken.bundle")
        os.mkdir(bundle)
        with open(os.path.join(bundle, "Entry.plist"), "wb") as file:
            plistlib.dump({"label": "Broken", "module": "none", "detail": "Nobody"}, file)
        broken = self.take("--bundle", bundle, "--pane", "Nobody")
        listed = self.take("--bundle", bundle)
        self.assertTrue(self.has_text(broken, 15, 100, 360, 200, PAGE))
        self.assertTrue(self.has_text(listed, 15, 80, 360, 122))

    def test_code_of_a_device_root_is_run_for_a_bundle_of_its_own_alone_and_never_for_root(self):
        root = os.path.join(self.folder, "root")
        installed = os.path.join(root, "Library", "PreferenceBundles", "quietDialPreferences.bundle")
        own = os.path.join(root, "Library", "PreferenceBundles", "Own.bundle")
        for bundle, module in ((installed, "quietDialPreferences"), (own, "own")):
            os.makedirs(bundle, mode=0o755)
            module = os.path.join(bundle, module)
            subprocess.run(["g++", "-x", "c++", "-", "-shared", "-fPIC", "-o", module], text=True, check=True,
                           input="#include <cstdlib>\n__attribute__((constructor)) void end() { std::_Exit(77); }\n")
            os.chmod(module, 0o755)
        with open(os.path.join(own, "Entry.plist"), "wb") as file:
            plistlib.dump({"label": "Own", "module": "own", "detail": "OwnController"}, file)
        for pane, status in (("QDPreferencesListController", 0), ("OwnController", 0 if os.geteuid() == 0 else 77)):
            with self.subTest(pane):
                result = program.run("--root", root, "--pane", pane, "--screenshot",
                                     os.path.join(self.folder, "picture.png"))
                self.assertEqual(result.returncode, status, result.stderr)

    def test_entries_that_cannot_be_used_are_passed_over(self):
        bundles = os.path.join(self.folder, "root", "Library", "PreferenceBundles")
        for name, entry in (("a", b"no property list"), ("b", plistlib.dumps(["list"])),
                            ("c", plistlib.dumps({"label": "C", "module": "../c", "detail": "C"})),
                            ("d", plistlib.dumps({"label": 3, "module": "d", "detail": "D"}))):
            os.makedirs(os.path.join(bundles, name + ".bundle"))
            with open(os.path.join(bundles, name + ".bundle", "Entry.plist"), "wb") as file:
                file.write(entry)
        file = os.path.join(self.folder, "picture.png")
        result = program.run("--root", os.path.join(self.folder, "root"), "--screenshot", file,
                             "--size", "320x568", "--scale", "2")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(len(re.findall("Entry.plist needs", result.stderr)), 2, result.stderr)
        # The installed bundle is still the only row.
        picture = Picture(file)
        self.assertEqual(picture.at(5, (44 + 35 + 22) * 2), WHITE)
        self.assertEqual(picture.at(5, (44 + 35 + 44 + 22) * 2), PAGE)

    def test_the_tour_shows_every_page_whole_in_every_look(self):
        tour = os.path.join(self.folder, "tour")
        result = program.tour(tour, "--size", "320x568")
        self.assertEqual(result.returncode, 0, result.stderr)
        with open(os.path.join(tour, "index.html"), encoding="utf-8") as file:
            index = file.read()
        shown = re.findall(r'<img [^>]*src="([^"]+)"', index)
        self.assertEqual(sorted(shown), sorted(set(os.listdir(tour)) - {"index.html"}))
        looks = {}
        for name in shown:
            _, subject, look = name.removesuffix(".png").split("-", 2)
            looks.setdefault(subject, set()).add(look.removeprefix("bar-"))
        self.assertLessEqual({"SettingsListController", "QDPreferencesListController",
                              "QDCountryPrefixController", "BundleFailureController",
                              "HeldBackController", "QDSupportListController",
                              "QDCreditsListController", "QDSoftwareCreditsController",
                              "sendSupportEmail", "attachment", "alert"}, set(looks))
        every = {f"{width}-{scheme}-{text}" for width in (320, 375, 414)
                 for scheme in ("light", "dark") for text in ("text", "largetext")}
        for subject, found in looks.items():
            self.assertEqual(found, every, subject)
        prefixes = next(name for name in shown
                        if name.endswith("QDCountryPrefixController-320-light-text.png"))
        picture = Picture(os.path.join(tour, prefixes))
        self.assertEqual(picture.width, 320)
        self.assertGreater(picture.height, 44 * 38)
        self.assertTrue(self.has_text(picture, 15, picture.height - 60, 300, picture.height - 20)
                        or self.has_text(picture, 15, picture.height - 100, 300,
                                         picture.height - 40))

    def test_the_tour_shows_what_stands_above_the_pages(self):
        tour = os.path.join(self.folder, "tour")
        # The web engine talks of itself on standard error.
        result = program.tour(tour, "--size", "320x568", "--no-web-engine")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        pictures = {name.split("-", 1)[1]: Picture(os.path.join(tour, name))
                    for name in os.listdir(tour) if name.endswith("320-light-text.png")}
        look = "-320-light-text.png"
        self.assertEqual(pictures["QDSupportListController" + look].at(310, 500), PAGE)
        # The mail and its attachment cover the page; the alert and the share sheet dim it.
        for name in ("sendSupportEmail", "attachment"):
            self.assertEqual(pictures[name + look].at(310, 500), WHITE, name)
            self.assertTrue(self.has_text(pictures[name + look], 15, 50, 300, 300), name)
        for name in ("alert", "QDPreferencesListController-bar"):
            self.assertLess(max(pictures[name + look].at(2, 300)), 200, name)
        # With an attachment open, the mail's own button is not there.
        self.assertTrue(self.has_text(pictures["sendSupportEmail" + look], 260, 5, 315, 40,
                                      (248, 248, 248)))
        self.assertFalse(self.has_text(pictures["attachment" + look], 260, 5, 315, 40,
                                       (248, 248, 248)))

    def test_in_the_dark_the_systems_colours_change_and_a_panes_own_stay(self):
        pane = ["--pane", "QDPreferencesListController", "--size", "320x568", "--scale", "2",
                "--entry-badge", "New update available!"]
        first_row, second_row = (44 + 35) * 2, (44 + 35 + 44) * 2
        for scheme, page, row in (("light", PAGE, WHITE), ("dark", BLACK, DARK_ROW)):
            picture = self.take(*pane, "--appearance", scheme)
            self.assertEqual(picture.at(5, first_row - 10), page)
            self.assertEqual(picture.at(5, first_row + 10), row)
            self.assertEqual(picture.at(5, second_row + 10), RED)
            # Icon and title of the update row are white in both.
            self.assertGreater(picture.colors(30, second_row, 400, second_row + 88)[WHITE], 100)
        self.assertGreater(picture.colors(200, 10, 440, 80).get(DARK_TINT, 0), 100)

    def test_from_right_to_left_everything_stands_the_other_way_round_and_codes_do_not(self):
        pane = ["--pane", "QDCountryPrefixController", "--size", "320x568", "--scale", "2"]
        ltr = self.take(*pane, "--direction", "ltr")
        rtl = self.take(*pane, "--direction", "rtl")

        def ink(picture, left, right):
            """The inked places of Canada's row between two columns."""
            top = (44 + 35 + 16 + 7 + 44 * 4 + 8) * 2
            return [(x, y) for x in range(left, right) for y in range(top, top + 56)
                    if picture.at(x, y) != WHITE]

        def begins_with_the_star(code):
            """Whether the ink of the left end lies higher than that of the right end."""
            left, right = min(code)[0], max(code)[0]
            return max(y for x, y in code if x < left + 8) + 8 < \
                max(y for x, y in code if x > right - 18)

        for picture, code, title in ((ltr, (400, 640), (0, 300)), (rtl, (0, 240), (340, 640))):
            self.assertTrue(begins_with_the_star(ink(picture, *code)))
            self.assertTrue(ink(picture, *title))
        self.assertAlmostEqual(640 - max(ink(ltr, 400, 640))[0], min(ink(rtl, 0, 240))[0], delta=6)
        self.assertAlmostEqual(min(ink(ltr, 0, 300))[0], 640 - max(ink(rtl, 340, 640))[0], delta=6)

    def test_larger_text_makes_higher_rows(self):
        def rows(size):
            picture = self.take("--pane", "QDCountryPrefixController", "--size", "320x568",
                                "--text-size", size)
            lines = [y for y in range(60, 568) if picture.at(200, y) == SEPARATOR]
            # The line above the first row is not the one below it.
            return {b - a for a, b in zip(lines[1:], lines[2:])}
        self.assertEqual(rows("l"), {44})
        self.assertEqual(rows("xs"), {44})
        self.assertGreater(min(rows("ax1")), 44)

    def test_a_tour_without_a_root_leaves_the_users_settings_alone(self):
        home = os.path.join(self.folder, "home")
        os.mkdir(home)
        result = program.tour(os.path.join(self.folder, "tour"), HOME=home,
                             XDG_DATA_HOME=os.path.join(home, "data"))
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertFalse(os.path.exists(os.path.join(home, "data", "quietdial")))

    def tearDown(self):
        shutil.rmtree(os.path.join(self.folder, "root"), ignore_errors=True)


if __name__ == "__main__":
    unittest.main()
