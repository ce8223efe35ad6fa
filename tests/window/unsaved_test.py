"""The bar that says which settings could not be saved: on a full disk, a read-only one and a folder that
may not be used; by mouse, keyboard and accessibility bus."""

import errno
import os
import plistlib
import subprocess
import sys
import tempfile
import unittest

import desktop
import program

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from faults import Disk, without_privileges  # noqa: E402

PREFIX = "QDCountryPrefixController"
ROOT = "QDPreferencesListController"
STORED = {"selectedCountry": "Most other counties", "selectedPrefix": "#31#", "customPrefix": "",
          "dialerMode": 0, "dialerModeText": "Swipe"}
PREFIX_NAME, DIAL_TAB_NAME = "Hide Caller ID Prefix", "Dial Tab Style"


def notice(error, *settings):
    return f"Your change could not be saved: {os.strerror(error)}. {', '.join(settings)}"


class Unsaved(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.root = os.path.join(self.folder, "root")
        self.file = os.path.join(self.root, program.SETTINGS_FILE)
        self.disk = Disk(self.folder)

    def start(self, pane, *arguments, command=()):
        os.makedirs(os.path.dirname(self.file), exist_ok=True)
        with open(self.file, "wb") as file:
            plistlib.dump(STORED, file)
        self.application = desktop.Application(self.root, "--pane", pane, *arguments, command=command,
                                               **self.disk.environment)
        self.addCleanup(self.application.close)

    def stored(self):
        with open(self.file, "rb") as file:
            return plistlib.load(file)

    def choose(self, name):
        self.application.press("radio button", name)
        self.application.wait_for_state("radio button", name, "checked")

    def bar(self, error, *settings):
        return self.application.wait_for("notification", notice(error, *settings))

    def bar_place(self, error, *settings):
        return self.application.resting_place("notification", notice(error, *settings))

    def no_bar(self):
        desktop.wait_for(lambda: not self.application.find("notification", ""), "the bar to go")

    def on(self, role, name):
        self.application.wait_for_state(role, name, "focused")

    def keys(self, *keys):
        desktop.xdotool("key", *keys)

    def click(self, role, name):
        self.application.click(role, name)

    def test_it_stays_until_each_of_the_settings_has_been_written(self):
        self.start(ROOT)
        with self.disk.failing(errno.ENOSPC):
            self.application.press("push button", "Hide Caller ID Prefix")
            self.choose("UK")
            self.bar(errno.ENOSPC, PREFIX_NAME)
            self.application.press("push button", "Back")
            self.application.press("push button", "Dial Tab Style")
            self.application.press("radio button", "Hold")
            self.bar(errno.ENOSPC, PREFIX_NAME, DIAL_TAB_NAME)
            self.assertEqual(self.stored(), STORED)
        self.application.press("radio button", "Show always")
        self.bar(errno.ENOSPC, PREFIX_NAME)
        self.application.press("push button", "Back")
        self.application.press("push button", "Hide Caller ID Prefix")
        self.choose("Canada")
        self.no_bar()
        self.assertEqual(self.stored(), {**STORED, "selectedCountry": "Canada", "selectedPrefix": "*67",
                                         "dialerMode": 2, "dialerModeText": "Show always"})

    def test_the_screen_reader_is_told(self):
        import pyatspi
        self.start(PREFIX)
        self.application.wait_for("radio button", "UK")
        heard = []

        def listen(event):
            if event.source.getRoleName() == "notification":
                heard.append((event.source.name, event.detail1))
        pyatspi.Registry.registerEventListener(listen, "object:state-changed:showing")
        self.addCleanup(pyatspi.Registry.deregisterEventListener, listen, "object:state-changed:showing")

        def hears(*said):
            from gi.repository import GLib

            def ask():
                while GLib.MainContext.default().iteration(False):
                    pass
                return heard == list(said)
            desktop.wait_for(ask, f"{said} instead of {heard}")
        full, read_only = notice(errno.ENOSPC, PREFIX_NAME), notice(errno.EROFS, PREFIX_NAME)
        with self.disk.failing(errno.ENOSPC):
            self.choose("UK")
            hears((full, 1))
        with self.disk.failing(errno.EROFS):
            self.choose("Canada")
            hears((full, 1), (read_only, 1))
        self.application.press("push button", "Close")
        hears((full, 1), (read_only, 1), ("", 0))

    def test_it_is_closed_with_the_mouse_and_comes_back_with_the_next_failure(self):
        self.start(PREFIX)
        with self.disk.failing(errno.EROFS):
            self.choose("UK")
            self.bar(errno.EROFS, PREFIX_NAME)
            # A click on the words does nothing.
            self.click("notification", "Your change")
            self.click("push button", "Close")
            self.no_bar()
            self.choose("Canada")
            self.bar(errno.EROFS, PREFIX_NAME)
            self.click("push button", "Close")
            self.no_bar()
        self.assertEqual(self.stored(), STORED)

    def test_it_is_reached_and_closed_by_keyboard(self):
        self.start(PREFIX)
        self.application.wait_for_state("list", "Settings", "focused")
        for key, country, way in (("Return", "Algeria", ["Home"]), ("Escape", "Argentina", ["Home", "Down"])):
            with self.subTest(key), self.disk.failing(errno.ENOSPC):
                self.keys(*way)
                self.on("radio button", country)
                self.keys("Return")
                self.bar(errno.ENOSPC, PREFIX_NAME)
                for role, name in (("text", "Enter your custom prefix here"), ("push button", "Back"),
                                   ("push button", "Close"), ("text", "Enter your custom prefix here")):
                    self.keys("Tab")
                    self.on(role, name)
                self.keys("shift+Tab")
                self.on("push button", "Close")
                self.keys(key)
                self.no_bar()
                # The keyboard is on the page again, which is still there.
                self.keys("Home")
                self.on("radio button", "Algeria")

    def test_it_covers_nothing_of_the_page(self):
        self.start(PREFIX)
        whole = self.application.resting_place("list", "Settings")
        with self.disk.failing(errno.ENOSPC):
            self.choose("UK")
            _, top, _, height = self.bar_place(errno.ENOSPC, PREFIX_NAME)
        page = self.application.resting_place("list", "Settings")
        self.assertEqual(page[1] + page[3], top)
        self.assertEqual(top + height, whole[1] + whole[3])
        self.application.press("push button", "Close")
        desktop.wait_for(
            lambda: self.application.place(self.application.wait_for("list", "Settings")) == whole,
            "the page to be as high as before")

    def test_in_a_low_window_the_page_has_as_much_room(self):
        self.start(PREFIX, "--size", "200x200", "--text-size", "xxxl")
        with self.disk.failing(errno.ENOSPC):
            self.choose("Algeria")
            _, top, _, height = self.bar_place(errno.ENOSPC, PREFIX_NAME)
        self.assertEqual(height, 100)
        self.assertEqual(self.application.place(self.application.top()[0])[1], top - 100)

    def test_under_a_sheet_it_waits(self):
        self.start(ROOT)
        with self.disk.failing(errno.ENOSPC):
            self.application.press("push button", "Hide Caller ID Prefix")
            self.choose("UK")
        self.application.press("push button", "Back")
        self.application.press("push button", "Share")
        self.application.wait_for("dialog", "Twitter")
        self.assertNotIn("enabled", self.application.states(
            self.application.wait_for("push button", "Close")))
        self.application.press("push button", "Cancel")
        self.application.press("push button", "Close")
        self.no_bar()

    def mount(self, *options):
        result = subprocess.run(["mount", "-t", "tmpfs", "-o", ",".join(options), "tmpfs", self.root],
                                capture_output=True, text=True, check=False)
        if result.returncode != 0:
            self.skipTest("this machine allows no mounts: " + result.stderr)

    def test_a_disk_that_is_really_full_and_one_that_is_really_read_only(self):
        os.makedirs(self.root)
        self.mount("size=256k")
        self.addCleanup(subprocess.run, ["umount", self.root], check=True)
        self.start(PREFIX)
        self.application.wait_for("radio button", "UK")
        ballast = os.path.join(self.root, "ballast")
        with open(ballast, "wb", buffering=0) as file, self.assertRaises(OSError):
            while True:
                file.write(b"x" * 4096)
        self.choose("UK")
        self.bar(errno.ENOSPC, PREFIX_NAME)
        self.assertEqual(self.stored(), STORED)
        os.unlink(ballast)
        subprocess.run(["mount", "-o", "remount,ro", self.root], check=True)
        self.choose("Canada")
        self.bar(errno.EROFS, PREFIX_NAME)
        subprocess.run(["mount", "-o", "remount,rw", self.root], check=True)
        self.choose("UK")
        self.no_bar()
        self.assertEqual(self.stored()["selectedPrefix"], "141")
        self.application.close()

    def test_a_folder_that_may_not_be_used(self):
        folder = os.path.dirname(self.file)
        self.start(PREFIX, command=without_privileges())
        self.application.wait_for("radio button", "UK")
        os.chmod(folder, 0)
        self.addCleanup(os.chmod, folder, 0o700)
        self.choose("UK")
        self.bar(errno.EACCES, PREFIX_NAME)
        os.chmod(folder, 0o700)
        self.choose("Canada")
        self.no_bar()

    def test_a_page_whose_defaults_cannot_be_stored_says_so_in_a_picture_and_at_the_end(self):
        with open(self.root, "w", encoding="ascii"):
            pass  # a file where the folder should be
        picture = os.path.join(self.folder, "picture.png")
        result = program.run("--root", self.root, "--pane", PREFIX, "--screenshot", picture)
        self.assertEqual(result.returncode, 0)
        self.assertEqual(result.stderr, "quietdial-settings: Your change could not be saved: "
                         f"{os.strerror(errno.ENOTDIR)} ({PREFIX_NAME})\n")
        good = os.path.join(self.folder, "good.png")
        program.run("--root", os.path.join(self.folder, "device"), "--pane", PREFIX, "--screenshot", good)
        with open(picture, "rb") as one, open(good, "rb") as other:
            self.assertNotEqual(one.read(), other.read())


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
