"""The words of the report."""

from report_rows import LEAST_MARGIN, ratio_error

INTRODUCTION = """# Benchmarks

Written by `script/bench`, which measures anew; do not edit. What each row draws stands in
`bench/rows*.cpp`, how a library draws it in `bench/peer_*.cpp` and `bench/ours*.cpp`, the limits in `bench/limit*.cpp`, and how figures become tables in
`bench/report*.py`.

![Time relative to the best peer](benchmarks.svg)

Every library draws the same work into the same memory, in one process in random order, on one core.
All pictures start at a cache line. Of {repetitions} repetitions the lower quartile of the process's
CPU time counts: what else runs on the machine only adds time.
Read ratios inside a row: absolute times belong to one machine. Before a run the mean colour after
one pass is compared between all libraries (`script/bench --check`).

- **gfx** is the shared library through its public headers, with the best kernels for this
  processor; **gfx-avx2** and **gfx-base** are its kernels for older ones.
- **limit** is the cheapest loop over the same bytes, whatever the arithmetic: memset, memcpy, xor,
  narrowing and widening copies, row by row; unclipped integer line steps; the font engine alone. A
  ratio to it says how far the arithmetic is from free, not what is possible. For
  full-width rows a second limit goes through the whole picture in one stretch: plain 64-byte stores,
  one memcpy, one loop.
- **best peer** is the fastest of the other libraries that can do the row. AGG is inlined into the
  caller and left out of the rows of single pixels.
- **gfx is** ahead of the best peer, behind it, or level with it: the ratio is within two standard
  errors of 1, or within {least:.0%}.
{noise}
Measured are libraries that Debian 12 packages. Well-known ones that it does not package are not
measured, so nothing is said about them: Blend2D, Skia, ThorVG, PlutoVG, LVGL; tiny-skia it packages
as Rust source alone. Of those it does package, GD, Allegro, DirectFB and Evas are not measured
either.

Rows: 16x16 and 1x1 are 1,024 scattered rectangles on 1024x1024; 256x256 and 1920x1080 are whole
pictures, the former inside the second-level cache, the latter not. mask-rand has random coverage,
mask-glyph 70 % none, 15 % full, 15 % edges; over blends a source by its alpha (sprite: mostly all
visible or all invisible), *0.5 with a global opacity besides; conv copies between depths; key skips
a colour around discs, half of the pixels. Lines: 1,000 of length 50 or 500 on 1024x1024, dashes 6
on and 4 off. Text: 80 glyphs of DejaVu Sans from a warm cache; cold: open the face and draw 224
glyphs once. pixel: one call a pixel. display: a frame to 16-bit display memory.

"""

NOISE = """
How sure a ratio is: the quartiles of a row's repetitions usually lie {distance:.1%} apart. One lower
quartile of {repetitions} then has a standard error of about {distance:.1%} / sqrt({repetitions}) = {one:.1%}, a
ratio of two {error:.1%}. A ratio of 1.03 is {times:.1f} standard errors from 1{verdict}.
With 11 repetitions and quartiles 7% apart it is one standard error, which is chance one time in
six; quartiles must lie within 3.5% for it to be two. The best peer is the smallest of several such
figures, which favours it a little. What stays the same in all repetitions, such as where code and
pictures lie, is not in these errors.
"""

WIDTHS = """![Cost of a row of pixels by its width](benchmarks-widths.svg)

gfx alone: 64 rectangles of 16 rows at random places on 272x272, source and mask inside the
second-level cache. Costs in ns a row of pixels. The steepest step is the pair of neighbouring widths
between which the cost grows most; the last column gives two widths of which the narrower takes
longer, where there are such, with the largest ratio.

"""


def introduction(rows, spread):
    distance, repetitions = spread
    noise = ""
    if distance is not None:
        error = ratio_error([distance, distance], repetitions)
        times = 0.03 / error
        verdict = (" and does not tell two equally fast libraries from unequal ones" if times < 2
                   else " and hardly chance")
        noise = NOISE.format(distance=distance, repetitions=repetitions, times=times, error=error,
                             one=ratio_error([distance], repetitions), verdict=verdict)
    return INTRODUCTION.format(repetitions=repetitions, noise=noise, least=LEAST_MARGIN)


def widths_text():
    return WIDTHS


def machine_text(context, facts):
    caches = ", ".join(f"L{c['level']} {c['type'].lower()} {c['size'] // 1024} KiB"
                       for c in context.get("caches", []))
    lines = [f"- Processor: {facts.get('processor', 'unknown')}, {context['num_cpus']} cores; {caches}"]
    for key in ("compiler", "flags", "kernel flags", "peers"):
        if key in facts:
            lines.append(f"- {key.capitalize()}: {facts[key]}")
    return "\n".join(lines)
