"""The parts of the phone's screens that the previews show, drawn in points."""

from . import marks
from .path import Path, circle, ring, rounded
from .text import centred, font, line

BLUE = (0, 122, 255)
GREEN = (76, 217, 100)
GREEN_PRESSED = (56, 178, 78)
RED = (255, 59, 48)
GREY = (142, 142, 147)
GREY_PRESSED = (104, 104, 110)
KEY = (229, 229, 234)
BLACK = (0, 0, 0)
WHITE = (255, 255, 255)


def text(c, words, weight, size, x, baseline, colour, alpha=1.0, tracking=0.0):
    c.fill(centred(words, weight, size, x, baseline, tracking), colour, alpha)


def blend(a, b, p):
    return tuple(round(u + (v - u) * p) for u, v in zip(a, b))


def key(c, x, y, radius, digit, letters):
    c.fill(circle(x, y, radius), KEY)
    k = radius / 37.5
    if letters:
        text(c, digit, "Regular", 35 * k, x, y + 7.5 * k, BLACK)
        size = 15 if letters == "+" else 9.8
        text(c, letters, "SemiBold" if letters != "+" else "Regular", size * k, x + 0.8 * k, y + 22.5 * k, BLACK,
             tracking=1.6 * k)
    elif digit == "*":
        for angle in (0, 60, 120):
            c.stroke(Path().move(0, -12 * k).line(0, 12 * k).turned(angle).moved(x, y), 2.6 * k, BLACK)
    else:
        text(c, digit, "Regular", 35 * k, x, y + font("Regular").cap * 35 * k / 2, BLACK)


def call_button(c, x, y, radius, pressed=0.0):
    c.fill(circle(x, y, radius), blend(GREEN, GREEN_PRESSED, pressed))
    c.fill(marks.handset(radius * 1.02).moved(x, y), WHITE)


def anonymous_button(c, x, y, radius, pressed=0.0):
    c.fill(circle(x, y, radius), blend(GREY, GREY_PRESSED, pressed))
    c.fill(marks.incognito(radius * 1.34).moved(x, y), WHITE)


def cancel_button(c, x, y, radius):
    c.fill(circle(x, y, radius), RED)
    c.fill(marks.handset(radius * 1.12).turned(135).moved(x, y), WHITE)


def delete_key(c, x, y, size, colour=GREY):
    """The key that takes back a digit: a box with a point to the left and a cross."""
    w, h = size, size * 0.72
    body = (Path().move(x - w * 0.5, y).line(x - w * 0.22, y - h / 2).line(x + w * 0.5, y - h / 2)
            .line(x + w * 0.5, y + h / 2).line(x - w * 0.22, y + h / 2).close())
    c.fill(body, colour)
    c.stroke(body, 3, colour)
    d = h * 0.2
    for s in (-1, 1):
        c.stroke(Path().move(x + w * 0.12 - d, y - d * s).line(x + w * 0.12 + d, y + d * s), 2, WHITE)


def _star(c, x, y, colour):
    points = Path()
    for i in range(5):
        tip = Path().move(0, -10).line(0, -4.2).turned(72 * i).steps
        dip = Path().move(0, -4.4).turned(72 * i + 36).steps
        (points.move if i == 0 else points.line)(*tip[0][1])
        points.line(*dip[0][1])
    points = points.close().moved(x, y + 0.8)
    c.fill(points, colour)
    c.stroke(points, 1.4, colour)


def _clock(c, x, y, colour):
    c.stroke(circle(x, y, 8.9), 1.7, colour)
    c.stroke(Path().move(x, y - 5.2).line(x, y).line(x + 4, y + 2.4), 1.7, colour)


def _person(c, x, y, colour):
    c.stroke(circle(x, y, 8.9), 1.7, colour)
    c.ctx.save()
    c.clip(circle(x, y, 8.9))
    c.fill(circle(x, y - 1.9, 3.4), colour)
    c.fill(circle(x, y + 9.2, 7.1), colour)
    c.ctx.restore()


def _dots(c, x, y, colour):
    for row in range(3):
        for column in range(3):
            c.fill(circle(x + (column - 1) * 7, y + (row - 1) * 7, 2.5), colour)


def _tape(c, x, y, colour):
    for s in (-1, 1):
        c.stroke(circle(x + s * 6.6, y - 0.3, 4.5), 1.7, colour)
    c.stroke(Path().move(x - 6.6, y + 4.2).line(x + 6.6, y + 4.2), 1.7, colour)


TABS = [("Favourites", _star), ("Recents", _clock), ("Contacts", _person), ("Keypad", _dots), ("Voicemail", _tape)]


def tab_bar(c, width, top, height, chosen="Keypad"):
    c.fill(rounded(0, top, width, height, 0), (247, 247, 248))
    c.fill(rounded(0, top, width, 0.5, 0), (196, 196, 196))
    for i, (name, icon) in enumerate(TABS):
        x = width * (i + 0.5) / len(TABS)
        colour = BLUE if name == chosen else GREY
        icon(c, x, top + 17, colour)
        text(c, name, "Medium", 9.4, x, top + 38.5, colour)


def chevrons(c, x, y, shown, colour):
    """Two arrow heads that point to the left: a swipe."""
    for i in range(2):
        cx = x + 3.4 - 6.8 * i
        c.stroke(Path().move(cx + 2.6, y - 5.2).line(cx - 2.6, y).line(cx + 2.6, y + 5.2), 2.3, colour, shown)


def hold_ring(c, x, y, radius, progress, track, shown=1.0, width=3.2):
    """How long a button has been held, as a ring round it that begins with a dot."""
    c.fill(ring(x, y, radius + width / 2, radius - width / 2), track, shown)
    c.stroke(Path().arc(x, y, radius, -90, -90 + 360 * progress), width, BLUE, shown)


def ripple(c, x, y, start, end, progress, colour=BLUE):
    """A ring that widens from a touch and fades."""
    if 0 < progress < 1:
        radius = start + (end - start) * progress
        c.stroke(circle(x, y, radius), 2.6 * (1 - progress) + 1.2, colour, 0.75 * (1 - progress))


def status_bar(c, width):
    words, _ = line("10:24", "SemiBold", 11.5)
    c.fill(words.moved(16, 18), WHITE)
    for i in range(4):
        c.fill(rounded(width - 66 + 4.4 * i, 15.2 - 2 * i, 3, 2.8 + 2 * i, 0.8), WHITE)
    x = width - 43
    c.stroke(rounded(x, 8.9, 22, 9.6, 2.8), 0.9, WHITE, 0.6)
    c.fill(rounded(x + 1.5, 10.4, 16, 6.6, 1.5), WHITE)
    c.fill(rounded(x + 23.4, 12, 1.6, 3.4, 0.8), WHITE, 0.6)


def portrait(c, x, y, radius):
    """Who is to be called: a plain portrait."""
    c.fill(circle(x, y, radius), (122, 139, 173))
    c.ctx.save()
    c.clip(circle(x, y, radius))
    c.fill(circle(x, y - radius * 0.17, radius * 0.36), WHITE)
    c.fill(circle(x, y + radius * 0.98, radius * 0.74), WHITE)
    c.ctx.restore()
