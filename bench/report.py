#!/usr/bin/env python3
"""Turns the benchmark's JSON into docs/benchmarks.md and docs/benchmarks.svg.

Takes the lower quartile of the repetitions, finds the best peer of each row and the geometric means
of each group, and marks rows in which a peer is ahead. Uses the standard library alone.
"""

import argparse
import json
import math
import pathlib
import re
import statistics

# Axis of growth: what its numbers count, and the unit of a cost divided by them.
AXES = {
    "pixels": ("A rectangle of n pixels", "ns/px"),
    "width": ("Rectangles n pixels wide, 64 rows high, in 32 bits", "ns/row"),
    "steps": ("A line of n steps", "ns/step"),
    "visible": ("A line of 1,000 steps, n per cent of it inside the clip rectangle", "ns/line"),
    "glyphs": ("Text when the cache holds n glyphs", "ns/glyph"),
    "cores": ("A picture of 1920x1080 as strips on n cores (by the clock on the wall)", "ns/px"),
}

OURS = ("gfx", "gfx-avx2", "gfx-base")
NEVER_SLOWER = 1.03  # than the best peer: rows above it are marked


def unit_of(row):
    """The unit a row is given in, and how many of it make a nanosecond."""
    first = row.split()[0]
    if first == "line":
        return "ns/line", 1
    if first.startswith("text"):
        return "ns/glyph", 1
    if first == "pixel":
        return "ns/px", 1
    if re.search(r"\b(1x1|16x16)\b", row):
        return "ns/rect", 1
    return "ps/px", 1000


def group_of(row):
    words = row.split()
    return " ".join(w for w in words if w in ("line", "alias", "aa")) if words[0] == "line" else words[0]


def read_runs(path):
    """Times per item in ns, one a repetition: {(row, library): [...]}, {axis: {column: {n: [...]}}}.
    Rows stand in the order of the benchmark's list, which runs in random order."""
    runs, growth = {}, {}
    with open(path, encoding="utf-8") as file:
        data = json.load(file)
    for run in sorted(data["benchmarks"], key=lambda run: run["family_index"]):
        if run["run_type"] != "iteration":
            continue
        name = run["run_name"].removesuffix("/real_time").removesuffix("/process_time")
        row, library = name.rsplit("/", 1)
        if row.startswith("growth "):
            _, axis, column, n = row.split()
            clock = "real_time" if run["run_name"].endswith("/real_time") else "cpu_time"
            points = growth.setdefault(axis, {}).setdefault(column, {})
            points.setdefault(int(n), []).append(run[clock] / run["items"])
        else:
            runs.setdefault((row, library), []).append(run["cpu_time"] / run["items"])
    return runs, growth, data["context"]


def lower_quartile(times):
    """Of repetitions: what else runs on the machine only adds time, sometimes to half of them."""
    return sorted(times)[(len(times) - 1) // 4]


def spread(runs):
    """The usual distance between the quartiles of one row's repetitions, relative to the median."""
    distances = []
    for times in runs.values():
        if len(times) >= 4:
            low, middle, high = statistics.quantiles(times, n=4)
            distances.append((high - low) / middle)
    return statistics.median(distances) if distances else 0.0


class Row:
    """One row's times and what follows from them; ratios are None where a side is missing."""

    def __init__(self, name, runs):
        self.name, self.group = name, group_of(name)
        self.unit, self.scale = unit_of(name)
        self.times = {library: lower_quartile(times) for (row, library), times in runs.items()
                      if row == name}
        peers = {library: time for library, time in self.times.items()
                 if library not in OURS and library != "limit"}
        if self.group == "pixel":
            peers.pop("agg", None)  # inlined into the caller
        self.best = min(peers, key=peers.get) if peers else None

    def ratio(self, library, to):
        to = self.best if to == "best" else to
        if library not in self.times or to not in self.times:
            return None
        return self.times[library] / self.times[to]

    def is_behind(self):
        best = self.ratio("gfx", "best")
        return best is not None and best > NEVER_SLOWER


def geometric_mean(values):
    values = [value for value in values if value is not None]
    return math.exp(statistics.fmean(map(math.log, values))) if values else None


def number(value, digits=3):
    """Three figures, no exponent, thousands apart."""
    if value is None:
        return "-"
    decimals = max(0, digits - 1 - math.floor(math.log10(abs(value)))) if value else 0
    return f"{value:,.{min(decimals, 4)}f}"


def ratio_text(value):
    return "-" if value is None else f"{value:.2f}"


def table(header, lines):
    left = "| " + " | ".join(header) + " |"
    rule = "|" + "|".join(" --- " if i == 0 else " ---: " for i in range(len(header))) + "|"
    return "\n".join([left, rule] + ["| " + " | ".join(line) + " |" for line in lines])


def row_table(rows):
    header = ["row", "unit", "gfx", "limit", "best peer", "its time", "gfx / best", "gfx / limit",
              "gfx-avx2", "gfx-base", "ahead of gfx"]
    lines = []
    for row in rows:
        def time(library):
            return number(row.times[library] * row.scale) if library in row.times else "-"
        lines.append([row.name, row.unit, time("gfx"), time("limit"), row.best or "-",
                      time(row.best), ratio_text(row.ratio("gfx", "best")),
                      ratio_text(row.ratio("gfx", "limit")),
                      time("gfx-avx2"), time("gfx-base"), row.best if row.is_behind() else ""])
    return table(header, lines)


def means_of(rows):
    return {
        "best": geometric_mean(row.ratio("gfx", "best") for row in rows),
        "avx2 best": geometric_mean(row.ratio("gfx-avx2", "best") for row in rows),
        "base": geometric_mean(row.ratio("gfx-base", "best") for row in rows),
        "limit": geometric_mean(row.ratio("gfx", "limit") for row in rows),
        "limit best": geometric_mean(row.ratio("limit", "best") for row in rows),
        "avx2": geometric_mean(row.ratio("gfx-avx2", "gfx") for row in rows),
    }


def groups_of(rows):
    groups = {}
    for row in rows:
        groups.setdefault(row.group, []).append(row)
    return groups


def is_full_width(row):
    """Rectangles as wide as their pictures: all large ones but those inside wider pictures."""
    return "inside" not in row.name and re.search(r"256x256|1920x1080", row.name) is not None


def is_added(row):
    """Rows that stand beside the comparison and take no part in its means."""
    return re.search(r"inside|apart", row.name) is not None


def means_table(rows):
    keys = ["best", "avx2 best", "base", "limit", "avx2"]
    header = ["group", "rows", "gfx / best", "gfx-avx2 / best", "gfx-base / best", "gfx / limit",
              "gfx-avx2 / gfx", "a peer ahead"]
    kept = [row for row in rows if not is_added(row)]
    parts = list(groups_of(kept).items()) + [
        ("**all**", kept),
        ("of these, full width", [row for row in kept if is_full_width(row)]),
        ("beside: inside wider pictures", [row for row in rows if "inside" in row.name]),
        ("beside: lines, rows not 4 KiB apart", [row for row in rows if "apart" in row.name])]
    lines = []
    for name, members in parts:
        if members:
            means = means_of(members)
            lines.append([name, str(len(members))] + [ratio_text(means[key]) for key in keys] +
                         [str(sum(row.is_behind() for row in members))])
    return table(header, lines)


def growth_tables(growth):
    parts = []
    for axis, (title, unit) in AXES.items():
        columns = growth.get(axis, {})
        counts = sorted({n for points in columns.values() for n in points})
        lines = [[f"{n:,}"] + [number(lower_quartile(points[n])) if n in points else "-"
                               for _, points in sorted(columns.items())] for n in counts]
        if lines:
            header = ["n"] + [f"{column}, {unit}" for column in sorted(columns)]
            parts.append(f"{title}:\n\n" + table(header, lines))
    return "\n\n".join(parts)


def plot(rows):
    """Bars per group: ratio to the best peer on a logarithmic axis, the best peer at 1."""
    rows = [row for row in rows if not is_added(row)]
    groups = [(name, means_of(members)) for name, members in groups_of(rows).items()]
    groups = [(name, means) for name, means in groups if means["best"]]
    bars = (("best", "gfx", "#1f4e79"), ("avx2 best", "gfx-avx2", "#6f9bc8"),
            ("base", "gfx-base", "#c3d5e8"))
    left, top, width, step, thick = 110, 58, 620, 44, 11
    low, high = 0.01, 4.0
    height = top + step * (len(groups) + 1) + 34

    def at(ratio):
        ratio = min(max(ratio, low), high)
        return left + width * math.log(ratio / low) / math.log(high / low)

    out = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{left + width + 60}" height="{height}" '
           'font-family="sans-serif" font-size="12" fill="#222">',
           '<rect width="100%" height="100%" fill="#fff"/>',
           f'<text x="{left}" y="20" font-size="14">Time relative to the best peer, geometric mean '
           'of each group (shorter is faster)</text>']
    x = left
    for _, label, color in bars:
        out.append(f'<rect x="{x}" y="31" width="12" height="10" fill="{color}"/>'
                   f'<text x="{x + 17}" y="40">{label}</text>')
        x += 95
    out.append(f'<path d="M{x + 6} 30v12" stroke="#b03030" stroke-width="2"/>'
               f'<text x="{x + 17}" y="40">limit</text>')
    bottom = top + step * (len(groups) + 1)
    for tick in (0.01, 0.02, 0.05, 0.1, 0.2, 0.5, 1, 2, 4):
        heavy = 'stroke="#444"' if tick == 1 else 'stroke="#ddd"'
        out.append(f'<path d="M{at(tick):.1f} {top - 6}V{bottom}" {heavy}/>'
                   f'<text x="{at(tick):.1f}" y="{bottom + 16}" text-anchor="middle">{tick:g}</text>')
    for i, (name, means) in enumerate(groups + [("all", means_of(rows))]):
        y = top + step * i
        out.append(f'<text x="{left - 8}" y="{y + 22}" text-anchor="end">{name}</text>')
        for j, (key, label, color) in enumerate(bars):
            if means[key]:
                out.append(f'<rect x="{left}" y="{y + thick * j}" width="{at(means[key]) - left:.1f}" '
                           f'height="{thick - 1}" fill="{color}"><title>{name} {label} '
                           f'{means[key]:.2f}</title></rect>')
        if means["best"]:
            out.append(f'<text x="{at(means["best"]) + 5:.1f}" y="{y + 9}" font-size="10">'
                       f'{means["best"]:.2f}</text>')
        if means["limit best"]:
            out.append(f'<path d="M{at(means["limit best"]):.1f} {y - 1}v{3 * thick + 1}" '
                       'stroke="#b03030" stroke-width="2"/>')
    return "\n".join(out + ["</svg>", ""])


INTRODUCTION = """# Benchmarks

Written by `script/bench`, which measures anew; do not edit.

![Time relative to the best peer](benchmarks.svg)

Every library draws the same work into the same memory, in one process in random order, on one core.
All pictures start at a cache line. Of {repetitions} repetitions the lower quartile of the process's
CPU time counts: what else runs on the machine only adds time.
Read ratios inside a row: absolute times belong to one machine. Before a run the mean colour after
one pass is compared between all libraries (`script/bench --check`).

- **gfx** is the shared library through its public headers, with the best kernels for this
  processor; **gfx-avx2** and **gfx-base** are its kernels for older ones.
- **limit** is the cheapest loop over the same bytes, whatever the arithmetic: memset, memcpy, xor,
  narrowing and widening copies, unclipped integer line steps, the font engine alone.
- **best peer** is the fastest of the other libraries that can do the row. AGG is inlined into the
  caller and left out of the rows of single pixels.
- **ahead of gfx** names the best peer where it takes less than 1 / {never} of the time of gfx.

What the spread means: other programs come and go while this runs, so the quartiles of a row's
repetitions lie {noise} apart. The lower quartiles of two libraries that are equally fast may differ
by half of that: a single ratio between {alike} says that the two are alike, and one of 1.03 says no
more. Means over many rows are steadier, since such differences cancel.

Only libraries that Debian packages are measured, because anyone can install them by name. Among
those left out for that reason are Blend2D, Skia and LVGL.

Rows: 16x16 and 1x1 are 1,024 scattered rectangles on 1024x1024. 256x256, which lies in the
second-level cache, and 1920x1080, which does not, are as wide as their pictures, so that their rows
are one stretch of memory; **inside** are the same rectangles in pictures that are 144 pixels wider. mask-rand has random coverage, mask-glyph 70 % none, 15 % full, 15 % edges;
over blends a source by its alpha (sprite: mostly all visible or all invisible), *0.5 with a global
opacity besides; conv copies between depths; key skips a colour around discs, half of the
pixels. Lines:
1,000 of length 50 or 500 on 1024x1024, whose rows lie 4 KiB apart in 32 bits (**apart**: on a
picture that is 16 pixels wider, where they share no cache set), dashes 6 on and 4 off. Text: 80 glyphs of DejaVu Sans from a warm cache;
cold: open the face and draw 224 glyphs once. pixel: one call a pixel. display: a frame to 16-bit
display memory.

"""


def machine_text(context, facts):
    caches = ", ".join(f"L{c['level']} {c['type'].lower()} {c['size'] // 1024} KiB"
                       for c in context.get("caches", []))
    lines = [f"- Processor: {facts.get('processor', 'unknown')}, {context['num_cpus']} cores; {caches}"]
    for key in ("compiler", "flags", "kernel flags", "peers"):
        if key in facts:
            lines.append(f"- {key.capitalize()}: {facts[key]}")
    return "\n".join(lines)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("json", type=pathlib.Path, help="output of gfx_bench")
    parser.add_argument("--output", type=pathlib.Path, required=True, help="directory written to")
    parser.add_argument("--fact", action="append", default=[], metavar="KEY=TEXT",
                        help="a line about machine and build")
    options = parser.parse_args()

    runs, growth, context = read_runs(options.json)
    rows = [Row(name, runs) for name in dict.fromkeys(name for name, _ in runs)]
    facts = dict(fact.split("=", 1) for fact in options.fact)
    noise = spread(runs)
    text = INTRODUCTION.format(
        repetitions=max(map(len, runs.values()), default=0), never=NEVER_SLOWER,
        noise=f"{noise:.1%}", alike=f"{1 - noise / 2:.2f} and {1 + noise / 2:.2f}")
    text += "## Machine and build\n\n" + machine_text(context, facts) + "\n"
    if rows:
        text += "\n## Geometric means\n\n" + means_table(rows) + "\n\n## Rows\n\n" + row_table(rows) + "\n"
    if growth:
        text += "\n## How cost grows\n\n" + growth_tables(growth) + "\n"
    options.output.mkdir(parents=True, exist_ok=True)
    (options.output / "benchmarks.md").write_text(text, encoding="utf-8")
    (options.output / "benchmarks.svg").write_text(plot(rows), encoding="utf-8")


if __name__ == "__main__":
    main()
