"""Software 2-D graphics: surfaces, fonts, text and shapes, with NumPy views of the pixels.

    >>> import gfx
    >>> surface = gfx.Surface(width=320, height=240)
    >>> surface.rect_fill(x=10, y=10, w=100, h=50, color="#336699")
    >>> surface.pixels[10, 10] == gfx.Color.of("#336699").word
    True

Numbers out of range are ValueErrors; what lies outside a surface is clipped silently.
"""

from ._gfx import (
    AlignX,
    AlignY,
    Canvas,
    Cap,
    Color,
    FillRule,
    Font,
    FontCache,
    GlyphGeom,
    Gradient,
    Join,
    Stroke,
    Surface,
    Turn,
    draw_string,
    draw_string_in_box,
    fit_string,
    measure_string,
    next_line,
)

__all__ = [name for name in dir() if not name.startswith("_")]
