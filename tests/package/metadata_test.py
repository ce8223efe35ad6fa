"""What the desktop and software catalogues are told of the project agrees with the project."""

import glob
import os
import re
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ET

SOURCES = os.environ["QUIETDIAL_SOURCES"]
BUILD = os.environ["QUIETDIAL_BUILD"]
APPLICATION = "me.orlanvey.QuietDial"


def read(path):
    with open(os.path.join(SOURCES, path), encoding="utf-8") as file:
        return file.read()


def addresses():
    return dict(line.split("=", 1) for line in read("platform/makers/addresses.conf").splitlines()
                if line and not line.startswith("#"))


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.prefix = folder.name
        subprocess.run(["cmake", "--install", BUILD, "--prefix", cls.prefix], check=True, stdout=subprocess.DEVNULL)

    def path(self, *names):
        return os.path.join(self.prefix, "share", *names)

    def entry(self, name):
        """The values of a desktop entry, which is valid and starts what is installed."""
        path = self.path("applications", name + ".desktop")
        checked = subprocess.run(["desktop-file-validate", path], capture_output=True, text=True, check=False)
        self.assertEqual((checked.returncode, checked.stdout, checked.stderr), (0, "", ""))
        with open(path, encoding="utf-8") as file:
            values = dict(line.rstrip("\n").split("=", 1) for line in file if "=" in line)
        self.assertTrue(os.access(os.path.join(self.prefix, "bin", values["Exec"].split()[0]), os.X_OK))
        return values

    def test_the_desktop_entry_is_valid_and_has_its_icons(self):
        values = self.entry(APPLICATION)
        icons = glob.glob(self.path("icons", "hicolor", "*", "apps", "*.svg"))
        names = {os.path.relpath(icon, self.path("icons", "hicolor")) for icon in icons}
        self.assertEqual(names, {f"scalable/apps/{values['Icon']}.svg", f"symbolic/apps/{values['Icon']}-symbolic.svg"})

    def test_the_dialler_is_started_with_a_link_and_takes_none_by_itself(self):
        values = self.entry(APPLICATION + ".Dialler")
        self.assertEqual(values["Exec"].split()[1:], ["%u"])
        self.assertNotIn("MimeType", values)

    def test_the_catalogue_entry_is_valid_and_leads_to_the_desktop_entry(self):
        entry = self.path("metainfo", APPLICATION + ".metainfo.xml")
        checked = subprocess.run(["appstreamcli", "validate", "--no-net", entry], capture_output=True, text=True,
                                 check=False)
        self.assertEqual(checked.returncode, 0, checked.stdout)
        root = ET.parse(entry).getroot()
        self.assertTrue(os.path.exists(self.path("applications", root.findtext("launchable"))))
        version = re.search(r"project\(QuietDial VERSION (\S+)", read("CMakeLists.txt"))[1]
        self.assertEqual(root.find("releases/release").get("version"), version)
        host = addresses()["website_host"]
        for image in root.iter("image"):
            self.assertTrue(image.text.startswith(f"https://{host}/"))
            self.assertTrue(os.path.exists(os.path.join(SOURCES, "docs", "pictures", os.path.basename(image.text))))


if __name__ == "__main__":
    unittest.main()
