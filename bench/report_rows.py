"""What the repetitions of one row say: its time, its ratios, and how sure they are."""

import math
import statistics

OURS = ("gfx", "gfx-avx2", "gfx-base")
LIMITS = ("limit", "stretch")
LEAST_MARGIN = 0.02  # ratios nearer to 1 than this are level, however quiet the machine was


def lower_quartile(times):
    """Of repetitions: what else runs on the machine only adds time, sometimes to half of them."""
    return sorted(times)[(len(times) - 1) // 4]


def relative_distance(times):
    """The distance between the quartiles relative to the median, None for few repetitions."""
    if len(times) < 4:
        return None
    low, middle, high = statistics.quantiles(times, n=4)
    return (high - low) / middle


def ratio_error(distances, repetitions):
    """The standard error of a ratio of two lower quartiles. For noise like the normal distribution
    the error of one is the quartile distance over the root of the number of repetitions."""
    return math.sqrt(sum(distance**2 for distance in distances) / repetitions)


def geometric_mean(values):
    values = [value for value in values if value is not None]
    return math.exp(statistics.fmean(map(math.log, values))) if values else None


class Row:
    """One row's times and what follows from them; ratios are None where a side is missing."""

    def __init__(self, name, label, runs):
        self.name, self.runs = name, runs
        self.suite, self.group, self.unit, self.layout = label.split(";")
        self.scale = 1000 if self.unit.startswith("ps") else 1
        self.times = {library: lower_quartile(times) for library, times in runs.items()}
        peers = {library: time for library, time in self.times.items()
                 if library not in OURS + LIMITS}
        if self.group == "pixel":
            peers.pop("agg", None)  # inlined into the caller
        self.best = min(peers, key=peers.get) if peers else None

    def ratio(self, library, to):
        to = self.best if to == "best" else to
        if library not in self.times or to not in self.times:
            return None
        return self.times[library] / self.times[to]

    def verdict(self):
        """How gfx stands to the best peer: level within two standard errors of 1."""
        ratio = self.ratio("gfx", "best")
        if ratio is None:
            return ""
        distances = [relative_distance(self.runs[library]) for library in ("gfx", self.best)]
        if None in distances:
            return "unsure"
        margin = max(LEAST_MARGIN, 2 * ratio_error(distances, len(self.runs["gfx"])))
        if abs(ratio - 1) <= margin:
            return "level"
        return "ahead" if ratio < 1 else "behind"


def quartile_distance(rows):
    """The usual distance between the quartiles of one row's repetitions, and their number."""
    distances = [relative_distance(times) for row in rows for times in row.runs.values()]
    distances = [distance for distance in distances if distance is not None]
    repetitions = max((len(times) for row in rows for times in row.runs.values()), default=0)
    return (statistics.median(distances) if distances else None), repetitions
