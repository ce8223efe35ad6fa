"""Disks that fail, for the programs under test."""

import contextlib
import os

SHIM = os.environ["QUIETDIAL_FAULT_SHIM"]


class Disk:
    """While it is faulty, a program with its `environment` can make no files, and so replace none."""

    def __init__(self, folder):
        self._switch = os.path.join(folder, "fault")
        self.environment = {"LD_PRELOAD": SHIM, "QUIETDIAL_FAULT_WHILE": self._switch}

    @contextlib.contextmanager
    def failing(self, error):
        """Every write fails with that error number."""
        with open(self._switch + ".new", "w", encoding="ascii") as file:
            file.write(str(error))
        os.rename(self._switch + ".new", self._switch)
        try:
            yield
        finally:
            os.unlink(self._switch)


def without_privileges():
    """The command that takes from root what lets it read and write where its permissions do not."""
    return ["setpriv", "--bounding-set", "-dac_override,-dac_read_search"] if os.geteuid() == 0 else []
