"""What a script is told of settings that could not be written."""

import errno
import os
import plistlib
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from drive import Drive  # noqa: E402
from faults import Disk, without_privileges  # noqa: E402

ROOT = "QDPreferencesListController"
PREFIX = "QDCountryPrefixController"
STYLE = "QDSystemwideStyleSelectionController"
BUTTONS = "QDButtonStyleSelectionController"
CANADA, CUSTOM_TEXT = 5, 3
SETTINGS = "User/Library/Preferences/me.orlanvey.quietDial.plist"


def unsaved(keys, error=None):
    return {"event": "unsaved", "keys": keys, "reason": os.strerror(error) if error else None}


class Unsaved(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = os.path.join(folder.name, "root")
        self.disk = Disk(folder.name)

    def drive(self, **options):
        return Drive("--root", self.root, environment=dict(os.environ, **self.disk.environment), **options)

    def test_a_full_disk_is_told_of_until_each_key_has_been_written(self):
        with self.drive() as drive:
            drive.do("push", pane=PREFIX)
            self.assertEqual(drive.events("unsaved"), [])
            before = drive.settings()
            with self.disk.failing(errno.ENOSPC):
                drive.do("tap", row=CANADA)
                drive.do("push", pane=STYLE)
                drive.do("type", row=CUSTOM_TEXT, text="Sure?")
                events = drive.events()
                self.assertEqual(drive.settings(), before)
            self.assertEqual([event for event in events if event["event"] == "unsaved"], [
                unsaved(["selectedCountry", "selectedPrefix"], errno.ENOSPC),
                unsaved(["selectedCountry", "selectedPrefix", "systemwideStyle", "systemwideStyleText"],
                        errno.ENOSPC),
                unsaved(["selectedCountry", "selectedPrefix", "systemwideStyle", "systemwideStyleText",
                         "customText"], errno.ENOSPC)])
            # What the panes do is the same as ever: a post after each write, and nothing again.
            written = [event.get("ok") for event in events if event["event"] in ("write", "post")]
            self.assertEqual(written, [False, None] * (len(written) // 2))
            drive.do("advance", seconds=3600)
            self.assertEqual(drive.events(), [])
            self.assertEqual(drive.settings(), before)
            drive.do("type", row=CUSTOM_TEXT, text="Really?")
            self.assertEqual(drive.events("unsaved"), [
                unsaved(["selectedCountry", "selectedPrefix", "systemwideStyle", "systemwideStyleText"],
                        errno.ENOSPC)])
            self.assertEqual(drive.settings(), {**before, "customText": "Really?"})
            drive.do("pop")
            drive.do("tap", row=CANADA)
            self.assertEqual(drive.events("unsaved"), [
                unsaved(["systemwideStyle", "systemwideStyleText"], errno.ENOSPC)])
            drive.do("push", pane=STYLE)
            self.assertEqual(drive.events("unsaved"), [unsaved([])])

    def test_the_reason_is_that_of_the_latest(self):
        with self.drive() as drive:
            drive.do("push", pane=PREFIX)
            drive.events()
            with self.disk.failing(errno.ENOSPC):
                drive.do("tap", row=CANADA)
            with self.disk.failing(errno.EROFS):
                drive.do("push", pane=STYLE)
                drive.do("type", row=CUSTOM_TEXT, text="Sure?")
            self.assertEqual(drive.events("unsaved")[-1]["reason"], os.strerror(errno.EROFS))
            drive.do("type", row=CUSTOM_TEXT, text="Sure?")
            drive.do("segment", row=1, index=1)
            self.assertEqual(drive.events("unsaved")[-1],
                             unsaved(["selectedCountry", "selectedPrefix"], errno.ENOSPC))

    def test_a_write_that_would_have_changed_nothing_leaves_nothing_out(self):
        with self.drive() as drive:
            drive.do("push", pane=PREFIX)
            drive.do("tap", row=CANADA)
            drive.events()
            with self.disk.failing(errno.EROFS):
                drive.do("tap", row=CANADA)
            events = drive.events()
            self.assertEqual([event["ok"] for event in events if event["event"] == "write"], [False, False])
            self.assertNotIn("unsaved", [event["event"] for event in events])

    def test_a_folder_that_may_not_be_written(self):
        folder = os.path.dirname(os.path.join(self.root, SETTINGS))
        os.makedirs(folder)
        with open(os.path.join(self.root, SETTINGS), "wb") as file:
            plistlib.dump({"selectedCountry": "UK ", "selectedPrefix": "141", "customPrefix": ""}, file)
        os.chmod(folder, 0o500)
        self.addCleanup(os.chmod, folder, 0o700)
        with self.drive(command=without_privileges()) as drive:
            drive.do("push", pane=PREFIX)
            self.assertEqual(drive.events("unsaved"), [])
            drive.do("tap", row=CANADA)
            self.assertEqual(drive.events("unsaved"), [
                unsaved(["selectedCountry", "selectedPrefix"], errno.EACCES)])
            os.chmod(folder, 0o700)
            drive.do("tap", row=CANADA)
            self.assertEqual(drive.events("unsaved"), [unsaved([])])

    def test_a_folder_that_may_not_be_read(self):
        folder = os.path.dirname(os.path.join(self.root, SETTINGS))
        os.makedirs(folder)
        with open(os.path.join(self.root, SETTINGS), "wb") as file:
            plistlib.dump({"dialButtonStyle": 3, "systemwideButtonStyle": 4}, file)
        os.chmod(folder, 0)
        self.addCleanup(os.chmod, folder, 0o700)
        with self.drive(command=without_privileges()) as drive:
            drive.do("push", pane=BUTTONS)
            self.assertEqual(drive.events("unsaved"), [
                unsaved(["dialButtonStyle", "systemwideButtonStyle", "buttonStyleText"], errno.EACCES)])
            os.chmod(folder, 0o700)
            # The keys are readable again, which is not to say that they have been written.
            drive.do("press", row=1, button=2)
            self.assertEqual(drive.events("unsaved"), [unsaved(["systemwideButtonStyle"], errno.EACCES)])
            drive.do("press", row=3, button=1)
            self.assertEqual(drive.events("unsaved"), [unsaved([])])


if __name__ == "__main__":
    unittest.main()
