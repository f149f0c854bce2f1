#!/usr/bin/env python3
"""Compares the lines that no test reaches with the list of those that have a reason.

Usage: unreached.py LCOV LIST. A line of LIST is `file: text of the line  # reason`.
"""

import pathlib
import sys


def unreached_lines(lcov):
    """(file, text) of each line that a compiled file has and no test ran."""
    root = pathlib.Path.cwd()
    ran, name = {}, None
    for line in lcov.read_text().splitlines():
        if line.startswith("SF:"):
            name = pathlib.Path(line[3:])
        elif line.startswith("DA:"):
            number, count = line[3:].split(",")[:2]
            key = (name, int(number))
            ran[key] = ran.get(key, 0) + int(count)
    for (file, number), count in sorted(ran.items()):
        if count == 0:
            text = file.read_text().splitlines()[number - 1].strip()
            if text.strip("{}(); "):
                yield str(file.relative_to(root)), number, text


def main():
    lcov, listed = map(pathlib.Path, sys.argv[1:3])
    reasons = {}
    for line in listed.read_text().splitlines():
        if line and not line.startswith("#"):
            place, _, reason = line.partition("  # ")
            if not reason:
                sys.exit(f"{listed}: no reason: {line}")
            reasons[place] = reason
    missing, seen = [], set()
    for file, number, text in unreached_lines(lcov):
        seen.add(f"{file}: {text}")
        if f"{file}: {text}" not in reasons:
            missing.append(f"{file}:{number}: {text}")
    for place in sorted(set(reasons) - seen):
        missing.append(f"{listed}: reached now, or gone: {place}")
    print("\n".join(missing) or f"every line is reached, but {len(seen)} with a reason")
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main())
