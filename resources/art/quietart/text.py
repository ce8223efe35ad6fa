"""Text as outlines of Inter, read from Debian's fonts-inter: no font lookup, no hinting."""

import functools
import os

from fontTools.pens.basePen import BasePen
from fontTools.ttLib import TTFont

from .path import Path

FOLDER = "/usr/share/fonts/opentype/inter"


class _PathPen(BasePen):
    def __init__(self, glyphs):
        super().__init__(glyphs)
        self.path = Path()

    def _moveTo(self, p):
        self.path.move(*p)

    def _lineTo(self, p):
        self.path.line(*p)

    def _curveToOne(self, p1, p2, p3):
        self.path.curve(*p1, *p2, *p3)

    def _closePath(self):
        self.path.close()


class Font:
    def __init__(self, name):
        self._font = TTFont(os.path.join(FOLDER, f"Inter-{name}.otf"))
        self._glyphs = self._font.getGlyphSet()
        self._names = self._font.getBestCmap()
        self._units = self._font["head"].unitsPerEm
        self.cap = self._font["OS/2"].sCapHeight / self._units
        self._kerning = self._pair_tables()

    def _pair_tables(self):
        table = self._font["GPOS"].table
        wanted = {i for record in table.FeatureList.FeatureRecord if record.FeatureTag == "kern"
                  for i in record.Feature.LookupListIndex}
        pairs = []
        for i in sorted(wanted):
            lookup = table.LookupList.Lookup[i]
            for sub in lookup.SubTable:
                sub = sub.ExtSubTable if lookup.LookupType == 9 else sub
                if sub.LookupType == 2:
                    pairs.append((set(sub.Coverage.glyphs), sub))
        return pairs

    def _kern(self, left, right):
        for covered, sub in self._kerning:
            if left not in covered:
                continue
            if sub.Format == 1:
                records = sub.PairSet[sub.Coverage.glyphs.index(left)].PairValueRecord
                value = next((r.Value1 for r in records if r.SecondGlyph == right), None)
                if value is None:
                    continue
            else:
                value = sub.Class1Record[sub.ClassDef1.classDefs.get(left, 0)].Class2Record[
                    sub.ClassDef2.classDefs.get(right, 0)].Value1
            return getattr(value, "XAdvance", 0) or 0
        return 0

    def line(self, text, size, tracking=0.0):
        """One line's outlines with the baseline's start at the origin, and its width.

        `tracking` is the extra space after each character, in points."""
        k = size / self._units
        out, x, last = Path(), 0.0, None
        for character in text:
            name = self._names[ord(character)]
            if last:
                x += self._kern(last, name) * k + tracking
            pen = _PathPen(self._glyphs)
            self._glyphs[name].draw(pen)
            out.add(pen.path.mapped((k, 0, 0, -k, x, 0)))
            x += self._glyphs[name].width * k
            last = name
        return out, x


@functools.lru_cache(None)
def font(name):
    return Font(name)


@functools.lru_cache(None)
def line(text, weight, size, tracking=0.0):
    return font(weight).line(text, size, tracking)


def centred(text, weight, size, x, baseline, tracking=0.0):
    """One line's outlines, centred on x."""
    path, width = line(text, weight, size, tracking)
    return path.moved(x - width / 2, baseline)
