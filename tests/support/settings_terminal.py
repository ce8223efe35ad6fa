"""The terminal program's commands over the settings, on a bus and below a device root of a test's own."""

import contextlib
import json
import os
import plistlib
import shutil
import subprocess
import sys
import tempfile

import gi

gi.require_version("Gio", "2.0")
import isolated  # noqa: E402
from drive import APPLIED, CHANGED, SETTINGS, program  # noqa: E402
from gi.repository import Gio, GLib  # noqa: E402
from waiting import PATIENCE  # noqa: E402

PATH = "/me/orlanvey/quietdial/Notifications"
INTERFACE = "me.orlanvey.quietdial.Notifications"
END = "the end of a step"


def isolate():
    """Starts the test anew where its killall reaches nobody else."""
    if not os.environ.get(isolated.INSIDE):
        os.execv(sys.executable, [sys.executable, "-B", isolated.__file__, sys.executable, "-B", *sys.argv])


class Terminal:
    """A device root, a bus that is listened to, and a process of the dialler's name."""

    def __init__(self):
        self._stack = contextlib.ExitStack()
        self.folder = self._stack.enter_context(tempfile.TemporaryDirectory(ignore_cleanup_errors=True))
        self.root = self.path("root")
        self.environment = {
            "PATH": self.path("bin") + ":/usr/bin:/bin", "HOME": self.folder, "LC_ALL": "C.UTF-8",
            "XDG_DATA_HOME": self.path("data"), "XDG_CONFIG_HOME": self.path("config"),
            "XDG_RUNTIME_DIR": self.folder, "DBUS_SESSION_BUS_ADDRESS": "unix:path=" + self.path("bus"),
            "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=" + self.path("nothing"),
        }
        os.makedirs(self.path("bin"))
        shutil.copy("/bin/sleep", self.path("bin", "MobilePhone"))
        self._dialler = None
        self._heard = []
        self._start_bus()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        if self._dialler:
            self._dialler.kill()
            self._dialler.wait()
        self._stack.close()

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def _start_bus(self):
        daemon = subprocess.Popen(
            ["dbus-daemon", "--session", "--nofork", "--nopidfile", "--nosyslog", "--print-address=1",
             "--address=" + self.environment["DBUS_SESSION_BUS_ADDRESS"]],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self._stack.callback(daemon.wait)
        self._stack.callback(daemon.kill)
        self._stack.callback(daemon.stdout.close)
        # It says where it is once it listens.
        daemon.stdout.readline()
        self._connection = Gio.DBusConnection.new_for_address_sync(
            self.environment["DBUS_SESSION_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        self._connection.set_exit_on_close(False)
        self._connection.signal_subscribe(
            None, INTERFACE, "Posted", PATH, None, Gio.DBusSignalFlags.NONE,
            lambda *arguments: self._heard.append(arguments[5].unpack()[0]))

    def heard(self):
        """The notifications that were posted on the bus since the last call."""
        # Ours comes back after whatever the bus has taken before.
        self._connection.emit_signal(None, PATH, INTERFACE, "Posted", GLib.Variant("(s)", [END]))
        context = GLib.MainContext.default()
        source = GLib.timeout_source_new_seconds(PATIENCE)
        source.set_callback(lambda *_: self._heard.append(None) or GLib.SOURCE_REMOVE)
        source.attach(context)
        while END not in self._heard and None not in self._heard:
            context.iteration(True)
        source.destroy()
        heard, self._heard = self._heard, []
        assert heard[-1] == END, "the bus is silent"
        return heard[:-1]

    def start_dialler(self):
        """Has a process that a restart kills."""
        self._dialler = subprocess.Popen([self.path("bin", "MobilePhone"), "100000"])

    def check_dialler(self, test, restarts):
        """Whether the dialler's process was killed since it was started; then there is a new one."""
        if restarts:
            test.assertEqual(self._dialler.wait(timeout=PATIENCE), -9)
            self.start_dialler()
        else:
            test.assertIsNone(self._dialler.poll())

    def install(self, window):
        """A copy of the program that has this script for the window beside it."""
        build = os.path.dirname(os.path.dirname(program()))
        os.symlink(os.path.join(build, "lib"), self.path("lib"))
        shutil.copy(program(), self.path("bin", "quietdial"))
        self.write_script("quietdial-settings", window)
        return self.path("bin", "quietdial")

    def write_script(self, name, text):
        path = self.path("bin", name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(f"#!/bin/sh\n{text}\n")
        os.chmod(path, 0o755)

    def run(self, *arguments, stdin=None, root=True, **environment):
        where = ["--root", self.root] if root else []
        command = [program(), *arguments[:1], *where, *arguments[1:]]
        return subprocess.run(command, env={**self.environment, **environment}, capture_output=True, text=True,
                              timeout=PATIENCE * 4, **({"stdin": subprocess.DEVNULL} if stdin is None else {"input": stdin}))

    def json(self, *arguments):
        result = self.run(*arguments, "--json")
        assert result.returncode == 0, result
        return json.loads(result.stdout)

    @property
    def file(self):
        return self.root + SETTINGS

    def stored(self):
        """What is in the file; an absent one is empty."""
        if not os.path.exists(self.file):
            return {}
        with open(self.file, "rb") as file:
            return plistlib.load(file)

    def store(self, settings, **options):
        os.makedirs(os.path.dirname(self.file), exist_ok=True)
        with open(self.file, "wb") as file:
            plistlib.dump(settings, file, **options)


TOLD = [CHANGED, APPLIED]
