"""The documents show what is there: files as they stand, and sizes that are about right."""

import os
import pathlib
import re
import unittest

SOURCES = pathlib.Path(os.environ["QUIETDIAL_SOURCES"])
PANES = ("animated", "bundle", "core", "extras", "prefix", "root", "styles")


def lines_in(*folders):
    return sum(len(path.read_text().splitlines())
               for folder in folders for path in (SOURCES / folder).rglob("*") if path.suffix in (".h", ".cc"))


def number(text):
    return int(text.replace(",", ""))


class WritingAPane(unittest.TestCase):
    PAGE = SOURCES / "docs/writing-a-pane.md"

    def test_it_shows_every_file_of_the_example_as_it_is(self):
        shown = re.findall(r"^\[[^\]]+\]\((\S+)\)\n\n```\w+\n(.*?)^```$", self.PAGE.read_text(), re.M | re.S)
        files = [path.name for path in (SOURCES / "examples/emergency").iterdir()]
        self.assertEqual(sorted(path for path, _ in shown), sorted(f"../examples/emergency/{name}" for name in files))
        for path, text in shown:
            with self.subTest(path):
                self.assertEqual(text, (self.PAGE.parent / path).read_text())

    def test_its_line_for_the_project_is_there(self):
        (line,) = re.findall(r"adds the folder:\n\n```cmake\n(.*?)```", self.PAGE.read_text(), re.S)
        self.assertIn(line, (SOURCES / "CMakeLists.txt").read_text())


class Platform(unittest.TestCase):
    PAGE = SOURCES / "docs/platform.md"

    def assert_about(self, said, counted, what):
        self.assertLess(abs(said - counted), max(0.1 * counted, 30), f"{what}: {counted} lines, and not {said}")

    def test_it_names_each_framework_with_about_its_size(self):
        rows = re.findall(r"^\| `(\w+)/` \| ([\d,]+) \| \w", self.PAGE.read_text(), re.M)
        self.assertEqual([name for name, _ in rows],
                         sorted(path.name for path in (SOURCES / "platform").iterdir() if path.is_dir()))
        for name, said in rows:
            self.assert_about(number(said), lines_in(f"platform/{name}"), name)

    def test_its_sums_are_about_right(self):
        text = self.PAGE.read_text().replace("\n", " ")
        panes, platform = re.search(r"panes are about ([\d,]+) lines .*?`platform/` about ([\d,]+), three times", text).groups()
        self.assert_about(number(panes), lines_in(*PANES), "the panes")
        self.assert_about(number(platform), lines_in("platform"), "platform/")
        self.assertEqual(round(lines_in("platform") / lines_in(*PANES)), 3)
        shares = [lines_in(*folders) / lines_in("platform") for folders in
                  (("platform/uikit", "platform/preferences"), ("platform/imageio",))]
        self.assertTrue(0.38 < shares[0] < 0.5 and 0.17 < shares[1] < 0.23, shares)


if __name__ == "__main__":
    unittest.main()
