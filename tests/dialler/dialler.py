"""Runs the dialler in a desktop of a test's own, seen through the accessibility bus, with the phone of another bus."""

import os
import subprocess
import sys

for folder in ("window", "support"):
    sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", folder))
import desktop  # noqa: E402
import program  # noqa: E402
from telephony import Telephony  # noqa: E402

PROGRAM = os.environ["QUIETDIAL_DIALLER"]
COMMAND = [PROGRAM, *program.ALLOW_ROOT]
PREFS_CHANGED = "me.orlanvey.quietdial/prefsChanged"


def environment(phone=None, **more):
    """The desktop's, with the phone's system bus, home folder and handler of links."""
    variables = dict(os.environ)
    if phone:
        own = phone.environment
        variables.update({name: own[name] for name in ("DBUS_SYSTEM_BUS_ADDRESS", "HOME", "XDG_DATA_HOME",
                                                       "XDG_CONFIG_HOME", "PATH")})
    variables.update(more)
    return variables


class Dialler(desktop.Application):
    """The dialler with its window, once that is on the accessibility bus."""

    def __init__(self, phone, *arguments, root=None, stdin=subprocess.DEVNULL, **variables):
        self.root = root or phone.path("root")
        self.process = subprocess.Popen([*COMMAND, "--root", self.root, *arguments], stdin=stdin,
                                        env=environment(phone, **variables), stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, text=True)
        self._application = desktop.wait_for(self._find, "the dialler on the accessibility bus")

    def close(self):
        super().close()
        self.process.stdout.close()

    def wait_for_end(self):
        assert self.process.wait(desktop.PATIENCE) == 0, self.process.stderr.read()

    def has_ended(self):
        return self.process.poll() is not None

    def texts(self):
        """The names of all elements that can be read."""
        return [element.name for element in self.elements() if element.name]

    def says(self, text):
        return any(text in name for name in self.texts())

    def wait_for_text(self, text):
        desktop.wait_for(lambda: self.says(text), f"“{text}”")

    def actions(self, role, name):
        action = self.wait_for(role, name).queryAction()
        return {action.getName(index): index for index in range(action.nActions)}

    def act(self, role, name, action):
        element = self.wait_for(role, name).queryAction()
        names = [element.getName(index) for index in range(element.nActions)]
        assert element.doAction(names.index(action)), (name, names)

    def act_until(self, condition, what, role, name, action="Press"):
        """Does it again and again: presses in the first half second do nothing."""
        def attempt():
            if condition():
                return True
            try:
                element = self.find(role, name)
                names = element and [element.queryAction().getName(index)
                                     for index in range(element.queryAction().nActions)]
                if names and action in names:
                    element.queryAction().doAction(names.index(action))
            except Exception:  # it has gone meanwhile
                pass
            return condition()
        desktop.wait_for(attempt, what)

    def centre(self, role, name):
        x, y, width, height = self.resting_place(role, name)
        return x + width // 2, y + height // 2


__all__ = ["Dialler", "Telephony", "desktop", "environment", "COMMAND", "PREFS_CHANGED"]
