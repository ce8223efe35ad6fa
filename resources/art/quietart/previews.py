"""The animated previews: what each choice does on the dialler's foot and on the system-wide call screen."""

from . import hand, phone
from .canvas import Canvas
from .motion import arrive, between, ease, leave, part, spring
from .path import rounded

SCALE = 2
FRAME = 3       # hundredths of a second, while things move


class Preview:
    """One animation: `length` seconds, the last of `rest` seconds a still."""
    size = pixels = None
    length = 3.0
    last_move = 2.4

    def __init__(self):
        self._still = None

    def frames(self):
        """The frames as rows of red, green, blue, and how long each shows."""
        count = round(self.last_move * 100 / FRAME)
        for i in range(count):
            yield self.frame(i * FRAME / 100), FRAME
        yield self.frame(self.last_move), round(self.length * 100) - count * FRAME

    def frame(self, t):
        c = Canvas(*self.size, SCALE, self.pixels)
        if self._still is None:
            still = Canvas(*self.size, SCALE, self.pixels)
            self.ground(still)
            self._still = still.surface
        c.ctx.save()
        c.ctx.scale(1 / SCALE, 1 / SCALE)
        c.ctx.set_source_surface(self._still)
        c.ctx.paint()
        c.ctx.restore()
        self.action(c, t)
        return c.pixels()[..., :3]

    def ground(self, c):
        """Draws what never moves."""

    def action(self, c, t):
        """Draws everything else as it is at `t`."""


class Dial(Preview):
    size, pixels = (345, 250), (690, 500)
    row, radius = 152.0, 31.0
    columns = (84.5, 172.5, 260.5)
    caption_gap = 45.0

    def ground(self, c):
        c.fill(rounded(0, 0, 345, 250, 0), phone.WHITE)
        for x, digit, letters in zip(self.columns, "789", ("PQRS", "TUV", "WXYZ")):
            phone.key(c, x, 3, self.radius, digit, letters)
        for x, digit, letters in zip(self.columns, "*0#", ("", "+", "")):
            phone.key(c, x, 75, self.radius, digit, letters)
        phone.delete_key(c, self.columns[2], self.row, 24)
        phone.tab_bar(c, 345, 205, 45)

    def caption(self, c, shown):
        if shown > 0:
            phone.text(c, "Call Anonymously", "Medium", 11, self.columns[0], self.row + self.caption_gap,
                       phone.GREY, shown)


class DialSwipe(Dial):
    length, last_move = 3.2, 2.55

    def action(self, c, t):
        green, free = self.columns[1], self.columns[0]
        swipe = ease(t, 0.95, 0.62)
        touch = ease(t, 0.72, 0.14) - ease(t, 1.62, 0.16)
        x = between(green, free, swipe)
        if swipe > 0:
            phone.anonymous_button(c, x, self.row, self.radius)
        self.caption(c, ease(t, 1.5, 0.3))
        phone.chevrons(c, (green + free) / 2, self.row, ease(t, 1.7, 0.3), phone.BLUE)
        phone.call_button(c, green, self.row, self.radius, (ease(t, 0.72, 0.14) - ease(t, 1.0, 0.2)))
        phone.ripple(c, green, self.row, 14, 46, part(t, 0.82, 0.5))
        coming, going = arrive(t, 0.15, 0.6), ease(t, 1.75, 0.75)
        fx = between(between(330, x + 4, coming), 200, going)
        fy = between(between(300, self.row + 8, coming), 208, going)
        hand.draw(c, fx, fy, 1.12, lift=1 - touch)


PREVIEWS = {"Style-0": DialSwipe}
