"""The still pictures of the bundle, each drawn in points.

A template's colour does not matter: whoever shows it keeps its alpha and puts a tint in."""

from .canvas import BLACK, WHITE
from .marks import candle, candle_parts, dashed_ring, eye, gear, handset, heart, incognito, shield
from .path import Path, circle, squircle
from .people import orlan, tavish
from .text import font, line

GREEN = (76, 217, 100)
STEEL = (106, 126, 166)
AMBER = (255, 149, 0)


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


def button_disc(c):
    """Template: a disc with the hat and the glasses left out of it."""
    c.fill(circle(36, 36, 33), BLACK)
    c.cut(incognito(50).moved(36, 35.5))


def button_dashes(c):
    """Template: a receiver in a ring of dashes."""
    c.fill(dashed_ring(30.2, 5.2, dashes=10).moved(36, 36), BLACK)
    c.fill(handset(37).moved(36, 36), BLACK)


def button_shield(c):
    """Template: a shield with the receiver left out of it."""
    c.fill(shield(67).moved(36, 36), BLACK)
    c.cut(handset(37).moved(36, 33))


def button_eye(c):
    """Template: a crossed-out eye in a rounded frame."""
    c.stroke(squircle(5.5, 5.5, 61), 5, BLACK)
    c.stroke(eye(42).moved(36, 36), 4.8, BLACK)
    c.fill(circle(36, 36, 7), BLACK)
    slash = Path().move(21, 21).line(51, 51)
    c.cut_stroke(slash.moved(2.4, -2.4), 5.2)
    c.stroke(slash, 5, BLACK)


def credits_logo(c):
    """The maker's mark and name, in colours that stand out on light and dark ground."""
    height, size = 48.0, 32.0
    mark = 0.42 * height
    word, width = line("Tallowbyte", "SemiBold", size, -0.5)
    left = (200 - mark - 11 - width) / 2
    body, flame = candle_parts(height)
    c.fill(body.moved(left, 4), STEEL)
    c.fill(flame.moved(left, 4), AMBER)
    c.fill(word.moved(left + mark + 11, 29.5 + font("SemiBold").cap * size / 2), STEEL)


# name: (width and height in points, how to draw it)
STILLS = {
    "tallowbyteLogoNavBar": ((120, 28), nav_bar_logo),
    "heart": ((22, 20), bar_heart),
    "gear-white": ((29, 29), white_gear),
    "icon": ((29, 29), application_icon),
    "GrayButton1": ((72, 72), button_disc),
    "GrayButton2": ((72, 72), button_dashes),
    "GrayButton3": ((72, 72), button_shield),
    "GrayButton4": ((72, 72), button_eye),
    "tallowbyte-logo": ((200, 56), credits_logo),
    "avatar-orlan": ((80, 80), orlan),
    "avatar-tavish": ((80, 80), tavish),
}
