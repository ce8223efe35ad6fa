"""The still pictures of the bundle, each drawn in points.

A template's colour does not matter: whoever shows it keeps its alpha and puts a tint in."""

from .canvas import BLACK, WHITE
from .marks import candle, dashed_ring, gear, handset, heart
from .path import Path, circle, rounded, squircle
from .text import font, line

BLUE = (0, 122, 255)
GREEN = (76, 217, 100)
RED = (255, 59, 48)


def nav_bar_logo(c):
    """Template: the maker's mark and name for the middle of the navigation bar."""
    height, size = 24.0, 18.5
    mark = 0.42 * height
    word, width = line("Tallowbyte", "SemiBold", size, -0.2)
    left = (120 - mark - 6 - width) / 2
    c.fill(candle(height).moved(left, 1.5), BLACK)
    c.fill(word.moved(left + mark + 6, 14 + font("SemiBold").cap * size / 2 + 0.6), BLACK)


def bar_heart(c):
    """Template: an outlined heart for the navigation bar's right button."""
    c.stroke(heart(20.2).moved(0.9, 1.1), 1.6, BLACK)


def white_gear(c):
    """A white gear for a red row."""
    wheel = gear(10.6).moved(14.5, 14.5)
    c.stroke(wheel, 1.4, WHITE)
    c.fill(wheel, WHITE)
    c.cut(circle(14.5, 14.5, 4.3))


def application_icon(c, size=29.0):
    """A quiet call: a receiver inside a ring that is not closed."""
    k = size / 29
    c.gradient(squircle(0, 0, size), (0, 0), (0, size), [(0, (74, 82, 99)), (1, (30, 34, 43))])
    c.fill(dashed_ring(10.6 * k, 1.6 * k).moved(size / 2, size / 2), GREEN)
    c.fill(handset(14 * k).moved(size / 2, size / 2), WHITE)


# name: (width and height in points, how to draw it)
STILLS = {
    "tallowbyteLogoNavBar": ((120, 28), nav_bar_logo),
    "heart": ((22, 20), bar_heart),
    "gear-white": ((29, 29), white_gear),
    "icon": ((29, 29), application_icon),
}
