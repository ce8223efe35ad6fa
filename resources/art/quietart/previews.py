"""The animated previews: what each choice does on the dialler's foot and on the system-wide call screen."""

from . import hand, phone
from .canvas import Canvas
from .motion import arrive, between, ease, part, spring
from .path import rounded

SCALE = 2
FRAME = 3       # hundredths of a second, while things move


class Preview:
    """One animation of `length` seconds, in which nothing moves after `last_move`."""
    size = pixels = None        # in points, in pixels
    length = last_move = 0.0

    def frames(self):
        """The frames as rows of red, green, blue, each with the hundredths of a second that it shows."""
        still = self._canvas()
        self.ground(still)
        count = round(self.last_move * 100 / FRAME)
        for i in range(count):
            yield self._frame(still, i * FRAME / 100), FRAME
        yield self._frame(still, self.last_move), round(self.length * 100) - count * FRAME

    def _canvas(self):
        return Canvas(*self.size, SCALE, self.pixels)

    def _frame(self, still, t):
        c = self._canvas()
        c.paint(still)
        self.action(c, t)
        return c.pixels()[..., :3]

    def ground(self, c):
        """Draws what never moves."""

    def action(self, c, t):
        """Draws everything else as it is at `t`."""


class Calling(Preview):
    """A screen with a green button and, in the slot to its left, the one that calls anonymously."""
    row = radius = green = slot = caption_gap = 0.0
    caption_colour = ring_track = arrow = phone.GREY

    def anonymous(self, c, x, pressed=0.0, size=1.0):
        phone.anonymous_button(c, x, self.row, self.radius * size, pressed)

    def call(self, c, pressed=0.0, size=1.0):
        phone.call_button(c, self.green, self.row, self.radius * size, pressed)

    def caption(self, c, shown):
        if shown > 0:
            phone.text(c, "Call Anonymously", "Medium", 11, self.slot, self.row + self.caption_gap,
                       self.caption_colour, shown)

    def finger(self, c, x, y, lift):
        hand.draw(c, x, y, 1.12, lift=lift)


class Swipe(Calling):
    """The finger drags the second button out from under the first one."""
    length, last_move = 3.2, 2.4

    def action(self, c, t):
        press, let_go = ease(t, 0.72, 0.14), ease(t, 1.66, 0.16)
        x = between(self.green, self.slot, ease(t, 0.95, 0.66))
        if t > 0.95:
            self.anonymous(c, x)
        middle = (self.green + self.slot) / 2
        self.caption(c, ease(t, 1.5, 0.3))
        phone.chevrons(c, middle, self.row, ease(t, 1.75, 0.3), self.arrow)
        self.call(c, press - ease(t, 1.0, 0.2))
        phone.ripple(c, self.green, self.row, self.radius + 3, self.radius + 17, part(t, 0.82, 0.45))
        coming, going = arrive(t, 0.1, 0.62), ease(t, 1.8, 0.55)
        self.finger(c, between(between(self.green + 160, x + 4, coming), middle + 9, going),
                    between(between(self.row + 150, self.row + 9, coming), self.row + 21, going),
                    1 - press + let_go)


class Hold(Calling):
    """The finger rests on the green button until a ring has gone round it."""
    length, last_move = 3.2, 2.55

    def action(self, c, t):
        press = ease(t, 0.72, 0.14)
        out = spring(t, 1.78, 0.7)
        if t > 1.78:
            self.anonymous(c, between(self.green, self.slot, out), 0, between(0.8, 1, ease(t, 1.78, 0.3)))
        self.caption(c, ease(t, 2.1, 0.3))
        if press > 0:
            phone.hold_ring(c, self.green, self.row, self.radius + 4.5, ease(t, 0.86, 0.9) if t > 0.86 else 0,
                            self.ring_track, press)
        self.call(c, 0.75 * press)
        phone.ripple(c, self.green, self.row, self.radius + 5, self.radius + 19, part(t, 1.76, 0.45))
        coming = arrive(t, 0.1, 0.62)
        self.finger(c, between(self.green + 160, self.green + 11, coming),
                    between(self.row + 150, self.row + 12, coming), 1 - press)


class Always(Calling):
    """Both buttons stand there from the start; the finger presses the second one."""
    length, last_move = 3.0, 2.4

    def action(self, c, t):
        def beat(start):
            return 1 + 0.07 * (ease(t, start, 0.16) - ease(t, start + 0.16, 0.22))
        touch, let_go = ease(t, 1.26, 0.14), ease(t, 1.68, 0.16)
        self.caption(c, 1)
        self.call(c, 0, beat(0.15))
        phone.hold_ring(c, self.slot, self.row, self.radius + 4.5, 1, phone.BLUE, touch)
        self.anonymous(c, self.slot, touch, beat(0.33) * (1 - 0.06 * (touch - let_go)))
        phone.ripple(c, self.slot, self.row, self.radius + 5, self.radius + 19, part(t, 1.38, 0.5))
        coming, going = arrive(t, 0.55, 0.68), ease(t, 1.8, 0.55)
        middle = (self.green + self.slot) / 2
        self.finger(c, between(between(self.slot + 170, self.slot + 9, coming), middle + 11, going),
                    between(between(self.row + 150, self.row + 12, coming), self.row + 24, going),
                    1 - touch + let_go)


class Dial(Calling):
    """The foot of the dialler's keypad."""
    size, pixels = (345, 250), (690, 500)
    row, radius, green, slot, caption_gap = 151.0, 31.0, 172.5, 84.5, 47.0
    ring_track, arrow = (209, 228, 255), phone.BLUE

    def ground(self, c):
        c.fill(rounded(0, 0, 345, 250, 0), phone.WHITE)
        columns = (84.5, 172.5, 260.5)
        for x, digit, letters in zip(columns, "789", ("PQRS", "TUV", "WXYZ")):
            phone.key(c, x, 3, self.radius, digit, letters)
        for x, digit, letters in zip(columns, "*0#", ("", "+", "")):
            phone.key(c, x, 75, self.radius, digit, letters)
        phone.delete_key(c, columns[2], self.row, 25)
        phone.tab_bar(c, 345, 205, 45)


class Screen(Calling):
    """The system-wide call screen."""
    size, pixels = (295, 537.5), (590, 1075)
    row, radius, green, slot, caption_gap = 397.0, 33.0, 238.5, 147.5, 52.0
    caption_colour, ring_track, arrow = (190, 196, 208), (58, 70, 96), (64, 156, 255)
    question = "Are you sure you want to call?"

    def ground(self, c):
        c.gradient(rounded(0, 0, 295, 538, 0), (0, 0), (0, 537.5), [(0, (43, 51, 68)), (1, (22, 26, 36))])
        phone.status_bar(c, 295)
        phone.portrait(c, 147.5, 118, 44)
        phone.text(c, "Nora Winther", "Regular", 27, 147.5, 200, phone.WHITE, tracking=-0.3)
        phone.text(c, "mobile 555 0134", "Regular", 14.5, 147.5, 224, self.caption_colour)
        c.fill(rounded(24, 276, 247, 0.5, 0), (74, 84, 106))
        phone.text(c, self.question, "SemiBold", 16.5, 147.5, 316, phone.WHITE, tracking=-0.1)
        phone.cancel_button(c, 56.5, self.row, self.radius)
        for x, words in ((56.5, "Cancel"), (self.green, "Call")):
            phone.text(c, words, "Medium", 11, x, self.row + self.caption_gap, self.caption_colour)
        c.fill(rounded(97.5, 525, 100, 4, 2), phone.WHITE)


class DialSwipe(Dial, Swipe):
    pass


class DialHold(Dial, Hold):
    pass


class DialAlways(Dial, Always):
    pass


class ScreenSwipe(Screen, Swipe):
    pass


class ScreenHold(Screen, Hold):
    pass


class ScreenAlways(Screen, Always):
    question = "How would you like to call?"


PREVIEWS = {
    "Style-0": DialSwipe, "Style-1": DialHold, "Style-2": DialAlways,
    "SystemWideStyle-0": ScreenSwipe, "SystemWideStyle-1": ScreenHold, "SystemWideStyle-2": ScreenAlways,
}
