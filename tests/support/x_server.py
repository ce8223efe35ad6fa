"""A virtual X server of a test's own."""

import contextlib
import os
import subprocess

from waiting import PATIENCE


@contextlib.contextmanager
def x_server(folder):
    """Keeps its picture as a file in `folder` and gives its display's name. The server takes the
    first display that is free, so that two that start at once never meet, and without `-noreset` it
    would turn the next program away while it clears up after the last."""
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
