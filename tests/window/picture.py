"""Reads PNG files of 8 bits a channel, without anything but Python itself."""

import struct
import zlib


class Picture:
    def __init__(self, path):
        with open(path, "rb") as file:
            data = file.read()
        assert data[:8] == b"\x89PNG\r\n\x1a\n", "no PNG file"
        at, pixels = 8, b""
        while at < len(data):
            length, kind = struct.unpack(">I4s", data[at:at + 8])
            body = data[at + 8:at + 8 + length]
            if kind == b"IHDR":
                self.width, self.height, depth, colors, *_ = struct.unpack(">IIBBBBB", body)
                assert depth == 8 and colors in (2, 6), "not 8 bits a channel"
                self._channels = 3 if colors == 2 else 4
            elif kind == b"IDAT":
                pixels += body
            at += length + 12
        self._rows = self._unfilter(zlib.decompress(pixels))

    def _unfilter(self, data):
        step, stride, rows = self._channels, self.width * self._channels, []
        above = bytearray(stride)
        for y in range(self.height):
            start = y * (stride + 1)
            kind, row = data[start], bytearray(data[start + 1:start + 1 + stride])
            for x in range(stride):
                left = row[x - step] if x >= step else 0
                corner = above[x - step] if x >= step else 0
                if kind == 1:
                    row[x] = (row[x] + left) & 255
                elif kind == 2:
                    row[x] = (row[x] + above[x]) & 255
                elif kind == 3:
                    row[x] = (row[x] + (left + above[x]) // 2) & 255
                elif kind == 4:
                    guess = left + above[x] - corner
                    near = min((left, above[x], corner), key=lambda value: abs(guess - value))
                    row[x] = (row[x] + near) & 255
            rows.append(row)
            above = row
        return rows

    def at(self, x, y):
        """Red, green, blue."""
        return tuple(self._rows[int(y)][int(x) * self._channels:int(x) * self._channels + 3])

    def colors(self, left, top, right, bottom):
        """The colours in a rectangle and how often each occurs."""
        counts = {}
        for y in range(int(top), int(bottom)):
            for x in range(int(left), int(right)):
                color = self.at(x, y)
                counts[color] = counts.get(color, 0) + 1
        return counts
