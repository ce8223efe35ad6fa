"""A finger on a window: what no X server's own tools can put there."""

import os

import desktop


class TouchScreen:
    """Puts a finger on the program that is started with `environment`, at places of the screen."""

    def __init__(self, folder):
        self._path = os.path.join(folder, "touchscreen")
        os.mkfifo(self._path)
        self.environment = {
            "QT_PLUGIN_PATH": os.environ["QUIETDIAL_TOUCHSCREEN_PLUGINS"],
            "QT_QPA_GENERIC_PLUGINS": "touchscreen:" + self._path,
        }

    def _open(self):
        try:
            return os.open(self._path, os.O_WRONLY | os.O_NONBLOCK)
        except OSError:  # nobody reads it yet
            return None

    def _send(self, *lines):
        pipe = desktop.wait_for(self._open, "the program to have a touch screen")
        try:
            os.write(pipe, "".join(line + "\n" for line in lines).encode())
        finally:
            os.close(pipe)

    def tap(self, x, y):
        self._send(f"press {x} {y}", f"release {x} {y}")

    def press(self, x, y):
        self._send(f"press {x} {y}")

    def release(self, x, y):
        self._send(f"release {x} {y}")

    def drag(self, *places):
        """The finger goes down at the first place and up at the last."""
        (x, y), *others = places
        self._send(f"press {x} {y}", *(f"move {x} {y}" for x, y in others),
                   "release {} {}".format(*places[-1]))
