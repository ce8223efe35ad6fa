"""What a program prints, line by line, as it comes."""

import os
import queue
import subprocess
import threading

import desktop


class Program:
    """A program whose lines a test waits for. `environment` is added to this process's own; an
    empty value takes the variable away."""

    def __init__(self, *command, new_session=False, **environment):
        variables = {name: value for name, value in dict(os.environ, **environment).items() if value}
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, text=True, env=variables,
                                        start_new_session=new_session)
        self._lines = queue.Queue()
        self._reader = threading.Thread(target=self._read)
        self._reader.start()

    def _read(self):
        for line in self.process.stdout:
            self._lines.put(line.rstrip("\n"))

    def next(self, patience=desktop.PATIENCE):
        """The next line; raises queue.Empty where none comes within that many seconds."""
        return self._lines.get(timeout=patience)

    def next_match(self, pattern, patience=desktop.PATIENCE):
        """The match of the next line that the pattern matches; other lines are passed over."""
        while True:
            match = pattern.match(self.next(patience))
            if match:
                return match

    def close(self):
        if self.process.poll() is None:
            self.process.terminate()
        self.process.wait(desktop.PATIENCE)
        self._reader.join(desktop.PATIENCE)
        self.process.stdout.close()
