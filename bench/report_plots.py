"""The pictures of the report, in SVG."""

import math

from report_rows import lower_quartile
from report_tables import groups_of, means_of


BARS = (("best", "gfx", "#1f4e79"), ("avx2 best", "gfx-avx2", "#6f9bc8"),
        ("base", "gfx-base", "#c3d5e8"))
LEFT, TOP, ACROSS, STEP, THICK = 110, 58, 620, 44, 11
LOW, HIGH = 0.01, 4.0


def place(ratio):
    """Where a ratio lies on the logarithmic axis of plot_means."""
    ratio = min(max(ratio, LOW), HIGH)
    return LEFT + ACROSS * math.log(ratio / LOW) / math.log(HIGH / LOW)


def means_legend():
    out, x = [], LEFT
    for _, label, color in BARS:
        out.append(f'<rect x="{x}" y="31" width="12" height="10" fill="{color}"/>'
                   f'<text x="{x + 17}" y="40">{label}</text>')
        x += 95
    return out + [f'<path d="M{x + 6} 30v12" stroke="#b03030" stroke-width="2"/>'
                  f'<text x="{x + 17}" y="40">limit</text>']


def means_axis(bottom):
    out = []
    for tick in (0.01, 0.02, 0.05, 0.1, 0.2, 0.5, 1, 2, 4):
        heavy = 'stroke="#444"' if tick == 1 else 'stroke="#ddd"'
        out.append(f'<path d="M{place(tick):.1f} {TOP - 6}V{bottom}" {heavy}/>'
                   f'<text x="{place(tick):.1f}" y="{bottom + 16}" text-anchor="middle">{tick:g}</text>')
    return out


def group_bars(name, means, y):
    out = [f'<text x="{LEFT - 8}" y="{y + 22}" text-anchor="end">{name}</text>']
    for j, (key, label, color) in enumerate(BARS):
        if means[key]:
            out.append(f'<rect x="{LEFT}" y="{y + THICK * j}" width="{place(means[key]) - LEFT:.1f}" '
                       f'height="{THICK - 1}" fill="{color}"><title>{name} {label} '
                       f'{means[key]:.2f}</title></rect>')
    if means["best"]:
        out.append(f'<text x="{place(means["best"]) + 5:.1f}" y="{y + 9}" font-size="10">'
                   f'{means["best"]:.2f}</text>')
    if means["limit best"]:
        out.append(f'<path d="M{place(means["limit best"]):.1f} {y - 1}v{3 * THICK + 1}" '
                   'stroke="#b03030" stroke-width="2"/>')
    return out


def plot_means(rows):
    """Bars per group: ratio to the best peer on a logarithmic axis, the best peer at 1."""
    groups = [(name, means_of(members)) for name, members in groups_of(rows).items()]
    groups = [(name, means) for name, means in groups if means["best"]]
    bottom = TOP + STEP * (len(groups) + 1)
    out = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{LEFT + ACROSS + 60}" '
           f'height="{bottom + 34}" font-family="sans-serif" font-size="12" fill="#222">',
           '<rect width="100%" height="100%" fill="#fff"/>',
           f'<text x="{LEFT}" y="20" font-size="14">Time relative to the best peer, geometric mean '
           'of each group (shorter is faster)</text>']
    out += means_legend() + means_axis(bottom)
    for i, (name, means) in enumerate(groups + [("all", means_of(rows))]):
        out += group_bars(name, means, TOP + STEP * i)
    return "\n".join(out + ["</svg>", ""])


class Panel:
    """One operation's costs over the widths, from 0 upwards, and a frame with marks around them."""

    WIDTH, HEIGHT, WIDEST = 380, 200, 64

    def __init__(self, title, left, top, series):
        self.title, self.left, self.top, self.series = title, left, top, series
        self.highest = max(cost for costs, _ in series for cost in costs.values()) * 1.05

    def at(self, n, cost):
        x = self.left + self.WIDTH * n / self.WIDEST
        y = self.top + self.HEIGHT * (1 - cost / self.highest)
        return f"{x:.1f} {y:.1f}"

    def draw(self):
        out = [f'<text x="{self.left}" y="{self.top - 8}">{self.title}, ns a row of pixels</text>']
        for n in range(0, self.WIDEST + 1, 8):
            out.append(f'<path d="M{self.at(n, 0)}L{self.at(n, self.highest)}" stroke="#ddd"/>'
                       f'<text x="{self.at(n, 0).split()[0]}" y="{self.top + self.HEIGHT + 15}" '
                       f'text-anchor="middle" font-size="10">{n}</text>')
        for share in (0, 0.5, 1):
            cost = self.highest * share
            out.append(f'<text x="{self.left - 6}" y="{self.at(0, cost).split()[1]}" '
                       f'text-anchor="end" font-size="10">{cost:.1f}</text>')
        for costs, color in self.series:
            path = "L".join(self.at(n, cost) for n, cost in sorted(costs.items()))
            out.append(f'<path d="M{path}" fill="none" stroke="{color}" stroke-width="1.5"/>')
        return out


def plot_widths(widths):
    """Curves of every series, a panel an operation, a colour a format."""
    colors = {"32": "#1f4e79", "565": "#c06020", "8": "#3a8a4a"}
    panels = {}
    for column, points in widths.items():
        operation, form = column.split("-")
        costs = {n: lower_quartile(times) for n, times in points.items()}
        panels.setdefault(operation, []).append((costs, colors[form]))
    across, down = Panel.WIDTH + 70, Panel.HEIGHT + 55
    lines = (len(panels) + 1) // 2
    out = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{2 * across + 10}" '
           f'height="{40 + lines * down}" font-family="sans-serif" font-size="12" fill="#222">',
           '<rect width="100%" height="100%" fill="#fff"/>']
    for i, (form, color) in enumerate(colors.items()):
        out.append(f'<rect x="{50 + 80 * i}" y="12" width="12" height="10" fill="{color}"/>'
                   f'<text x="{67 + 80 * i}" y="21">{form} bits</text>'.replace("565 bits", "5-6-5"))
    for i, (operation, series) in enumerate(panels.items()):
        out += Panel(operation, 50 + i % 2 * across, 56 + i // 2 * down, series).draw()
    return "\n".join(out + ["</svg>", ""])
