#!/usr/bin/env python3
"""Turns the benchmark's JSON into docs/benchmarks.md and its pictures.

Takes the lower quartile of the repetitions, finds the best peer of each row and the geometric means
of each group, and says which goals are met. Uses the standard library alone.
"""

import argparse
import json
import pathlib
import re

from report_plots import plot_means, plot_widths
from report_rows import Row, quartile_distance
from report_tables import (growth_tables, kit_table, means_table, picture_tables, pitch_table,
                           row_table, widths_table)
from report_text import introduction, machine_text, widths_text


def read_runs(path):
    """Times per item in ns, one a repetition: the rows in the order of registration as
    {name: (label, {library: [...]})}, and {axis: {column: {n: [...]}}}."""
    rows, growth = {}, {}
    with open(path, encoding="utf-8") as file:
        data = json.load(file)
    for run in sorted(data["benchmarks"], key=lambda run: run["family_index"]):
        if run["run_type"] != "iteration":
            continue
        name = re.sub(r"(/min_time:[^/]*|/real_time|/process_time)+$", "", run["run_name"])
        row, library = name.rsplit("/", 1)
        clock = "real_time" if run["run_name"].endswith("/real_time") else "cpu_time"
        time = run[clock] / run["items"]
        if row.startswith("growth "):
            _, axis, column, n = row.split()
            points = growth.setdefault(axis, {}).setdefault(column, {})
            points.setdefault(int(n), []).append(time)
        else:
            _, libraries = rows.setdefault(row, (run["label"], {}))
            libraries.setdefault(library, []).append(time)
    return [Row(name, label, runs) for name, (label, runs) in rows.items()], growth, data["context"]


def write_report(output, rows, growth, context, facts):
    main_rows = [row for row in rows if row.suite == "main"]
    widths = growth.pop("widths", {})
    text = introduction(rows, quartile_distance(rows))
    text += "## Machine and build\n\n" + machine_text(context, facts) + "\n"
    output.mkdir(parents=True, exist_ok=True)
    if main_rows:
        text += "\n## Geometric means\n\n" + means_table(main_rows) + "\n"
        text += "\n## Rows\n\n" + row_table(main_rows) + "\n"
        (output / "benchmarks.svg").write_text(plot_means(main_rows), encoding="utf-8")
    text += picture_tables(rows) + pitch_table(rows) + kit_table(rows)
    if growth:
        text += "\n## How cost grows\n\n" + growth_tables(growth) + "\n"
    if widths:
        text += "\n## Widths from 1 to 64\n\n" + widths_text() + widths_table(widths) + "\n"
        (output / "benchmarks-widths.svg").write_text(plot_widths(widths), encoding="utf-8")
    (output / "benchmarks.md").write_text(text, encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("json", type=pathlib.Path, help="output of gfx_bench")
    parser.add_argument("--output", type=pathlib.Path, required=True, help="directory written to")
    parser.add_argument("--fact", action="append", default=[], metavar="KEY=TEXT",
                        help="a line about machine and build")
    options = parser.parse_args()
    rows, growth, context = read_runs(options.json)
    facts = dict(fact.split("=", 1) for fact in options.fact)
    write_report(options.output, rows, growth, context, facts)


if __name__ == "__main__":
    main()
