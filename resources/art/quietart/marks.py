"""The shapes that several pictures share."""

import math

from .path import Path, ring, ring_dash, rounded


def handset(size):
    """A telephone receiver in the pose of a call button, centred on the origin, `size` from end to end.

    Its outline is the right half of a lying receiver, its mirror image, and a turn."""
    arch = [(0.50, -0.42, 1.0, -0.28, 1.0, 0.14), (1.0, 0.21, 1.0, 0.24, 1.0, 0.27),
            (1.0, 0.37, 0.93, 0.42, 0.84, 0.41), (0.78, 0.403, 0.73, 0.395, 0.67, 0.385),
            (0.58, 0.37, 0.525, 0.32, 0.515, 0.23), (0.505, 0.15, 0.50, 0.10, 0.48, 0.02),
            (0.33, -0.045, 0.17, -0.075, 0.0, -0.075)]
    out = Path().move(0.0, -0.42)
    for step in arch:
        out.curve(*step)
    # Back along the mirrored steps.
    ends = [(0.0, -0.42)] + [step[4:] for step in arch]
    for i in range(len(arch) - 1, -1, -1):
        x1, y1, x2, y2 = arch[i][:4]
        out.curve(-x2, y2, -x1, y1, -ends[i][0], ends[i][1])
    return out.close().moved(0, -0.09).turned(-135).scaled(size / 2)


def incognito(width):
    """A hat above a pair of glasses, centred on the origin: somebody who is not to be known."""
    out = Path()
    # Hat: crown with a dent; the gap above the brim is its band.
    out.add(Path().move(-26.6, -10.5).curve(-25, -19, -22.5, -29, -19, -33.5).curve(-16, -37, -11, -37, -6.5, -35)
            .curve(-2, -33, 2, -33, 6.5, -35).curve(11, -37, 16, -37, 19, -33.5)
            .curve(22.5, -29, 25, -19, 26.6, -10.5).close())
    out.add(rounded(-42, -5.8, 84, 8, 4))
    # Glasses: two rims and a bridge.
    for side in (-1, 1):
        out.add(ring(side * 19.5, 20, 15.5, 8.2))
    out.add(Path().move(-7.2, 16).curve(-4, 11.6, 4, 11.6, 7.2, 16).line(5.6, 21.4)
            .curve(3, 18, -3, 18, -5.6, 21.4).close())
    return out.moved(0, 1).scaled(width / 100)


def heart(width):
    """A heart whose box is `width` x 0.9 `width`, with its top left at the origin."""
    w = width
    return (Path().move(0.5 * w, 0.9 * w)
            .curve(0.40 * w, 0.80 * w, 0.0, 0.56 * w, 0.0, 0.27 * w)
            .curve(0.0, 0.115 * w, 0.115 * w, 0.0, 0.265 * w, 0.0)
            .curve(0.36 * w, 0.0, 0.45 * w, 0.05 * w, 0.5 * w, 0.14 * w)
            .curve(0.55 * w, 0.05 * w, 0.64 * w, 0.0, 0.735 * w, 0.0)
            .curve(0.885 * w, 0.0, w, 0.115 * w, w, 0.27 * w)
            .curve(w, 0.56 * w, 0.60 * w, 0.80 * w, 0.5 * w, 0.9 * w).close())


def gear(radius, teeth=8):
    """A gear wheel without its hole, centred on the origin."""
    root = radius * 0.76
    out, step = Path(), 360 / teeth
    for i in range(teeth):
        middle = i * step - 90
        out.arc(0, 0, root, middle - step * 0.5, middle - step * 0.27)
        out.arc(0, 0, radius, middle - step * 0.185, middle + step * 0.185)
        out.arc(0, 0, root, middle + step * 0.27, middle + step * 0.5)
    return out.close()


def dashed_ring(radius, width, dashes=12):
    """Dashes round the origin, round-ended, a gap at the top."""
    out, step = Path(), 360 / dashes
    cap = math.degrees(width / 2 / radius)
    length = step * 0.5
    for i in range(dashes):
        middle = -90 + step * (i + 0.5)
        out.add(ring_dash(0, 0, radius, width, middle - length / 2 + cap / 2, middle + length / 2 - cap / 2))
    return out


def candle_parts(height):
    """The maker's mark, a candle of eight bits and its flame; together 0.42 `height` x `height`."""
    cell, gap, flame, row_gap = 0.1725, 0.075, 0.36, 0.05
    middle = 0.21
    left, top = middle - cell - gap / 2, flame + 0.035
    cell_height = (1 - top - 3 * row_gap) / 4
    body = Path()
    for row in range(4):
        for column in range(2):
            body.add(rounded(left + column * (cell + gap), top + row * (cell_height + row_gap),
                             cell, cell_height, 0.03))
    half = 0.135
    light = (Path().move(middle + 0.02, 0)
             .curve(middle + 0.04, 0.09, middle + half, 0.13, middle + half, 0.225)
             .curve(middle + half, 0.30, middle + 0.075, flame, middle, flame)
             .curve(middle - 0.075, flame, middle - half, 0.30, middle - half, 0.225)
             .curve(middle - half, 0.15, middle - 0.02, 0.11, middle + 0.02, 0).close())
    return body.scaled(height), light.scaled(height)


def candle(height):
    """The maker's mark in one piece."""
    body, light = candle_parts(height)
    return Path().add(body).add(light)


def shield(height):
    """A shield, centred on the origin."""
    return (Path().move(0, -0.5).curve(0.13, -0.415, 0.27, -0.375, 0.40, -0.36)
            .curve(0.43, -0.356, 0.45, -0.335, 0.45, -0.305).line(0.45, -0.02)
            .curve(0.45, 0.24, 0.25, 0.41, 0.03, 0.495).curve(0.01, 0.502, -0.01, 0.502, -0.03, 0.495)
            .curve(-0.25, 0.41, -0.45, 0.24, -0.45, -0.02).line(-0.45, -0.305)
            .curve(-0.45, -0.335, -0.43, -0.356, -0.40, -0.36).curve(-0.27, -0.375, -0.13, -0.415, 0, -0.5)
            .close().scaled(height))


def eye(width):
    """The outline of an open eye, centred on the origin."""
    return (Path().move(-0.5, 0).curve(-0.36, -0.24, -0.18, -0.33, 0, -0.33).curve(0.18, -0.33, 0.36, -0.24, 0.5, 0)
            .curve(0.36, 0.24, 0.18, 0.33, 0, 0.33).curve(-0.18, 0.33, -0.36, 0.24, -0.5, 0).close().scaled(width))
