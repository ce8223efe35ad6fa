"""How things move in time: each function gives how far a move has come, for a time in seconds."""


def part(t, start, length):
    return min(1.0, max(0.0, (t - start) / length))


def ease(t, start, length):
    """Sets off and arrives gently."""
    p = part(t, start, length)
    return p * p * (3 - 2 * p)


def settle(t, start, length):
    """Sets off gently, goes a little beyond its goal and comes back."""
    turn = 0.64 * length
    return 1.07 * ease(t, start, turn) - 0.07 * ease(t, start + turn, length - turn)


def between(a, b, p):
    return a + (b - a) * p
