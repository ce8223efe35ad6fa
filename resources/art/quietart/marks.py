"""The shapes that several pictures share."""

import math

from .path import Path, ring_dash, rounded


def handset(size):
    """A telephone receiver in the pose of a call button, centred on the origin.

    It is an arched handle with a cup at each end, drawn lying and then turned."""
    r, half = 0.62, 0.155           # the handle's middle line and half thickness, of the size
    spread = 47                     # the cups lie this many degrees off the top
    out = Path()
    # Handle: a little thinner in the middle than at the cups.
    out.arc(0, r * 0.72, r + half * 0.86, 270 - spread, 270 + spread)
    out.arc(0, r * 0.66, r - half * 0.72, 270 + spread, 270 - spread).close()
    cup = rounded(-0.175, -0.16, 0.35, 0.40, 0.115)
    for side in (-1, 1):
        a = math.radians(270 + side * spread)
        out.add(cup.turned(side * 38).moved(r * math.cos(a) * 1.01, r * 0.72 + r * math.sin(a) + 0.065))
    return out.moved(0, -0.06).turned(-135).scaled(size)


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


def candle(height):
    """The maker's mark: a candle of eight bits with a flame. Its box is 0.42 `height` x `height`."""
    cell, gap, flame = 0.1725, 0.075, 0.36
    left = (0.42 - 2 * cell - gap) / 2
    out = Path()
    cell_height = (1 - flame - 0.035 - 3 * 0.05) / 4
    for row in range(4):
        for column in range(2):
            out.add(rounded(left + column * (cell + gap), flame + 0.035 + row * (cell_height + 0.05),
                            cell, cell_height, 0.03))
    middle, half = 0.21, 0.135
    out.add(Path().move(middle + 0.02, 0)
            .curve(middle + 0.04, 0.09, middle + half, 0.13, middle + half, 0.225)
            .curve(middle + half, 0.30, middle + 0.075, flame, middle, flame)
            .curve(middle - 0.075, flame, middle - half, 0.30, middle - half, 0.225)
            .curve(middle - half, 0.15, middle - 0.02, 0.11, middle + 0.02, 0).close())
    return out.scaled(height)
