#!/usr/bin/env python3
"""A test rig for a display: draws the screen that it ought to show and compares a capture with it.

Usage: test_rig.py FACE reference OUT.png          writes the reference screen
       test_rig.py FACE compare CAPTURE.png OUT.png  writes where the capture differs

`compare` prints a summary and exits with 1 when a pixel is off by more than the tolerance.
"""

import pathlib
import sys

import gfx
import numpy
import png

WIDTH, HEIGHT = 320, 240
TOLERANCE = 8  # of 255 a channel: what the capture card loses


def reference(face):
    """The screen as the device has to draw it."""
    screen = gfx.Surface(WIDTH, HEIGHT)
    screen.rect_fill(x=0, y=0, w=WIDTH, h=HEIGHT, color="#102030")
    canvas = gfx.Canvas(screen)
    canvas.fill_round_rect((10, 10, 300, 50), 8, gfx.Gradient.linear(
        (10, 0), (310, 0), [(0, "#336699"), (255, "#993366")]))
    canvas.draw_arc((160, 150), 60, 14, start=-120, sweep=180, paint="#44cc88", cap=gfx.Cap.ROUND)
    font = gfx.Font(gfx.FontCache(face, 20))
    gfx.draw_string_in_box(screen, font, 10, 10, 300, 50, "Pressure 4.2 bar", "#ffffff",
                           align_x=gfx.AlignX.CENTER, align_y=gfx.AlignY.MIDDLE)
    return screen


def compare(screen, capture):
    """A surface that shows the differences, how many pixels differ, and the box around them."""
    if capture.shape != (HEIGHT, WIDTH, 3):
        raise ValueError(f"the capture is {capture.shape[1]} x {capture.shape[0]}, "
                         f"not {WIDTH} x {HEIGHT}")
    off = numpy.abs(png.rgb_of(screen.pixels).astype(int) - capture).max(-1) > TOLERANCE
    shown = gfx.Surface(WIDTH, HEIGHT)
    shown.rect_copy(0, 0, WIDTH, HEIGHT, src=screen)
    shown.rect_fill_blend(0, 0, WIDTH, HEIGHT, (0, 0, 0, 170))
    shown.pixels[off] = gfx.Color.of("#ff0000").word
    if not off.any():
        return shown, 0, None
    rows, columns = numpy.nonzero(off)
    x, y = int(columns.min()), int(rows.min())
    box = (x, y, int(columns.max()) - x + 1, int(rows.max()) - y + 1)
    gfx.Canvas(shown).outline_round_rect((x - 4, y - 4, box[2] + 8, box[3] + 8), 3, 2, "#ffcc00")
    return shown, len(rows), box


def main(arguments):
    if len(arguments) == 3 and arguments[1] == "reference":
        pathlib.Path(arguments[2]).write_bytes(png.encode(png.rgb_of(reference(arguments[0]).pixels)))
        return 0
    if len(arguments) != 4 or arguments[1] != "compare":
        print(__doc__, file=sys.stderr)
        return 2
    capture = png.decode(pathlib.Path(arguments[2]).read_bytes())
    shown, count, box = compare(reference(arguments[0]), capture)
    pathlib.Path(arguments[3]).write_bytes(png.encode(png.rgb_of(shown.pixels)))
    if count == 0:
        print("The capture shows the reference.")
        return 0
    print(f"{count} pixels differ, all in x={box[0]} y={box[1]} w={box[2]} h={box[3]}.")
    return 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
