#!/usr/bin/env python3
"""What a call costs from Python, and what of that is the engine's own time.

Usage: time_calls.py TIME_CALLS   the program gfx_python_time_calls, which makes the same calls
"""

import subprocess
import sys
import time

import gfx

SIZES = (1, 16, 256, 1024)


def nanoseconds(call, seconds=0.2):
    """Of the fastest of five stretches."""
    count, best = 1, float("inf")
    while True:
        start = time.perf_counter()
        for _ in range(count):
            call()
        taken = time.perf_counter() - start
        if taken > seconds / 5:
            break
        count *= 2
    for _ in range(5):
        start = time.perf_counter()
        for _ in range(count):
            call()
        best = min(best, (time.perf_counter() - start) / count)
    return best * 1e9


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    native = dict(line.split() for line in
                  subprocess.check_output([sys.argv[1]], text=True).splitlines())
    print(f"{'rect_fill':>12} {'C++ ns':>10} {'Python ns':>10} {'more ns':>10}")
    for size in SIZES:
        s = gfx.Surface(size, size)
        color = gfx.Color(1, 2, 3)
        python = nanoseconds(lambda: s.rect_fill(0, 0, size, size, color))
        cpp = float(native[str(size)])
        print(f"{size:>7} x {size:<4}{cpp:>8.0f} {python:>10.0f} {python - cpp:>10.0f}")


if __name__ == "__main__":
    main()
