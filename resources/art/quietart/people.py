"""The portraits of the two people in the credits, 80 x 80 points."""

from .path import Path, circle, ring, rounded

DARK = (45, 38, 40)

BODY = (Path().move(8, 90).curve(8, 69, 22, 62, 40, 62).curve(58, 62, 72, 69, 72, 90).close())
HEAD = (Path().move(26, 32).curve(26, 19, 32, 14, 40, 14).curve(48, 14, 54, 19, 54, 32)
        .curve(54, 46, 47.5, 54.5, 40, 54.5).curve(32.5, 54.5, 26, 46, 26, 32).close())


def _bust(c, ground, shirt, collar, skin, shade):
    c.fill(circle(40, 40, 40), ground)
    c.ctx.save()
    c.clip(circle(40, 40, 40))
    c.fill(BODY, shirt)
    c.fill(Path().move(29, 63.2).curve(31, 70, 49, 70, 51, 63.2).line(47, 61).line(33, 61).close(), collar)
    c.fill(rounded(33.2, 44, 13.6, 22.6, 6.6), shade)
    c.fill(circle(25.8, 35.5, 3.7), shade)
    c.fill(circle(54.2, 35.5, 3.7), shade)
    c.fill(HEAD, skin)


def _face(c, brow, shade, smile=DARK):
    for side in (-1, 1):
        c.fill(circle(40 + 6.4 * side, 34.2, 1.55), DARK)
        arch = Path().move(3.9 * side, 29.4).curve(5.4 * side, 28.2, 7.6 * side, 28.2, 9 * side, 29.4)
        c.stroke(arch.moved(40, 0), 1.4, brow)
    c.stroke(Path().move(40.4, 35.4).curve(41.6, 37.6, 42, 39.2, 39.6, 39.5), 1.3, shade)
    c.stroke(Path().move(36, 44.4).curve(38, 46.8, 42, 46.8, 44, 44.4), 1.6, smile)


def orlan(c):
    """Glasses, a short beard, hair parted at the side."""
    skin, shade, hair = (247, 206, 172), (228, 174, 136), (112, 68, 44)
    _bust(c, (255, 214, 140), (52, 73, 110), (41, 58, 90), skin, shade)
    beard = (Path().move(26, 33).curve(27.6, 37.5, 29.5, 40.4, 33.2, 40.4).curve(36.5, 40.4, 38, 39.6, 40, 40.6)
             .curve(42, 39.6, 43.5, 40.4, 46.8, 40.4).curve(50.5, 40.4, 52.4, 37.5, 54, 33)
             .curve(54.6, 49, 48.5, 57.5, 40, 57.5).curve(31.5, 57.5, 25.4, 49, 26, 33).close())
    c.fill(beard, hair)
    _face(c, hair, shade, smile=(255, 238, 226))
    for side in (-1, 1):
        c.fill(ring(40 + 6.6 * side, 34.2, 5.6, 4.4), DARK)
    c.stroke(Path().move(38.8, 33.4).curve(39.5, 32.7, 40.5, 32.7, 41.2, 33.4), 1.2, DARK)
    c.fill(Path().move(24.4, 33).curve(22.6, 22, 25.5, 12.5, 34, 10.6).curve(39, 7.4, 52, 8.4, 54.6, 16)
           .curve(57, 20, 56.8, 27, 55.6, 33).curve(54.6, 29.5, 54.4, 27, 53, 23.8)
           .curve(47, 23.6, 38.5, 22.4, 34.6, 18.4).curve(33, 22.4, 28.6, 24.6, 27, 26)
           .curve(26.2, 28.4, 25.8, 30.4, 24.4, 33).close(), hair)
    c.ctx.restore()


def tavish(c):
    """Curly hair, a striped scarf."""
    skin, shade, hair = (164, 106, 70), (134, 82, 52), (38, 30, 32)
    _bust(c, (150, 214, 196), (214, 84, 72), (168, 58, 52), skin, shade)
    _face(c, hair, shade)
    scarf = rounded(25, 56, 30, 10.5, 5.2)
    c.fill(scarf, (245, 240, 230))
    c.ctx.save()
    c.clip(scarf)
    for i in range(5):
        c.stroke(Path().move(26.5 + i * 6.6, 68).line(30.5 + i * 6.6, 55), 2.5, (52, 120, 132))
    c.ctx.restore()
    for x, y, r in ((26.5, 27, 4.6), (26, 20.5, 5.4), (30, 14.6, 6), (36.6, 11.4, 6.2), (43.6, 11.4, 6.2),
                    (50, 14.8, 6), (54, 20.6, 5.4), (53.5, 27, 4.6), (33, 18.5, 5.6), (40, 16.6, 6.4), (47, 18.5, 5.6)):
        c.fill(circle(x, y, r), hair)
    c.ctx.restore()
