"""The credits: where their rows lead, and that every library that is used is named."""

import glob
import os
import plistlib
import re
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from drive import Drive, program  # noqa: E402

TOP = os.path.join(os.path.dirname(__file__), "..", "..")
BUNDLE = os.path.join(TOP, "resources", "quietDialPreferences.bundle")
PROFILE = "twitter://user?screen_name=Tallowbyte"
# Only needed to build.
BUILD_TOOLS = {"cmake", "g++", "ninja-build", "pkg-config"}


def credits():
    with open(os.path.join(BUNDLE, "QDSoftwareCreditsPreferences.plist"), "rb") as file:
        return plistlib.load(file)["items"]


class Credits(unittest.TestCase):
    def tap(self, action, *arguments):
        with Drive(*arguments) as drive:
            drive.do("push", pane="QDCreditsListController")
            drive.events()
            row = next(row for row in drive.rows() if row["action"] == action)
            drive.do("tap", row=row["index"])
            return drive.events()

    def test_following_opens_the_application_where_there_is_one_else_the_web_form(self):
        self.assertEqual(self.tap("followOnTwitter", "--can-open", "twitter"),
                         [{"event": "can-open", "url": PROFILE, "answer": True}, {"event": "open", "url": PROFILE}])
        self.assertEqual(self.tap("followOnTwitter", "--can-open", "http"),
                         [{"event": "can-open", "url": PROFILE, "answer": False},
                          {"event": "open", "url": "https://twitter.example/intent/user?screen_name=Tallowbyte"}])

    def test_donating_and_visiting_open_their_pages(self):
        (donation,), (visit,) = self.tap("donate"), self.tap("visitTallowbyte")
        self.assertRegex(donation["url"],
                         r"^https://[a-z.]+\.example/cgi-bin/webscr\?cmd=_s-xclick&hosted_button_id=[A-Z0-9]+$")
        self.assertRegex(visit["url"], r"^http://[a-z.]+\.example$")

    def test_the_header_shows_logo_and_heads_from_the_bundle(self):
        with Drive() as drive:
            drive.do("push", pane="QDCreditsListController")
            row = next(row for row in drive.rows() if row["id"] == "QDTallowbyte")
            folder = "/Library/PreferenceBundles/quietDialPreferences.bundle/"
            self.assertEqual({key: row["properties"][key] for key in ("logo", "head1", "head2")},
                             {"logo": folder + "tallowbyte-logo.png", "head1": folder + "avatar-orlan.png",
                              "head2": folder + "avatar-tavish.png"})
            view = drive.do("views", row=row["index"])["view"]
            images = [child["image"]["file"] for child in view["children"][0]["children"]
                      if child["class"] == "UIImageView" and child["image"]]
            self.assertEqual(images, ["tallowbyte-logo.png", "avatar-orlan.png", "avatar-tavish.png"])
            self.assertEqual(view["separatorInset"], [0, 0, 0, 0])

    def test_the_first_row_of_each_section_alone_has_a_full_separator(self):
        with Drive() as drive:
            drive.do("push", pane="QDCreditsListController")
            seen = set()
            for row in drive.rows():
                if row["row"] < 0:
                    continue
                view = drive.do("views", row=row["index"])["view"]
                full = (view.get("separatorInset"), view.get("layoutMargins"),
                        view.get("preservesSuperviewLayoutMargins")) == ([0, 0, 0, 0], [0, 0, 0, 0], False)
                self.assertEqual(full, row["row"] == 0, row["title"])
                self.assertTrue(full or "separatorInset" not in view)
                seen.add((min(row["section"], 1), row["row"] == 0))
            self.assertEqual(seen, {(0, True), (1, True), (1, False)})

    def test_the_credits_lead_to_the_software_credits_as_their_resource_has_them(self):
        with Drive() as drive:
            drive.do("push", pane="QDCreditsListController")
            row = next(row for row in drive.rows() if row["detail"] == "QDSoftwareCreditsController")
            self.assertEqual(drive.do("tap", row=row["index"])["pane"], "QDSoftwareCreditsController")
            self.assertEqual([row["title"] for row in drive.rows()], [item["label"] for item in credits()])

    def test_every_package_that_the_programs_need_is_credited(self):
        named = {package for item in credits() for package in item.get("packages", [])}
        with open(os.path.join(TOP, "packages.txt"), encoding="utf-8") as file:
            needed = set(re.findall(r"^run\s+(\S+)", file.read(), re.MULTILINE)) - BUILD_TOOLS
        self.assertEqual(needed - named, set())
        self.assertLessEqual(named - needed, {"libc6-dev", "g++"}, "credited and not used")

    def test_every_library_that_is_linked_is_credited_with_its_licence(self):
        beginnings = tuple(name for item in credits() for name in item.get("libraries", []))
        build = os.path.dirname(os.path.dirname(program()))
        files = [*glob.glob(build + "/bin/quietdial*"), *glob.glob(build + "/lib/quietdial/*.so*"),
                 os.environ["QUIETDIAL_MODULE"]]
        linked = set()
        for file in files:
            linked |= set(re.findall(r"\(NEEDED\).*\[(.*)\]",
                                     subprocess.run(["readelf", "-d", file], check=True, capture_output=True,
                                                    text=True).stdout))
        self.assertTrue(any(name.startswith("libsystemd") for name in linked), linked)
        foreign = {name for name in linked if not name.startswith("libquietdial")
                   and not re.match(r"lib[at]san|libubsan|libclang_rt|ld-linux", name)}
        self.assertEqual({name for name in foreign if not name.startswith(beginnings)}, set())
        unused = {name for name in beginnings if not any(library.startswith(name) for library in linked)}
        unused -= {"libprotobuf"}  # behind libphonenumber; an optimised build leaves no call of its own
        if not os.path.exists(build + "/bin/quietdial-settings"):
            unused -= {"libQt6", "libfontconfig"}  # built without the window
        self.assertEqual(unused, set(), "credited and not linked")
        for item in credits():
            if item["cell"] != "PSGroupCell":
                licence, holder = item["detailText"].split("\n")
                self.assertRegex(licence, "License|^Public Domain$")
                self.assertRegex(holder, "^© [0-9]{4}–[0-9]{4} ")


if __name__ == "__main__":
    unittest.main()
