"""A desktop of its own for a test: X server, process namespace, session bus and accessibility bus,
without a window manager, and the Settings application in it."""

import contextlib
import os
import struct
import subprocess
import sys
import tempfile
import time

import program

# Long enough for a machine that does many things at once; a wait ends as soon as it can.
PATIENCE = 30


def namespace():
    """The command that runs another one in a process namespace of its own; empty where the machine
    allows none."""
    command = ["unshare", "--pid", "--fork", "--kill-child", "--mount-proc"]
    if os.geteuid() != 0:
        command.append("--map-root-user")
    possible = subprocess.run([*command, "true"], stderr=subprocess.DEVNULL, check=False)
    return command if possible.returncode == 0 else []


def in_own_desktop():
    """Starts the running test program again inside a desktop of its own, unless it is in one. A
    change restarts the dialler, and that kills every process of its name: hence the namespace."""
    if os.environ.get("QUIETDIAL_TEST_DESKTOP"):
        return
    isolation = namespace()
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as runtime, x_server(runtime) as display:
        environment = dict(os.environ, QUIETDIAL_TEST_DESKTOP="isolated" if isolation else "open",
                           XDG_RUNTIME_DIR=runtime, DISPLAY=display,
                           QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb")
        status = subprocess.run([*isolation, "dbus-run-session", "--",
                                 sys.executable, "-B", "-W", "ignore", *sys.argv],
                                env=environment, check=False).returncode
    sys.exit(status)


@contextlib.contextmanager
def x_server(folder):
    """A virtual X server whose picture is a file in `folder`; gives its display's name. The server
    takes the first display that is free, so that two that start at once never meet, and without
    `-noreset` it would turn the next program away while it clears up after the last."""
    reader, writer = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(writer), "-noreset", "-nolisten", "tcp",
                               "-screen", "0", "800x1000x24", "-fbdir", folder],
                              pass_fds=[writer], stderr=subprocess.DEVNULL)
    os.close(writer)
    try:
        with open(reader, encoding="ascii") as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError("the virtual X server did not start")
        yield ":" + number
    finally:
        server.terminate()
        server.wait(PATIENCE)


def is_isolated():
    """Whether a restart of the dialler reaches the processes of this desktop alone."""
    return os.environ.get("QUIETDIAL_TEST_DESKTOP") == "isolated"


def wait_for(condition, what):
    """The first true answer of `condition`."""
    end = time.monotonic() + PATIENCE
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError("waited in vain for " + what)
        time.sleep(0.02)


class Application:
    """The Settings application, seen through the accessibility bus. `environment` is added to this
    process's own."""

    def __init__(self, root, *arguments, **environment):
        self.root = root
        effects = [] if is_isolated() else ["--effects", "none"]
        self.process = subprocess.Popen([program.PROGRAM, "--root", root, *effects, *arguments],
                                        env=dict(os.environ, **environment),
                                        stderr=subprocess.PIPE, text=True)
        self._application = wait_for(self._find, "the application on the accessibility bus")

    def _find(self):
        import pyatspi
        if self.process.poll() is not None:
            raise AssertionError("the application has ended: " + self.process.stderr.read())
        for application in pyatspi.Registry.getDesktop(0):
            if application and application.get_process_id() == self.process.pid \
                    and application.childCount:
                return application
        return None

    def close(self):
        if self.process.poll() is None:
            self.process.terminate()
        self.process.wait(PATIENCE)
        self.process.stderr.close()

    def elements(self):
        """All elements as they now are, each before what is in it, one after the other: each costs
        messages."""
        def walk(element):
            yield element
            for child in element:
                if child:
                    yield from walk(child)

        self._application.clear_cache()
        yield from walk(self._application)

    def top(self):
        """The windows."""
        self._application.clear_cache()
        return list(self._application)

    def find(self, role, name):
        """The element of that role and exactly that name, else the first whose name begins so, or
        None."""
        import pyatspi  # noqa: F401
        beginning = None
        for element in self.elements():
            try:
                if element.getRoleName() != role:
                    continue
                if element.name == name:
                    return element
                if beginning is None and element.name.startswith(name):
                    beginning = element
            except Exception:  # it has gone meanwhile
                continue
        return beginning

    def wait_for(self, role, name):
        return wait_for(lambda: self.find(role, name), f"{role} “{name}”")

    def states(self, element):
        import pyatspi
        return {pyatspi.stateToString(state) for state in element.getState().getStates()}

    def wait_for_state(self, role, name, state):
        def ask():
            element = self.find(role, name)
            return element if element and state in self.states(element) else None
        return wait_for(ask, f"{role} “{name}” to be {state}")

    def press(self, role, name):
        """Uses the one press action of an element, once it has it: while a page comes or goes it has
        none."""
        def ready():
            element = self.find(role, name)
            try:
                if not element or "enabled" not in self.states(element):
                    return None
                action = element.queryAction()
                names = [action.getName(index) for index in range(action.nActions)]
                return (action, names.index("Press")) if names.count("Press") == 1 else None
            except Exception:  # it has gone meanwhile
                return None
        action, index = wait_for(ready, f"{role} “{name}” to be ready")
        assert action.doAction(index), name

    def place(self, element):
        """x, y, width and height on the screen."""
        import pyatspi
        box = element.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        return box.x, box.y, box.width, box.height


class Posts:
    """Counts the posts of one notification on the session bus from now on."""

    def __init__(self, name):
        from gi.repository import Gio, GLib
        self._context = GLib.MainContext.default()
        self._heard = []
        self._bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self._bus.signal_subscribe(None, "me.orlanvey.quietdial.Notifications", "Posted", None, name,
                                   Gio.DBusSignalFlags.NONE,
                                   lambda *arguments: self._heard.append(arguments))
        # An answer of the bus: the wish to listen has reached it.
        self._bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId", None,
                            None, Gio.DBusCallFlags.NONE, -1)

    def count(self):
        while self._context.iteration(False):
            pass
        return len(self._heard)

    def wait_for(self, number):
        wait_for(lambda: self.count() >= number, f"{number} posts")


def screen(x, y, width, height):
    """The pixels of a place on the screen, as the X server has them: rows of blue, green, red and a
    byte of padding."""
    with open(os.path.join(os.environ["XDG_RUNTIME_DIR"], "Xvfb_screen0"), "rb") as file:
        header = struct.unpack(">25I", file.read(100))
        size, bits, line, colors = header[0], header[11], header[12], header[19]
        assert bits == 32, bits
        # The picture follows the header and a table of colours of 12 bytes each.
        file.seek(size + 12 * colors + y * line)
        rows = file.read(height * line)
    return b"".join(rows[row * line + x * 4:row * line + (x + width) * 4] for row in range(height))


def pixel(x, y):
    """Red, green and blue of a place on the screen."""
    blue, green, red, _ = screen(x, y, 1, 1)
    return red, green, blue


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)
