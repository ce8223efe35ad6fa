"""The real services that place calls, on a bus of a test's own: ModemManager, GNOME Calls and ofonod
as scripts/daemons has unpacked them, on a scripted modem."""

import contextlib
import json
import os
import plistlib
import pty
import subprocess
import tempfile

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402
from waiting import wait_for  # noqa: E402
from x_server import x_server  # noqa: E402

PATIENCE = 60
DAEMONS = os.environ["QUIETDIAL_DAEMONS"]
SETTINGS = "User/Library/Preferences/me.orlanvey.quietDial.plist"
MODEM_MANAGER = "org.freedesktop.ModemManager1"
CALLS = "org.gnome.Calls"
OFONO = "org.ofono"


def daemon(path):
    """A program that scripts/daemons has unpacked."""
    program = os.path.join(DAEMONS, path)
    if not os.path.exists(program):
        raise AssertionError(f"{program} is not there: scripts/daemons unpacks it")
    return program


def libraries():
    for folder in os.listdir(os.path.join(DAEMONS, "usr/lib")):
        if folder.endswith("-linux-gnu"):
            return os.path.join(DAEMONS, "usr/lib", folder)
    raise AssertionError("scripts/daemons has unpacked no libraries")


class Telephony:
    """One bus for both kinds of service, a home folder, and what is started on them."""

    def __init__(self):
        self._stack = contextlib.ExitStack()
        self.folder = self._stack.enter_context(tempfile.TemporaryDirectory(ignore_cleanup_errors=True))
        os.makedirs(self.path("services"))
        self.environment = {
            "PATH": self.path("bin") + ":/usr/bin:/bin", "HOME": self.folder, "XDG_RUNTIME_DIR": self.folder,
            "XDG_DATA_HOME": self.path("data"), "XDG_CONFIG_HOME": self.path("config"), "LC_ALL": "C.UTF-8",
            "GSETTINGS_BACKEND": "memory", "NO_AT_BRIDGE": "1",
        }
        self._start_bus()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._stack.close()

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def write(self, name, text, mode=0o644):
        path = self.path(name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        os.chmod(path, mode)

    def _start_bus(self):
        self.write("bus.conf", f"""<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>unix:path={self.path("bus")}</listen><auth>EXTERNAL</auth>
<servicedir>{self.path("services")}</servicedir>
<policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/></policy>
</busconfig>""")
        address = "unix:path=" + self.path("bus")
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        self.environment["DBUS_SYSTEM_BUS_ADDRESS"] = address
        self.bus_daemon = self.start(["dbus-daemon", "--config-file=" + self.path("bus.conf"), "--nofork",
                                      "--nosyslog", "--print-address"], stdout=subprocess.PIPE)
        # Nothing of this may reach the machine's own services.
        if not self.bus_daemon.stdout.readline().decode().startswith(address):
            raise SystemExit("the bus is not the test's own")
        self._stack.callback(self.bus_daemon.stdout.close)
        self.connection = Gio.DBusConnection.new_for_address_sync(
            address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        self.connection.set_exit_on_close(False)

    def start(self, command, stdout=subprocess.DEVNULL, **environment):
        """Starts a program that ends with the test; what it says goes to a file of its own name."""
        log = open(self.path(os.path.basename(command[0]) + ".log"), "ab")
        process = subprocess.Popen(command, env={**self.environment, **environment}, stdout=stdout or log, stderr=log)
        log.close()
        self._stack.callback(self.stop, process)
        return process

    @staticmethod
    def stop(process):
        if process.poll() is None:
            process.terminate()
            try:
                process.wait(PATIENCE)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()

    @staticmethod
    def kill(process):
        process.kill()
        process.wait()

    def ask(self, service, path, method, arguments=None):
        """Calls a method; its answer as plain values."""
        interface, name = method.rsplit(".", 1)
        return self.connection.call_sync(service, path, interface, name, arguments, None,
                                         Gio.DBusCallFlags.NO_AUTO_START, 30_000, None).unpack()

    def objects(self, service, path):
        try:
            return self.ask(service, path, "org.freedesktop.DBus.ObjectManager.GetManagedObjects")[0]
        except GLib.Error:
            return {}

    def is_running(self, service):
        return self.ask("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.NameHasOwner",
                        GLib.Variant("(s)", [service]))[0]

    # ModemManager

    def start_modem_manager(self, modem, enable=True):
        """ModemManager with one modem, or with none; on the network unless it is not enabled."""
        folder = libraries()
        process = self.start([daemon("usr/sbin/ModemManager"), "--test-session", "--test-enable", "--test-no-udev",
                              "--test-no-suspend-resume", "--test-no-qrtr",
                              "--test-plugin-dir=" + os.path.join(folder, "ModemManager")],
                             LD_LIBRARY_PATH=folder)
        wait_for(lambda: self.is_running(MODEM_MANAGER), "ModemManager")
        if modem:
            self.ask(MODEM_MANAGER, "/org/freedesktop/ModemManager1", MODEM_MANAGER + ".Test.SetProfile",
                     GLib.Variant("(ssas)", ["test", "generic", [modem.name]]))
            wait_for(self.modem_path, "a modem")
            if enable:
                wait_for(lambda: self.modem_state() >= 3, "the modem to be ready")
                self.ask(MODEM_MANAGER, self.modem_path(), MODEM_MANAGER + ".Modem.Enable",
                         GLib.Variant("(b)", [True]))
                wait_for(lambda: self.modem_state() >= 8, "the network")
        return process

    def modem_path(self):
        return next(iter(self.objects(MODEM_MANAGER, "/org/freedesktop/ModemManager1")), None)

    def modem_state(self):
        objects = self.objects(MODEM_MANAGER, "/org/freedesktop/ModemManager1")
        return next((modem[MODEM_MANAGER + ".Modem"]["State"] for modem in objects.values()), 0)

    def modem_calls(self):
        objects = self.objects(MODEM_MANAGER, "/org/freedesktop/ModemManager1")
        return [call for modem in objects.values() for call in modem[MODEM_MANAGER + ".Modem.Voice"]["Calls"]]

    # GNOME Calls

    def install_gnome_calls(self, *arguments):
        """Lets the bus start GNOME Calls, and makes it the desktop's handler for telephone links."""
        folder = libraries()
        display = self._stack.enter_context(x_server(self.folder))
        schemas = self.path("schemas")
        os.makedirs(schemas)
        for source in (os.path.join(DAEMONS, "usr/share/glib-2.0/schemas"), "/usr/share/glib-2.0/schemas"):
            for name in os.listdir(source) if os.path.isdir(source) else []:
                if name.endswith(".xml"):
                    with open(os.path.join(source, name), encoding="utf-8") as file:
                        self.write("schemas/" + name, file.read())
        compiler = os.path.join("/usr/lib", os.path.basename(folder), "glib-2.0/glib-compile-schemas")
        subprocess.run([compiler, schemas], check=True, stderr=subprocess.DEVNULL)
        self.calls_environment = {
            "DISPLAY": display, "LD_LIBRARY_PATH": folder, "GSETTINGS_SCHEMA_DIR": schemas,
            "CALLS_PLUGIN_DIR": os.path.join(folder, "calls/plugins"),
            "FOLKS_BACKENDS_ALLOWED": "dummy",
        }
        contacts = os.path.join(folder, "folks/26/backends")
        if os.path.isdir(contacts):
            self.calls_environment["FOLKS_BACKEND_PATH"] = contacts
        self.calls_command = [daemon("usr/bin/gnome-calls"), "--daemon", *arguments]
        words = " ".join(f'"{name}={value}"' for name, value in self.calls_environment.items())
        self.write("services/org.gnome.Calls.service",
                   f"[D-BUS Service]\nName={CALLS}\nExec=/usr/bin/env {words} "
                   + " ".join(self.calls_command) + "\n")
        self.reload_services()
        self.handle_links_with("org.gnome.Calls.desktop")

    def reload_services(self):
        """Has the bus look again what it can start."""
        self.ask("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.ReloadConfig")

    def handle_links_with(self, entry):
        self.write("bin/xdg-mime", f'#!/bin/sh\n[ "$*" = "query default x-scheme-handler/tel" ] && echo {entry}\n', 0o755)

    def start_gnome_calls(self):
        process = self.start(self.calls_command, **self.calls_environment)
        wait_for(lambda: self.is_running(CALLS), "GNOME Calls")
        wait_for(self.calls_can_dial, "GNOME Calls to be ready")
        return process

    def calls_can_dial(self):
        description = self.ask(CALLS, "/org/gnome/Calls", "org.gtk.Actions.Describe", GLib.Variant("(s)", ["dial"]))
        return description[0][0]

    def calls_numbers(self):
        return [call[CALLS + ".Call"]["Id"] for call in self.objects(CALLS, "/org/gnome/Calls").values()]

    # oFono

    def start_ofono(self, modem):
        """ofonod with one modem, on the network."""
        self.write("phonesim.conf", f"[phonesim]\nAddress=127.0.0.1\nPort={modem.port}\n")
        without = "bluez5,bluez4,hfp_hf_bluez5,hfp_ag_bluez5,dun_gw_bluez5,udevng,udev,connman"
        process = self.start([daemon("usr/sbin/ofonod"), "-n", "-P", without], LD_LIBRARY_PATH=libraries(),
                             OFONO_PHONESIM_CONFIG=self.path("phonesim.conf"))
        wait_for(lambda: self.is_running(OFONO), "ofonod")
        for name in ("Powered", "Online"):
            wait_for(lambda name=name: self._switch_on(name), "the modem to be " + name)
        wait_for(lambda: "org.ofono.VoiceCallManager" in self.ofono_modem()["Interfaces"], "voice")
        return process

    def ofono_modem(self):
        return dict(self.ask(OFONO, "/", "org.ofono.Manager.GetModems")[0]).get("/phonesim", {"Interfaces": []})

    def _switch_on(self, name):
        with contextlib.suppress(GLib.Error):
            self.ask(OFONO, "/phonesim", "org.ofono.Modem.SetProperty",
                     GLib.Variant("(sv)", [name, GLib.Variant("b", True)]))
        return self.ofono_modem().get(name)

    # quietdial

    def store(self, **settings):
        path = self.path("root", SETTINGS)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            plistlib.dump(settings, file)

    def quietdial(self, *arguments, stdin="", **environment):
        """Runs the terminal program; what came of it."""
        return subprocess.run([os.environ["QUIETDIAL"], *arguments], input=stdin, capture_output=True, text=True,
                              timeout=2 * PATIENCE, check=False, env={**self.environment, **environment})

    def call(self, *arguments, **options):
        return self.quietdial("call", "--root", self.path("root"), "--yes", *arguments, **options)

    def asked(self, number, meanwhile, *arguments):
        """What comes of a call on a terminal where something happens between the question and the yes."""
        terminal, other = pty.openpty()
        command = [os.environ["QUIETDIAL"], "call", "--root", self.path("root"), *arguments, number]
        call = subprocess.Popen(command, env=self.environment, stdin=other, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE)
        os.close(other)
        try:
            told = b""
            while b"Call? [y/N]" not in told:
                more = os.read(call.stdout.fileno(), 1000)
                assert more, call.stderr.read()
                told += more
            meanwhile()
            os.write(terminal, b"y\n")
            out, err = call.communicate(timeout=2 * PATIENCE)
        finally:
            call.kill()
            call.communicate()
            os.close(terminal)
        return subprocess.CompletedProcess(command, call.returncode, (told + out).decode(), err.decode())

    def plan(self, *arguments, **options):
        """The plan of a call, as `--json` prints it, and the exit status."""
        result = self.call("--json", *arguments, **options)
        return json.loads(result.stdout), result.returncode
