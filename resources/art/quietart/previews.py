"""The animated previews: what each choice does on the dialler's foot and on the system-wide call screen."""

import functools
import math

from . import hand, phone
from .canvas import Canvas
from .motion import between, ease, part, settle
from .path import rounded

SCALE = 2
HAND = 1.12             # the hand's size
FINGERTIP = 14          # points from the pad of a hovering fingertip to its end
FROM = (90, 150)        # where the hand comes from: so far to the right and down


class Preview:
    """One animation of `length` hundredths of a second: moves, and poses that are held between them.

    A move is drawn in steps of at most `step` hundredths; a pose is one frame, however long it is held. Frames are
    few, since players decode five ahead only where all of them together take no more than 75 MB."""
    size = pixels = None        # in points, in pixels
    length = step = 0
    moves = ()                  # (start, end) in hundredths, in order

    def moments(self):
        """When each frame takes the place of the one before, in hundredths of a second."""
        moments = [0]
        for start, end in self.moves:
            steps = math.ceil((end - start) / self.step)
            moments += [start + round((end - start) * i / steps) for i in range(1, steps + 1)]
        return moments

    def frames(self):
        """The frames as rows of red, green, blue, each with the hundredths of a second that it shows."""
        moments = self.moments()
        for moment, end in zip(moments, [*moments[1:], self.length]):
            yield self.at(moment), end - moment

    def at(self, moment):
        """How it looks so many hundredths of a second after the start."""
        c = self._canvas()
        c.paint(self._still)
        self.action(c, moment / 100)
        return c.pixels()[..., :3]

    def _canvas(self):
        return Canvas(*self.size, SCALE, self.pixels)

    @functools.cached_property
    def _still(self):
        still = self._canvas()
        self.ground(still)
        return still

    def ground(self, c):
        """Draws what never moves."""

    def action(self, c, t):
        """Draws everything else as it is after `t` seconds."""


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
        hand.draw(c, x, y, HAND, lift=lift)

    def coming(self, x, y, far):
        """Where the finger is on its way to (x, y) from where the picture's edge just hides it."""
        (width, height), (right, down) = self.size, FROM
        way = min((width + FINGERTIP - x) / right, (height + FINGERTIP - y) / down)
        return between(x + right * way, x, far), between(y + down * way, y, far)


class Swipe(Calling):
    """The finger drags the second button out from under the first one."""
    length = 320
    moves = ((32, 64), (92, 152), (180, 204))

    def action(self, c, t):
        press, let_go = ease(t, 0.92, 0.12), ease(t, 1.8, 0.24)
        pull = ease(t, 1.0, 0.52)
        x = between(self.green, self.slot, pull)
        if pull > 0:
            self.anonymous(c, x)
        middle = (self.green + self.slot) / 2
        self.caption(c, ease(t, 1.8, 0.24))
        phone.chevrons(c, middle, self.row, ease(t, 1.8, 0.24), self.arrow)
        self.call(c, press - ease(t, 1.08, 0.2))
        phone.ripple(c, self.green, self.row, self.radius + 3, self.radius + 17, part(t, 0.96, 0.4))
        finger_x, finger_y = self.coming(x + 4, self.row + 9, ease(t, 0.32, 0.32))
        going = ease(t, 1.81, 0.23)
        self.finger(c, between(finger_x, middle + 9, going), between(finger_y, self.row + 21, going),
                    1 - press + let_go)


class Hold(Calling):
    """The finger rests on the green button until a ring has gone round it."""
    length = 320
    moves = ((32, 66), (88, 136), (148, 180))

    def action(self, c, t):
        press = ease(t, 0.53, 0.13)
        out = settle(t, 1.48, 0.32)
        if out > 0:
            self.anonymous(c, between(self.green, self.slot, out), 0, between(0.8, 1, ease(t, 1.48, 0.2)))
        self.caption(c, ease(t, 1.58, 0.22))
        if press > 0:
            phone.hold_ring(c, self.green, self.row, self.radius + 4.5, ease(t, 0.88, 0.48), self.ring_track, press)
        self.call(c, 0.75 * press)
        phone.ripple(c, self.green, self.row, self.radius + 5, self.radius + 19, part(t, 1.52, 0.28))
        self.finger(c, *self.coming(self.green + 11, self.row + 12, ease(t, 0.32, 0.32)), 1 - press)


class Always(Calling):
    """Both buttons stand there from the start; the finger presses the second one."""
    length = 300
    moves = ((24, 60), (84, 140), (164, 188))

    def action(self, c, t):
        def beat(start):
            return 1 + 0.07 * (ease(t, start, 0.12) - ease(t, start + 0.12, 0.12))
        touch, let_go = ease(t, 1.08, 0.12), ease(t, 1.64, 0.24)
        self.caption(c, 1)
        self.call(c, 0, beat(0.25))
        phone.hold_ring(c, self.slot, self.row, self.radius + 4.5, 1, phone.BLUE, touch)
        self.anonymous(c, self.slot, touch, beat(0.36) * (1 - 0.06 * (touch - let_go)))
        phone.ripple(c, self.slot, self.row, self.radius + 5, self.radius + 19, part(t, 1.14, 0.26))
        finger_x, finger_y = self.coming(self.slot + 9, self.row + 12, ease(t, 0.84, 0.34))
        going, middle = ease(t, 1.65, 0.23), (self.green + self.slot) / 2
        self.finger(c, between(finger_x, middle + 11, going), between(finger_y, self.row + 24, going),
                    1 - touch + let_go)


class Dial(Calling):
    """The foot of the dialler's keypad."""
    size, pixels = (345, 250), (690, 500)
    step = 3
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
    step = 4
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
