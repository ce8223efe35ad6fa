"""Drawing in points onto pixels, and writing pictures whose bytes depend on nothing but the drawing."""

import cairo
import numpy
from PIL import Image

WHITE = (255, 255, 255)
BLACK = (0, 0, 0)


class Canvas:
    """A transparent picture of `width` x `height` points at `scale` pixels a point."""

    def __init__(self, width, height, scale, pixels=None):
        size = pixels or (round(width * scale), round(height * scale))
        self.surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, *size)
        self.ctx = cairo.Context(self.surface)
        self.ctx.scale(scale, scale)

    def fill(self, path, colour, alpha=1.0, even_odd=False):
        path.trace(self.ctx)
        self.ctx.set_fill_rule(cairo.FILL_RULE_EVEN_ODD if even_odd else cairo.FILL_RULE_WINDING)
        self._colour(colour, alpha)
        self.ctx.fill()

    def stroke(self, path, width, colour, alpha=1.0):
        path.trace(self.ctx)
        self.ctx.set_line_width(width)
        self.ctx.set_line_cap(cairo.LINE_CAP_ROUND)
        self.ctx.set_line_join(cairo.LINE_JOIN_ROUND)
        self._colour(colour, alpha)
        self.ctx.stroke()

    def cut(self, path, even_odd=False):
        """Makes the inside of a path transparent."""
        self.ctx.set_operator(cairo.OPERATOR_DEST_OUT)
        self.fill(path, BLACK, even_odd=even_odd)
        self.ctx.set_operator(cairo.OPERATOR_OVER)

    def cut_stroke(self, path, width):
        self.ctx.set_operator(cairo.OPERATOR_DEST_OUT)
        self.stroke(path, width, BLACK)
        self.ctx.set_operator(cairo.OPERATOR_OVER)

    def gradient(self, path, start, end, stops):
        """Fills with a straight gradient between two points; `stops` are (offset, colour)."""
        pattern = cairo.LinearGradient(*start, *end)
        for offset, colour in stops:
            pattern.add_color_stop_rgb(offset, *(c / 255 for c in colour))
        path.trace(self.ctx)
        self.ctx.set_fill_rule(cairo.FILL_RULE_WINDING)
        self.ctx.set_source(pattern)
        self.ctx.fill()

    def paint(self, other):
        """Puts a canvas of the same size over this one."""
        self.ctx.save()
        self.ctx.identity_matrix()
        self.ctx.set_source_surface(other.surface)
        self.ctx.paint()
        self.ctx.restore()

    def clip(self, path):
        path.trace(self.ctx)
        self.ctx.clip()

    def pixels(self):
        """Rows of red, green, blue, alpha, the colours not multiplied by alpha."""
        self.surface.flush()
        shape = (self.surface.get_height(), self.surface.get_stride() // 4, 4)
        raw = numpy.frombuffer(self.surface.get_data(), numpy.uint8).reshape(shape)
        raw = raw[:, :self.surface.get_width()].astype(numpy.uint32)
        alpha = raw[..., 3:]
        colour = (raw[..., 2::-1] * 255 + alpha // 2) // numpy.maximum(alpha, 1)
        return numpy.concatenate([numpy.minimum(colour, 255), alpha], axis=2).astype(numpy.uint8)

    def _colour(self, colour, alpha):
        self.ctx.set_source_rgba(*(c / 255 for c in colour), alpha)


def write_png(file, pixels):
    Image.fromarray(pixels, "RGBA").save(file, "PNG", compress_level=9)
