"""The hand that makes the gestures: the back of a right hand, its index finger stretched out."""

from .path import Path, rounded

SKIN = (247, 206, 172)
SHADE = (228, 174, 136)
LINE = (206, 146, 108)
NAIL = (255, 232, 216)
SLEEVE = (52, 73, 110)
SLEEVE_SHADE = (41, 58, 90)
CUFF = (233, 237, 244)

# All run the same way round, so that together they fill as one.
INDEX = (Path().move(-13, 84).curve(-12.6, 66, -11.9, 48, -11.6, 36).curve(-11.4, 24, -10.6, 13, -10.2, 3)
         .curve(-9.8, -7, -5.8, -11.5, 0, -11.5).curve(5.8, -11.5, 9.8, -7, 10.2, 3)
         .curve(10.6, 13, 11.2, 24, 11.6, 36).curve(12, 50, 12.6, 64, 14, 84).close())
FOLDED = [rounded(10.2, 47, 21.2, 56, 10.4), rounded(30.4, 52, 20.2, 52, 10), rounded(49.6, 61, 17.6, 44, 8.8)]
BACK = (Path().move(-13, 76).line(67.2, 76).line(67.2, 96).curve(68, 128, 58, 150, 54, 172)
        .line(53, 214).line(-1, 214).line(-3, 172).curve(-6, 154, -15, 142, -16, 124)
        .curve(-16.6, 108, -14, 92, -13, 76).close())
THUMB = (Path().move(-3, 172).curve(-9, 150, -33, 122, -41, 97).curve(-45, 85, -43, 77.5, -37, 75)
         .curve(-30.5, 72.5, -26.5, 77.5, -24, 84).curve(-21, 92, -17, 97, -9, 96)
         .line(4, 120).close())
OUTLINE = Path()
for part in [INDEX, *FOLDED, BACK, THUMB]:
    OUTLINE.add(part)
SLEEVE_OUTLINE = rounded(-8, 196, 70, 160, 4)
CUFF_OUTLINE = rounded(-10, 186, 74, 21, 5)
CREASES = [Path().move(11.6, 57).curve(11.8, 68, 12.4, 78, 14.2, 88),
           Path().move(30.8, 62).curve(30.7, 72, 31.2, 80, 32.2, 87),
           Path().move(50, 69).curve(50, 77, 50, 82, 50.6, 88),
           Path().move(-14.6, 96.6).curve(-10, 101, -7, 108, -6, 118)]
NAIL_OUTLINE = rounded(-6.5, -8.8, 13, 15.5, 6.3)


def draw(c, x, y, size=1.0, turn=-22.0, lift=0.0):
    """Puts the fingertip's pad at (x, y), in points. `lift` 0 touches the glass, 1 hovers over it."""
    size *= 1 + 0.07 * lift
    ctx = c.ctx

    def placed(path, dx=0.0, dy=0.0):
        return path.scaled(size).turned(turn).moved(x + dx, y + dy)

    # The shadow falls further away as the hand rises.
    away = 3 + 9 * lift
    for part in (OUTLINE, SLEEVE_OUTLINE):
        c.fill(placed(part, away * 0.6, away), (0, 0, 0), 0.13)
    outline = placed(OUTLINE)
    c.fill(outline, SHADE)
    ctx.save()
    c.clip(outline)
    # Light from the left: the lit side is the outline moved a little that way.
    for part in (INDEX, *FOLDED, THUMB):
        c.fill(placed(part.moved(-2.6, -0.4)), SKIN)
    c.fill(placed(BACK.moved(-4.4, 0)), SKIN)
    ctx.restore()
    for crease in CREASES:
        c.stroke(placed(crease), 1.25 * size, LINE)
    c.fill(placed(NAIL_OUTLINE), NAIL)
    c.fill(placed(SLEEVE_OUTLINE), SLEEVE_SHADE)
    ctx.save()
    c.clip(placed(SLEEVE_OUTLINE))
    c.fill(placed(SLEEVE_OUTLINE.moved(-7, 0)), SLEEVE)
    ctx.restore()
    c.fill(placed(CUFF_OUTLINE), CUFF)
