"""What a change in the window leads to outside of it: the dialler's processes restart and read the
new settings, and other programs hear of it."""

import os
import plistlib
import queue
import re
import subprocess
import tempfile
import time
import unittest

import desktop
import lines
import program
import standins

CHANGED = "me.orlanvey.quietDial/PreferencesChanged"
APPLIED = "me.orlanvey.quietdial/prefsChanged"
NOTIFICATION = ["--object-path", "/me/orlanvey/quietdial/Notifications",
                "--signal", "me.orlanvey.quietdial.Notifications.Posted"]
NAME = re.compile(r'   string "(me\.orlanvey\..*|end)"')


class Monitor(lines.Program):
    """A process that prints what is posted on the bus."""

    def __init__(self, **environment):
        super().__init__("dbus-monitor", "--session",
                         "type='signal',interface='me.orlanvey.quietdial.Notifications'", **environment)
        self.next_match(re.compile(".*member=NameLost"))

    def names(self, count):
        return [self.next_match(NAME)[1] for _ in range(count)]


class Bus:
    """A session bus that can die and come back; the accessibility bus is another one."""

    def __init__(self, folder):
        self.address = "unix:path=" + os.path.join(folder, "bus")
        self._daemon = None
        self.start()

    def start(self):
        self._daemon = lines.Program("dbus-daemon", "--session", "--nofork", "--nopidfile", "--nosyslog",
                                     "--address=" + self.address, "--print-address")
        self._daemon.next()

    def stop(self):
        self._daemon.process.kill()
        self._daemon.close()
        os.unlink(self.address.removeprefix("unix:path="))


def post(name, **environment):
    subprocess.run(["gdbus", "emit", "--session", *NOTIFICATION, name],
                   env=dict(os.environ, **environment), check=True)


class Effects(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.root = os.path.join(folder.name, "root")

    def store(self, **settings):
        path = os.path.join(self.root, program.SETTINGS_FILE)
        os.makedirs(os.path.dirname(path))
        with open(path, "wb") as file:
            plistlib.dump(settings, file)

    def start_dialler(self):
        dialler = standins.Dialler(os.environ["QUIETDIAL_RESTARTER"], "--root", self.root)
        self.addCleanup(dialler.close)
        return dialler

    def start_monitor(self, **environment):
        monitor = Monitor(**environment)
        self.addCleanup(monitor.close)
        return monitor

    def open_prefixes(self, *arguments, **environment):
        """The application on the prefix page, with all settings in the file."""
        self.store(selectedCountry="Most other counties", selectedPrefix="#31#", customPrefix="")
        application = desktop.Application(self.root, *arguments, **environment)
        self.addCleanup(application.close)
        for name in ("QuietDial", "Hide Caller ID Prefix"):
            application.press("push button", name)
        application.wait_for("radio button", "UK")
        return application

    def choose(self, application, name):
        application.press("radio button", name)

    def test_one_tap_restarts_the_dialler_which_reads_the_new_prefix(self):
        application = self.open_prefixes()
        dialler = self.start_dialler()
        before = dialler.pids_with("#31#")
        monitor = self.start_monitor()

        self.choose(application, "UK")

        after = dialler.pids_with("141")
        for name, pid in before.items():
            self.assertNotEqual(after[name], pid)
        self.assertEqual(monitor.names(4), [CHANGED, CHANGED, APPLIED, APPLIED])
        post("end")
        self.assertEqual(monitor.names(1), ["end"])
        self.assertNotIn("Z", standins.children_of(application.process.pid).values())

    def test_a_post_of_another_program_restarts_the_dialler(self):
        self.open_prefixes()
        monitor = self.start_monitor()
        dialler = self.start_dialler()
        before = dialler.pids_with("#31#")
        post(CHANGED)
        after = dialler.pids_with("#31#")
        for name, pid in before.items():
            self.assertNotEqual(after[name], pid)
        self.assertEqual(monitor.names(2), [CHANGED, APPLIED])

    def test_a_flood_of_posts_restarts_the_dialler_at_most_five_times_a_second(self):
        application = self.open_prefixes()
        applied = desktop.Posts(APPLIED)
        begin = time.monotonic()
        applied.flood(CHANGED, 3000)
        applied.wait_for(1)
        # The last of the posts comes into force, too: nothing else makes a second restart.
        applied.wait_for(2)
        self.choose(application, "UK")
        application.wait_for_state("radio button", "UK", "checked")
        own, heard = 2, applied.count()
        self.assertLessEqual(heard, 2 + 5 * (time.monotonic() - begin) + own)

    def click_row(self, row, country):
        """Clicks that row of the page until that country is chosen. By its place: without the
        session bus there is no accessibility bus."""
        def chosen():
            desktop.xdotool("mousemove", 187, 112 + 44 * row, "click", 1)
            with open(os.path.join(self.root, program.SETTINGS_FILE), "rb") as file:
                return plistlib.load(file)["selectedCountry"] == country
        desktop.wait_for(chosen, country + " to be chosen")

    def test_a_bus_that_dies_and_comes_back_is_joined_again(self):
        self.store(selectedCountry="Most other counties", selectedPrefix="1", customPrefix="")
        dialler = self.start_dialler()
        dialler.pids_with("1")
        bus = Bus(self.folder)
        self.addCleanup(bus.stop)
        own = {"DBUS_SESSION_BUS_ADDRESS": bus.address}
        window = subprocess.Popen([*program.COMMAND, "--root", self.root, "--pane", "QDPreferencesListController"],
                                  env=dict(os.environ, **own))
        self.addCleanup(window.wait)
        self.addCleanup(window.terminate)
        # The first row leads to the prefixes.
        self.click_row(0, "Algeria")
        dialler.pids_with("#31#")

        bus.stop()
        self.click_row(4, "Canada")
        dialler.pids_with("*67")

        bus.start()
        monitor = self.start_monitor(**own)

        # Nothing tells when it has joined, so posts go on until one is heard.
        def answers():
            post(CHANGED, **own)
            try:
                return monitor.next_match(re.compile(".*" + APPLIED), patience=0.3)
            except queue.Empty:
                return None
        desktop.wait_for(answers, "the window to hear of a post again")

    def test_without_effects_a_change_is_only_stored(self):
        application = self.open_prefixes("--effects", "none")
        dialler = self.start_dialler()
        before = dialler.pids_with("#31#")
        monitor = self.start_monitor()
        self.choose(application, "UK")
        application.wait_for_state("radio button", "UK", "checked")
        post("end")
        self.assertEqual(monitor.names(1), ["end"])
        for pid in before.values():
            os.kill(pid, 0)

    def test_a_picture_has_no_effects(self):
        monitor = self.start_monitor()
        dialler = self.start_dialler()
        before = dialler.pids_with("none")
        picture = program.run("--root", self.root, "--screenshot", os.path.join(self.folder, "p.png"),
                              "--pane", "QDCountryPrefixController")
        self.assertEqual(picture.returncode, 0)
        self.assertEqual(program.tour("--root", self.root, os.path.join(self.folder, "tour")).returncode, 0)
        post("end")
        self.assertEqual(monitor.names(1), ["end"])
        for pid in before.values():
            os.kill(pid, 0)


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
