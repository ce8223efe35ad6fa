"""Runs the catalogue server for a test."""

import json
import os
import pathlib
import subprocess
import tempfile

SERVER = pathlib.Path(__file__).resolve().parents[2] / "tools/standins/catalogue/catalogue-server"
HOST = "tweaks.tallowbyte.example"


def make_certificate(folder):
    """A file in that folder with a certificate for the server's name, and its key."""
    path = os.path.join(folder, "certificate.pem")
    subprocess.run(
        ["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
         "-days", "2", "-subj", "/CN=" + HOST, "-addext", "subjectAltName=DNS:" + HOST,
         "-keyout", path, "-out", path + ".public"], check=True, capture_output=True)
    with open(path, "ab") as file, open(path + ".public", "rb") as public:
        file.write(public.read())
    return path


class Catalogue:
    """The server as a process of its own, with tweaks that may change while it runs."""

    def __init__(self, *tweaks: str, port: int = 0, arguments=()):
        self._folder = tempfile.TemporaryDirectory()
        self._catalogue = os.path.join(self._folder.name, "catalogue.json")
        self._log = os.path.join(self._folder.name, "requests")
        self.set_tweaks(*tweaks)
        self._process = subprocess.Popen(
            [SERVER, "--port", str(port), "--catalogue", self._catalogue, "--log", self._log, *arguments],
            stdout=subprocess.PIPE, text=True)
        line = self._process.stdout.readline()
        assert line.startswith("http://127.0.0.1:"), line
        self.port = int(line.rsplit(":", 1)[1])

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.end()

    def end(self):
        if self._process.poll() is None:
            self._process.kill()
        self._process.wait()
        self._process.stdout.close()
        self._folder.cleanup()

    def set_tweaks(self, *tweaks: str):
        entries = [{"id": tweak, "name": tweak, "line": "A line", "text": "A text", "url": "https://other.example/"}
                   for tweak in tweaks]
        written = self._catalogue + ".new"
        with open(written, "w", encoding="utf-8") as file:
            json.dump(entries, file)
        os.rename(written, self._catalogue)

    def requests(self):
        """The first line of each request so far, and its host."""
        with open(self._log, encoding="utf-8") as file:
            return [tuple(line.rstrip("\n").rsplit(" ", 1)) for line in file]

    @property
    def mapping(self):
        """What --map-host takes."""
        return f"{HOST}=127.0.0.1:{self.port}"
