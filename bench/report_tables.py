"""The tables of the report, in Markdown."""

import math

from report_rows import geometric_mean, lower_quartile

# What the means over all main rows, and over the whole pictures, are to be at most.
GOALS = {"best": 0.26, "limit": 1.28, "avx2": 1.4, "base": 1.0}
PICTURE_GOAL = 1.0
KIT_GOAL = 1.0

# Axis of growth: what its numbers count, and the unit of a cost divided by them.
AXES = {
    "pixels": ("A rectangle of n pixels", "ns/px"),
    "steps": ("A line of n steps", "ns/step"),
    "visible": ("A line of 1,000 steps, n per cent of it inside the clip rectangle", "ns/line"),
    "glyphs": ("Text when the cache holds n glyphs", "ns/glyph"),
    "cores": ("A picture of 1920x1080 as strips on n cores (by the clock on the wall)", "ns/px"),
}


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


def time_text(row, library):
    return number(row.times[library] * row.scale) if library in row.times else "-"


def row_table(rows):
    header = ["row", "unit", "gfx", "limit", "best peer", "its time", "gfx / best", "gfx / limit",
              "gfx-avx2", "gfx-base", "gfx is"]
    lines = [[row.name, row.unit, time_text(row, "gfx"), time_text(row, "limit"), row.best or "-",
              time_text(row, row.best), ratio_text(row.ratio("gfx", "best")),
              ratio_text(row.ratio("gfx", "limit")), time_text(row, "gfx-avx2"),
              time_text(row, "gfx-base"), row.verdict()] for row in rows]
    return table(header, lines)


def means_of(rows):
    return {
        "best": geometric_mean(row.ratio("gfx", "best") for row in rows),
        "avx2 best": geometric_mean(row.ratio("gfx-avx2", "best") for row in rows),
        "base": geometric_mean(row.ratio("gfx-base", "best") for row in rows),
        "limit": geometric_mean(row.ratio("gfx", "limit") for row in rows),
        "limit best": geometric_mean(row.ratio("limit", "best") for row in rows),
        "stretch": geometric_mean(row.ratio("gfx", "stretch") for row in rows),
        "avx2": geometric_mean(row.ratio("gfx-avx2", "gfx") for row in rows),
    }


def groups_of(rows):
    groups = {}
    for row in rows:
        groups.setdefault(row.group, []).append(row)
    return groups


def standing(rows):
    """How many rows are ahead of, level with and behind the best peer."""
    verdicts = [row.verdict() for row in rows]
    return [str(verdicts.count(verdict)) for verdict in ("ahead", "level", "behind")]


def means_table(rows):
    keys = ["best", "avx2 best", "base", "limit", "avx2"]
    header = ["group", "rows", "gfx / best", "gfx-avx2 / best", "gfx-base / best", "gfx / limit",
              "gfx-avx2 / gfx", "rows ahead", "level", "behind"]
    lines = []
    for name, members in list(groups_of(rows).items()) + [("**all**", rows)]:
        means = means_of(members)
        lines.append([name, str(len(members))] + [ratio_text(means[key]) for key in keys] +
                     standing(members))
    lines.append(["goal for all, at most", "", f"{GOALS['best']:.2f}", "", f"{GOALS['base']:.2f}",
                  f"{GOALS['limit']:.2f}", f"{GOALS['avx2']:.2f}", "", "", "0"])
    return table(header, lines)


def pictures_mean(title, rows, limit):
    means = means_of(rows)
    counts = "{} ahead, {} level, {} behind".format(*standing(rows))
    return (f"**{title}: gfx / best peer {ratio_text(means['best'])}, gfx / limit "
            f"{ratio_text(means[limit])}** (geometric means of {len(rows)} rows; {counts}).")


def pictures_table(rows, limit):
    header = ["row", "unit", "gfx", "limit", "best peer", "its time", "gfx / best", "gfx / limit",
              "gfx is"]
    return table(header, [
        [row.name, row.unit, time_text(row, "gfx"), time_text(row, limit), row.best or "-",
         time_text(row, row.best), ratio_text(row.ratio("gfx", "best")),
         ratio_text(row.ratio("gfx", limit)), row.verdict()] for row in rows])


def picture_tables(rows):
    """Whole pictures, and the same rectangles inside a wider one, each with means of its own."""
    full = [row for row in rows if row.layout == "full"]
    inside = [row for row in rows if row.suite == "pictures" and row.layout == "inside"]
    text = ""
    if full:
        text += ("\n## Full-width rows\n\nThe rows above and a few more whose rectangle is the whole "
                 "picture, so that its rows follow each other\nwithout a gap. The limit here takes "
                 "the picture in one stretch; limits row by row stand above.\n\n" +
                 pictures_mean("Full-width rows", full, "stretch") +
                 f"\nGoal: no row behind, and gfx / best at most {PICTURE_GOAL:.2f} also in each group:\n\n" + groups_table(full, "stretch") + "\n\n" +
                 pictures_table(full, "stretch") + "\n")
    if inside:
        text += ("\n## The same inside a wider picture\n\nThe rectangle stands 40 pixels from the "
                 "left and right edges and 8 from the upper and lower ones\nof target and source, so "
                 "that nothing can take it in one stretch; the limit goes row by row.\n\n" +
                 pictures_mean("Inside a wider picture", inside, "limit") + "\n\n" +
                 pictures_table(inside, "limit") + "\n")
    return text


def groups_table(rows, limit):
    lines = []
    for name, members in groups_of(rows).items():
        means = means_of(members)
        lines.append([name, str(len(members)), ratio_text(means["best"]), ratio_text(means[limit])] +
                     standing(members))
    return table(["group", "rows", "gfx / best", "gfx / limit", "rows ahead", "level", "behind"],
                 lines)


def pitch_table(rows):
    """Lines on a picture of 1040 columns, beside those of the main rows on 1024."""
    by_name = {row.name: row for row in rows}
    header = ["line", "1024 columns: gfx, ns", "limit", "gfx / best", "1040 columns: gfx, ns",
              "limit", "gfx / limit", "best peer", "gfx / best", "gfx is"]
    lines = []
    for row in rows:
        if row.suite != "pitch":
            continue
        name = row.name.removeprefix("pitch ")
        main = by_name.get(name)
        beside = ["-", "-", "-"] if main is None else [
            time_text(main, "gfx"), time_text(main, "limit"), ratio_text(main.ratio("gfx", "best"))]
        lines.append([name] + beside + [
            time_text(row, "gfx"), time_text(row, "limit"), ratio_text(row.ratio("gfx", "limit")),
            row.best or "-", ratio_text(row.ratio("gfx", "best")), row.verdict()])
    if not lines:
        return ""
    return ("\n## Lines at another pitch\n\nRows of 1024 columns are 4,096 bytes apart in 32 bits and "
            "share the sets of a cache; rows of 1040 do not.\n\n" + table(header, lines) + "\n")


def kit_table(rows):
    """The kit's shapes beside the best peer that draws them."""
    rows = [row for row in rows if row.suite == "kit"]
    if not rows:
        return ""
    header = ["row", "unit", "gfx", "best peer", "its time", "gfx / best", "gfx is"]
    lines = [[row.name, row.unit, time_text(row, "gfx"), row.best or "-", time_text(row, row.best),
              ratio_text(row.ratio("gfx", "best")), row.verdict()] for row in rows]
    counts = "{} ahead, {} level, {} behind".format(*standing(rows))
    return ("\n## The kit\n\nOne anti-aliased shape a pass on 512x512. These rows count in no mean "
            f"above.\n\n**gfx / best peer {ratio_text(means_of(rows)['best'])}** (geometric mean of "
            f"{len(rows)} rows; {counts}). Goal: at most {KIT_GOAL:.2f} in each row.\n\n" +
            table(header, lines) + "\n")


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


def worst_step(costs):
    """The pair of widths n, n + 1 between which the cost grows most, as a share."""
    pairs = [(costs[n + 1] / costs[n], n) for n in costs if n + 1 in costs]
    return max(pairs, default=None)


def worst_inversion(costs):
    """The two widths of which the narrower costs most of the wider one's time."""
    pairs = [(costs[a] / costs[b], a, b) for a in costs for b in costs if a < b]
    return max(pairs, default=None)


def widths_table(widths):
    """A line a series: costs at some widths, the steepest step, the worst inversion."""
    shown = (1, 4, 8, 16, 24, 32, 48, 64)
    header = ["series"] + [f"{n} px" for n in shown] + ["steepest step", "narrow dearer than wide"]
    lines = []
    for column, points in widths.items():
        costs = {n: lower_quartile(times) for n, times in points.items()}
        step, inversion = worst_step(costs), worst_inversion(costs)
        lines.append([column.replace("-", " ")] + [number(costs.get(n)) for n in shown] +
                     ["-" if step is None else f"{step[1]} to {step[1] + 1}: {step[0]:.2f}",
                      "-" if inversion is None or inversion[0] <= 1 else
                      f"{inversion[1]} / {inversion[2]}: {inversion[0]:.2f}"])
    return table(header, lines)
