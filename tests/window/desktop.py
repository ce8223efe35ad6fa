"""A desktop of its own for a test: X server, processes, session bus and accessibility bus, without a
window manager, and the Settings application in it."""

import difflib
import os
import struct
import subprocess
import sys
import tempfile

import program

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from rest import wait_for_rest  # noqa: E402
from waiting import PATIENCE, wait_for  # noqa: E402
from x_server import x_server  # noqa: E402


def in_own_desktop():
    """Starts the running test program again inside a desktop of its own, unless it is in one. A
    change restarts the dialler, and that kills every process of its name: hence the isolation."""
    if os.environ.get("QUIETDIAL_TEST_DESKTOP"):
        return
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as runtime, x_server(runtime) as display:
        environment = dict(os.environ, QUIETDIAL_TEST_DESKTOP="1", XDG_RUNTIME_DIR=runtime, DISPLAY=display,
                           QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb")
        status = subprocess.run([sys.executable, "-B", os.environ["QUIETDIAL_ISOLATED"], "dbus-run-session", "--",
                                 sys.executable, "-B", "-W", "ignore", *sys.argv],
                                env=environment, check=False).returncode
    sys.exit(status)


class Application:
    """The Settings application, seen through the accessibility bus. `command` goes before the program
    and its arguments; `environment` is added to this process's own."""

    def __init__(self, root, *arguments, command=(), **environment):
        self.root = root
        self.process = subprocess.Popen([*command, *program.COMMAND, "--root", root, *arguments],
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

    def wait_for_rest(self):
        """Waits until what it was sent has been done, and nothing moves any more."""
        wait_for_rest(self.process.pid)

    def resting_place(self, role, name):
        """Where the element stands once nothing moves."""
        def ask():
            self.wait_for_rest()
            element = self.find(role, name)
            return element and self.place(element)
        return wait_for(ask, f"{role} “{name}” to rest")

    def click(self, role, name):
        x, y, width, height = self.resting_place(role, name)
        xdotool("mousemove", x + width // 2, y + height // 2, "click", 1)

    def place(self, element):
        """x, y, width and height on the screen."""
        import pyatspi
        box = element.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        return box.x, box.y, box.width, box.height

    def tree(self, names):
        """One line for each element: role, name, those of its states that have these names, actions, place in the
        window."""
        lines, left, top = [], 0, 0

        def walk(element, depth):
            nonlocal left, top
            x, y, width, height = self.place(element)
            if element.getRoleName() == "frame":
                left, top = x, y
            states = self.states(element)
            action = element.queryAction() if "Action" in element.get_interfaces() else None
            actions = [action.getName(i) for i in range(action.nActions)] if action else []
            parts = [element.getRoleName(), "“" + element.name.replace("\n", "⏎") + "”",
                     " ".join(state for state in names if state in states),
                     "/".join(actions), f"{x - left},{y - top} {width}x{height}"]
            lines.append("  " * depth + "  ".join(part for part in parts if part))
            for child in element:
                walk(child, depth + 1)

        for window in self.top():
            walk(window, 0)
        return lines


def difference_to_kept(path, lines):
    """What differs from the lines that are kept in that file; with QUIETDIAL_KEEP_TREES=1 in the environment these are
    kept first."""
    if os.environ.get("QUIETDIAL_KEEP_TREES"):
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write("\n".join(lines) + "\n")
    with open(path, encoding="utf-8") as file:
        kept = file.read().splitlines()
    return "\n".join(difflib.unified_diff(kept, lines, "kept", "told", lineterm=""))


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

    def flood(self, name, times):
        """Posts that often under that name, as fast as the bus takes it."""
        from gi.repository import GLib
        for _ in range(times):
            self._bus.emit_signal(None, "/me/orlanvey/quietdial/Notifications",
                                  "me.orlanvey.quietdial.Notifications", "Posted",
                                  GLib.Variant("(s)", (name,)))
        self._bus.flush_sync()


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
