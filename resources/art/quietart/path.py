"""Outlines that can be drawn with cairo and written into an SVG alike."""

import math


class Path:
    """A list of closed or open outlines in points, y downwards."""

    def __init__(self):
        self.steps = []

    def move(self, x, y):
        self.steps.append(("M", (x, y)))
        return self

    def line(self, x, y):
        self.steps.append(("L", (x, y)))
        return self

    def curve(self, x1, y1, x2, y2, x3, y3):
        self.steps.append(("C", (x1, y1, x2, y2, x3, y3)))
        return self

    def close(self):
        self.steps.append(("Z", ()))
        return self

    def arc(self, cx, cy, r, start, end):
        """Goes on along a circle, angles in degrees; starts a new outline when there is none."""
        pieces = max(1, math.ceil(abs(end - start) / 90 - 1e-9))
        step = math.radians(end - start) / pieces
        k = 4 / 3 * math.tan(step / 4)
        a = math.radians(start)
        x, y = cx + r * math.cos(a), cy + r * math.sin(a)
        if self.steps and self.steps[-1][0] != "Z":
            self.line(x, y)
        else:
            self.move(x, y)
        for _ in range(pieces):
            b = a + step
            self.curve(cx + r * (math.cos(a) - k * math.sin(a)), cy + r * (math.sin(a) + k * math.cos(a)),
                       cx + r * (math.cos(b) + k * math.sin(b)), cy + r * (math.sin(b) - k * math.cos(b)),
                       cx + r * math.cos(b), cy + r * math.sin(b))
            a = b
        return self

    def add(self, other):
        self.steps.extend(other.steps)
        return self

    def mapped(self, matrix):
        """This path through (a, b, c, d, e, f): x' = a x + c y + e, y' = b x + d y + f."""
        a, b, c, d, e, f = matrix
        out = Path()
        for op, v in self.steps:
            moved = []
            for i in range(0, len(v), 2):
                moved += [a * v[i] + c * v[i + 1] + e, b * v[i] + d * v[i + 1] + f]
            out.steps.append((op, tuple(moved)))
        return out

    def moved(self, dx, dy):
        return self.mapped((1, 0, 0, 1, dx, dy))

    def scaled(self, k):
        return self.mapped((k, 0, 0, k, 0, 0))

    def turned(self, degrees):
        s, c = math.sin(math.radians(degrees)), math.cos(math.radians(degrees))
        return self.mapped((c, s, -s, c, 0, 0))

    def trace(self, ctx):
        """Puts the outlines into a cairo context's current path.

        Coordinates are cut to a fixed step: mathematical libraries differ in a sine's last bit, and
        the pixels must not."""
        ctx.new_path()
        for op, v in self.steps:
            v = [round(n, 4) for n in v]
            if op == "M":
                ctx.move_to(*v)
            elif op == "L":
                ctx.line_to(*v)
            elif op == "C":
                ctx.curve_to(*v)
            else:
                ctx.close_path()

    def svg(self):
        """The outlines as the value of an SVG path's `d`."""
        def number(n):
            return f"{round(n, 3) + 0.0:.3f}".rstrip("0").rstrip(".")
        return " ".join(op + " ".join(number(n) for n in v) for op, v in self.steps)


def circle(cx, cy, r):
    return Path().arc(cx, cy, r, 0, 360).close()


def ring(cx, cy, outer, inner):
    """Two circles that run opposite ways, so that either fill rule leaves the middle out."""
    return circle(cx, cy, outer).add(Path().arc(cx, cy, inner, 360, 0).close())


def rounded(x, y, w, h, r):
    r = min(r, w / 2, h / 2)
    return (Path().arc(x + r, y + r, r, 180, 270).arc(x + w - r, y + r, r, 270, 360)
            .arc(x + w - r, y + h - r, r, 0, 90).arc(x + r, y + h - r, r, 90, 180).close())


def capsule(x1, y1, x2, y2, width):
    """A thick line with round ends, as an outline."""
    a = math.degrees(math.atan2(y2 - y1, x2 - x1))
    return Path().arc(x2, y2, width / 2, a - 90, a + 90).arc(x1, y1, width / 2, a + 90, a + 270).close()


def ring_dash(cx, cy, radius, width, start, end):
    """A piece of a ring with round ends; `start` and `end` are where the round ends' centres lie."""
    h = width / 2

    def at(angle):
        return cx + radius * math.cos(math.radians(angle)), cy + radius * math.sin(math.radians(angle))
    return (Path().arc(cx, cy, radius + h, start, end).arc(*at(end), h, end, end + 180)
            .arc(cx, cy, radius - h, end, start).arc(*at(start), h, start + 180, start + 360).close())


def squircle(x, y, size, pieces=64):
    """The rounded square of an application icon: a superellipse, whose corners bend in gradually."""
    half, centre, step = size / 2, (x + size / 2, y + size / 2), 2 * math.pi / pieces
    points = [_superellipse(step * i, half) for i in range(pieces)]
    out = Path().move(centre[0] + points[0][0], centre[1] + points[0][1])
    for a, b in zip(points, points[1:] + points[:1]):
        _join(out, centre, a, b, step)
    return out.close()


def _superellipse(t, half, degree=5):
    """The point at the angle `t`, and how it moves with it."""
    c, s = math.cos(t), math.sin(t)
    sum_ = abs(c) ** degree + abs(s) ** degree
    r = half * sum_ ** (-1 / degree)
    dr = -half * sum_ ** (-1 / degree - 1) * (
        -abs(c) ** (degree - 1) * math.copysign(1, c) * s + abs(s) ** (degree - 1) * math.copysign(1, s) * c)
    return r * c, r * s, dr * c - r * s, dr * s + r * c


def _join(out, centre, a, b, step):
    """A curve between two points that keeps to their tangents."""
    k = step / 3
    out.curve(centre[0] + a[0] + a[2] * k, centre[1] + a[1] + a[3] * k,
              centre[0] + b[0] - b[2] * k, centre[1] + b[1] - b[3] * k, centre[0] + b[0], centre[1] + b[1])
