"""Animated GIFs: one palette for all frames, only what changes from frame to frame, no dithering."""

import io
import struct

import numpy
from PIL import Image, ImageFile

CLEAR = 255     # the palette's last entry stands for "as before"


def _packed(frame):
    frame = frame.astype(numpy.uint32)
    return frame[..., 0] << 16 | frame[..., 1] << 8 | frame[..., 2]


def _channels(packed):
    return numpy.stack([packed >> 16 & 255, packed >> 8 & 255, packed & 255], axis=-1).astype(numpy.int64)


class Palette:
    """At most 255 colours for a set of frames: the large flat areas exactly, the edges between them nearly."""

    def __init__(self, frames, exact=2000):
        counts = {}
        for frame in frames:
            for colour, count in zip(*(a.tolist() for a in numpy.unique(_packed(frame), return_counts=True))):
                counts[colour] = max(counts.get(colour, 0), count)
        colours = numpy.array(sorted(counts), numpy.uint32)
        areas = numpy.array([counts[c] for c in colours.tolist()], numpy.int64)
        flat = areas >= exact
        if flat.sum() > 160:
            flat = numpy.zeros(len(areas), bool)
            flat[numpy.argsort(-areas, kind="stable")[:160]] = True
        kept = _channels(colours[flat])
        mixed = self._spread(_channels(colours[~flat]), areas[~flat], CLEAR - len(kept))
        self.colours = numpy.unique(numpy.concatenate([kept, mixed]), axis=0)
        self._nearest = numpy.zeros(1 << 24, numpy.uint8)
        for start in range(0, len(colours), 4096):
            part = colours[start:start + 4096]
            distance = ((_channels(part)[:, None, :] - self.colours[None]) ** 2).sum(axis=2)
            self._nearest[part] = distance.argmin(axis=1)

    @staticmethod
    def _spread(colours, areas, wanted):
        """Splits the colours into boxes, always the box with the largest error, and takes their means."""
        if len(colours) <= wanted:
            return colours
        weights = numpy.minimum(areas, 64)

        def box(members):
            c, w = colours[members], weights[members]
            mean = (c * w[:, None]).sum(axis=0) // w.sum()
            spread = (((c - mean) ** 2) * w[:, None]).sum(axis=0)
            axis = int(spread.argmax())
            return int(spread[axis]), axis, int(mean[axis]), members, mean
        boxes = [box(numpy.arange(len(colours)))]
        while len(boxes) < wanted:
            at = max(range(len(boxes)), key=lambda i: boxes[i][0])
            error, axis, middle, members, _ = boxes[at]
            if error == 0:
                break
            low = colours[members, axis] <= middle
            boxes[at:at + 1] = [box(members[low]), box(members[~low])]
        return numpy.array([b[4] for b in boxes])

    def indexes(self, frame):
        return self._nearest[_packed(frame)]

    def table(self):
        rows = self.colours.tolist() + [[0, 0, 0]] * (256 - len(self.colours))
        return bytes(v for row in rows for v in row)


def _image_data(indexes):
    image = Image.fromarray(indexes, "P")
    image.encoderconfig = (8, False)
    out = io.BytesIO()
    ImageFile._save(image, out, [("gif", (0, 0) + image.size, 0, "P")])
    return b"\x08" + out.getvalue() + b"\x00"


def _block(indexes, before):
    """The smallest image block that turns the canvas `before` into `indexes`."""
    if before is None:
        return _described(indexes, 0, 0, False)
    changed = indexes != before
    rows, columns = numpy.flatnonzero(changed.any(axis=1)), numpy.flatnonzero(changed.any(axis=0))
    top, bottom, left, right = rows[0], rows[-1] + 1, columns[0], columns[-1] + 1
    part = numpy.ascontiguousarray(indexes[top:bottom, left:right])
    holes = numpy.where(changed[top:bottom, left:right], part, numpy.uint8(CLEAR))
    return min((_described(part, left, top, False), _described(holes, left, top, True)), key=lambda d: len(d[1]))


def _described(part, left, top, clear):
    return clear, b"," + struct.pack("<HHHHB", left, top, part.shape[1], part.shape[0], 0) + _image_data(part)


def write(file, frames, delays):
    """Writes frames (rows of red, green, blue) that show for `delays` hundredths of a second, once.

    A frame like the one before it adds its delay to that one."""
    palette = Palette(frames)
    canvases, times = [], []
    for frame, delay in zip(frames, delays):
        indexes = palette.indexes(frame)
        if canvases and numpy.array_equal(indexes, canvases[-1]):
            times[-1] += delay
        else:
            canvases.append(indexes)
            times.append(delay)
    height, width = canvases[0].shape
    out = [b"GIF89a", struct.pack("<HHBBB", width, height, 0xF7, 0, 0), palette.table()]
    before = None
    for indexes, delay in zip(canvases, times):
        clear, block = _block(indexes, before)
        out.append(b"!\xf9\x04" + struct.pack("<BHBB", 4 | clear, delay, CLEAR if clear else 0, 0) + block)
        before = indexes
    out.append(b";")
    with open(file, "wb") as stream:
        stream.write(b"".join(out))
