"""A `quietdial drive` process for tests: requests go in, replies come out, in step."""

import contextlib
import json
import os
import select
import subprocess

SETTINGS = "/User/Library/Preferences/me.orlanvey.quietDial.plist"
CHANGED = "me.orlanvey.quietDial/PreferencesChanged"
APPLIED = "me.orlanvey.quietdial/prefsChanged"


# How long a reply may take, or the end: longer than any fetch.
PATIENCE = 90


def program() -> str:
    """Path of the terminal program; the build sets it."""
    return os.environ["QUIETDIAL"]


class Drive:
    def __init__(self, *arguments: str, stderr=None, command=(), environment=None):
        """`command` goes before the program and its arguments."""
        self.process = subprocess.Popen(
            [*command, program(), "drive", *arguments], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=stderr,
            text=True, bufsize=1, env=environment
        )

    def __enter__(self):
        return self

    def __exit__(self, *_):
        with contextlib.suppress(BrokenPipeError):
            self.process.stdin.close()
        try:
            self.process.wait(timeout=PATIENCE)
        finally:
            # One that is left behind would keep the test's output open.
            self.process.kill()
            self.process.wait()
            self.process.stdout.close()

    def line(self, text: str) -> dict:
        """Sends a line as it stands and gives the reply."""
        self.process.stdin.write(text + "\n")
        self.process.stdin.flush()
        # In step: nothing of an earlier reply is left in the buffer.
        if not select.select([self.process.stdout], [], [], PATIENCE)[0]:
            self.process.kill()
            raise AssertionError("no reply to " + text)
        return json.loads(self.process.stdout.readline())

    def ask(self, do: str, **fields) -> dict:
        """Sends a request and gives the reply, whatever it says."""
        return self.line(json.dumps({"do": do, **fields}))

    def do(self, do: str, **fields) -> dict:
        """Sends a request that has to succeed."""
        reply = self.ask(do, **fields)
        assert reply["ok"], reply
        return reply

    def settings(self) -> dict:
        return self.do("settings")["settings"]

    def events(self, *kinds: str) -> list:
        """What happened since the last call; of the kinds given, if any are."""
        events = self.do("events")["events"]
        return [event for event in events if not kinds or event["event"] in kinds]

    def rows(self) -> list:
        return self.do("rows")["rows"]
