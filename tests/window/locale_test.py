"""In a locale with a decimal comma, numbers in files stay what they are."""

import os
import plistlib
import subprocess
import tempfile
import unittest

import program


class CommaLocale(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = os.path.join(folder.name, "root")
        self.picture = os.path.join(folder.name, "picture.png")
        # Compiled for the occasion, since machines differ in which locales they have.
        subprocess.run(["localedef", "-i", "de_DE", "-f", "UTF-8",
                        os.path.join(folder.name, "de_DE.UTF-8")], check=True)
        self.german = {"LOCPATH": folder.name, "LC_ALL": "de_DE.UTF-8"}
        point = subprocess.run(["locale", "decimal_point"], env=dict(os.environ, **self.german),
                               capture_output=True, text=True, check=True).stdout
        self.assertEqual(point, ",\n")

    def test_a_half_is_read_and_written_as_a_half(self):
        path = os.path.join(self.root, program.SETTINGS_FILE)
        os.makedirs(os.path.dirname(path))
        stored = {"half": 0.5, "others": [1e-9, -123456.75, 1e300]}
        with open(path, "wb") as file:
            plistlib.dump(stored, file)
        # The page has its defaults written, and with them everything that was read.
        result = program.run("--root", self.root, "--pane", "QDCountryPrefixController",
                             "--screenshot", self.picture, "--scale", "1.5", "--size", "320x400",
                             **self.german)
        self.assertEqual(result.returncode, 0, result.stderr)
        with open(path, "rb") as file:
            settings = plistlib.load(file)
        self.assertEqual(settings.pop("selectedPrefix"), "#31#")
        self.assertEqual({key: settings[key] for key in stored}, stored)


if __name__ == "__main__":
    unittest.main()
