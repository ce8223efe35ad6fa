"""What runs beside the window ends with it, however that comes about."""

import os
import signal
import tempfile
import unittest

import desktop
import program
import standins


class Start(unittest.TestCase):
    WINDOW = "quietdial-setti"  # the kernel keeps 15 characters
    # The script, the window, the restarter and the dialler's two processes, and three that show what the
    # window says.
    ALL = 8

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = os.path.join(folder.name, "root")

    def start(self, processes, **environment):
        """The started script once that many processes run, and their identifiers."""
        script = standins.Dialler(os.environ["QUIETDIAL_START"], os.path.dirname(program.PROGRAM), *program.ALLOW_ROOT,
                                  "--root", self.root, new_session=True, **environment)
        self.addCleanup(script.close)
        script.pids_with("none")

        def whole():
            family = standins.family(script.process.pid)
            names = {standins.name_of(pid) for pid in family}
            return family if len(family) == processes and self.WINDOW in names else None
        return script, desktop.wait_for(whole, "everything to run")

    def window_of(self, family):
        return next(pid for pid in family if standins.name_of(pid) == self.WINDOW)

    def wait_for_end(self, script, family):
        """The status of the script, which has waited for all the others."""
        status = script.process.wait(desktop.PATIENCE)
        self.assertFalse([standins.name_of(pid) for pid in family if standins.is_running(pid)])
        return status

    def test_the_window_is_closed(self):
        script, family = self.start(self.ALL)
        window = self.window_of(family)
        desktop.wait_for(lambda: standins.handles(window, signal.SIGTERM), "the window to be up")
        os.kill(window, signal.SIGTERM)
        self.assertEqual(self.wait_for_end(script, family), 0)

    def test_the_window_crashes(self):
        script, family = self.start(self.ALL)
        os.kill(self.window_of(family), signal.SIGKILL)
        self.assertEqual(self.wait_for_end(script, family), 128 + signal.SIGKILL)

    def test_control_c(self):
        script, family = self.start(self.ALL)
        os.killpg(script.process.pid, signal.SIGINT)
        self.wait_for_end(script, family)

    def test_the_script_is_asked_to_end(self):
        script, family = self.start(self.ALL)
        script.process.terminate()
        self.wait_for_end(script, family)

    def test_the_script_is_killed(self):
        script, family = self.start(self.ALL)
        script.process.kill()
        desktop.wait_for(lambda: not any(map(standins.is_running, family)), "all to end")

    def test_without_a_session_bus_it_has_one_of_its_own(self):
        script, family = self.start(self.ALL + 1, DBUS_SESSION_BUS_ADDRESS="", XDG_RUNTIME_DIR="/nowhere")
        self.assertIn("dbus-daemon", {standins.name_of(pid) for pid in family})
        script.process.terminate()
        self.wait_for_end(script, family)


if __name__ == "__main__":
    # Whoever started this may ignore it, and that is inherited.
    signal.signal(signal.SIGINT, signal.default_int_handler)
    desktop.in_own_desktop()
    unittest.main()
