"""A page that takes the program down is not opened by itself at the next start."""

import os
import plistlib
import subprocess
import tempfile
import unittest

import desktop
import program

# Ends the program while the module is opened, unless there is a file "mended" beside it.
CRASHING = r"""
#include <cstdlib>
#include <string>
#include <unistd.h>
#include <dlfcn.h>
__attribute__((constructor)) static void crash() {
  Dl_info info;
  dladdr(reinterpret_cast<void*>(&crash), &info);
  if (access((std::string(info.dli_fname) + ".mended").c_str(), F_OK) != 0) std::abort();
}
"""


class Opening(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = os.path.join(folder.name, "root")
        self.bundle = os.path.join(folder.name, "Crashing.bundle")
        os.mkdir(self.bundle)
        self.module = os.path.join(self.bundle, "crashing")
        subprocess.run(["g++", "-x", "c++", "-", "-shared", "-fPIC", "-o", self.module],
                       input=CRASHING, text=True, check=True)
        with open(os.path.join(self.bundle, "Entry.plist"), "wb") as file:
            plistlib.dump({"label": "Crashing", "module": "crashing", "detail": "CrashController"},
                          file)
        self.arguments = ["--bundle", self.bundle, "--pane", "CrashController"]

    def crash(self):
        result = program.run("--root", self.root, *self.arguments, QT_QPA_PLATFORM="offscreen")
        self.assertEqual(result.returncode, -6, result.stderr)

    def start(self, *arguments):
        application = desktop.Application(self.root, *arguments)
        self.addCleanup(application.close)
        return application

    def test_a_page_that_crashed_is_held_back_and_can_be_opened_all_the_same(self):
        self.crash()
        application = self.start(*self.arguments)
        application.wait_for("heading", "Page not opened")
        application.wait_for("label", "Settings ended unexpectedly")
        # Held back as long as it was not opened.
        application.close()
        application = self.start(*self.arguments)
        application.wait_for("push button", "Open Anyway")
        with open(self.module + ".mended", "w", encoding="utf-8"):
            pass
        application.press("push button", "Open Anyway")
        application.wait_for("heading", "Settings not available")
        application.close()
        # It came to its end this time, so the next start opens it by itself again.
        self.start(*self.arguments).wait_for("heading", "Settings not available")

    def test_other_pages_open_as_ever(self):
        self.crash()
        application = self.start("--pane", "QDPreferencesListController")
        application.wait_for("push button", "Hide Caller ID Prefix")

    def test_a_page_that_was_shown_leaves_nothing_behind(self):
        application = self.start("--pane", "QDPreferencesListController")
        application.wait_for("push button", "Hide Caller ID Prefix")
        folder = os.path.join(self.root, "User/Library/Caches/Settings/Opening")
        desktop.wait_for(lambda: os.path.isdir(folder) and not os.listdir(folder),
                         "the record of openings to be empty")
        application.process.kill()
        application.process.wait()
        self.assertEqual(os.listdir(folder), [])


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
