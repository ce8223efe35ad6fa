"""How things move in time: each function gives how far a move has come, for a time in seconds."""

import math


def part(t, start, length):
    return min(1.0, max(0.0, (t - start) / length))


def ease(t, start, length):
    """Sets off and arrives gently."""
    p = part(t, start, length)
    return p * p * p * (p * (6 * p - 15) + 10)


def arrive(t, start, length):
    """Quick at first, then settles."""
    return 1 - (1 - part(t, start, length)) ** 3


def spring(t, start, length):
    """Arrives a little beyond its goal and swings back."""
    p = part(t, start, length)
    if p in (0.0, 1.0):
        return p
    return 1 - math.exp(-6.2 * p) * math.cos(7.6 * p)


def between(a, b, p):
    return a + (b - a) * p
