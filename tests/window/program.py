"""Runs the Settings application."""

import os
import subprocess

PROGRAM = os.environ["QUIETDIAL_SETTINGS"]
# What the tests start it with: they may be run by root, or in a namespace where everyone is.
ALLOW_ROOT = ["--allow-root"] if os.geteuid() == 0 else []
COMMAND = [PROGRAM, *ALLOW_ROOT]
TOUR = [os.environ["QUIETDIAL_TOUR"], *ALLOW_ROOT]
SETTINGS_FILE = "User/Library/Preferences/me.orlanvey.quietDial.plist"


def run(*arguments, **environment):
    """Runs it without a display until it ends."""
    return _run([*COMMAND, *arguments], environment)


def tour(*arguments, **environment):
    """Runs the tour of the pages."""
    return _run([*TOUR, *arguments], environment)


def _run(command, environment):
    variables = {name: value for name, value in os.environ.items()
                 if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
    variables.update(environment)
    return subprocess.run(command, env=variables, timeout=60, capture_output=True, text=True, check=False)
