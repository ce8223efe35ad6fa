"""What a GIF file says of itself, and its frames as decoders give them."""

import dataclasses
import hashlib
import json
import struct
import subprocess

from PIL import Image


@dataclasses.dataclass
class Frame:
    delay: int              # hundredths of a second
    disposal: int
    transparent: bool
    left: int
    top: int
    width: int
    height: int
    own_colours: bool


class GifFile:
    """Walks the blocks of a file without decoding the pictures."""

    def __init__(self, path):
        with open(path, "rb") as file:
            self._data = file.read()
        self.bytes = len(self._data)
        assert self._data[:6] == b"GIF89a"
        self.width, self.height, flags = struct.unpack_from("<HHB", self._data, 6)
        self.colours = 2 << (flags & 7) if flags & 0x80 else 0
        self.frames, self.applications = [], []
        self._walk(13 + 3 * self.colours)

    def _sub_blocks(self, at):
        body = b""
        while self._data[at]:
            body += self._data[at + 1:at + 1 + self._data[at]]
            at += 1 + self._data[at]
        return body, at + 1

    def _walk(self, at):
        control = None
        while self._data[at] != 0x3B:
            if self._data[at] == 0x21:
                label = self._data[at + 1]
                body, at = self._sub_blocks(at + 2)
                if label == 0xF9:
                    control = body
                elif label == 0xFF:
                    self.applications.append(body[:11])
            else:
                assert self._data[at] == 0x2C
                left, top, width, height, flags = struct.unpack_from("<HHHHB", self._data, at + 1)
                own = 3 * (2 << (flags & 7)) if flags & 0x80 else 0
                packed, delay = struct.unpack_from("<BH", control)
                self.frames.append(Frame(delay, packed >> 2 & 7, bool(packed & 1), left, top, width, height,
                                         bool(own)))
                control = None
                _, at = self._sub_blocks(at + 10 + own + 1)
        assert at == len(self._data) - 1


def pillow_frames(path):
    """The composited frames as rows of red, green, blue, alpha."""
    with Image.open(path) as picture:
        for i in range(picture.n_frames):
            picture.seek(i)
            yield picture.convert("RGBA").tobytes()


def ffmpeg_frames(path, width, height):
    out = subprocess.run(["ffmpeg", "-v", "error", "-threads", "1", "-i", path, "-vsync", "passthrough",
                          "-f", "rawvideo", "-pix_fmt", "rgba", "-"], check=True, capture_output=True).stdout
    size = width * height * 4
    assert len(out) % size == 0
    return [out[i:i + size] for i in range(0, len(out), size)]


def decoder_report(program, path):
    out = subprocess.run([program, "gif", "--checksums", path], check=True, capture_output=True, text=True).stdout
    return json.loads(out)


def checksum(frame):
    return hashlib.sha256(frame).hexdigest()
