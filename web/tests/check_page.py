"""Checks the built page in a browser without a window.

Usage: check_page.py PAGE_FOLDER NATIVE_BUILD

The page is opened from its folder. Every operation is drawn at every depth with the arguments that
it starts with and with random ones; the lines of C++ that the page shows for them are compiled
against the native library, and the pixels of the page's canvas have to be those that they draw.
"""

import argparse
import base64
import os
import pathlib
import random
import re
import struct
import subprocess
import sys

from browser import Browser, check

ROOT = pathlib.Path(__file__).resolve().parents[2]
DEPTHS = (8, 16, 32)
RANDOM_ROUNDS = 2

# Sets the playground as it is told.
SET = """
const [title, depth, values] = arguments;
playground.setDepth(depth);
playground.select(title);
Object.assign(playground.values, values);
playground.draw();
"""

# The pixels of a canvas, by way of another one: the browser warns of reading a canvas often.
PIXELS = """
const pixelsOf = (canvas) => {
  const reader = new OffscreenCanvas(canvas.width, canvas.height)
      .getContext('2d', {willReadFrequently: true});
  reader.drawImage(canvas, 0, 0);
  return reader.getImageData(0, 0, canvas.width, canvas.height).data;
};
"""

# Reads what the page shows.
READ = PIXELS + """
const {operation, canvas} = playground;
const pixels = pixelsOf(canvas);
let bytes = '';
for (let i = 0; i < pixels.length; i += 4)
  bytes += String.fromCharCode(pixels[i], pixels[i + 1], pixels[i + 2]);
const languages = ['c', 'python'].map((language) => playground.lines(language));
return {size: [canvas.width, canvas.height], bytes: btoa(bytes), lines: playground.lines('cpp'),
        shows: operation.shows, op: operation.op, value: playground.runner.value,
        hasAll: languages.every(Boolean), isKit: ['kit', 'canvas'].includes(operation.on)};
"""

TABLE = """
return OPERATIONS.map(({title, names, start}) => {
  const free = names.filter((name) => controlFor(name, {...start}, () => {}));
  return {title, arguments: free.map((name) => [name, ARGUMENTS[name]])};
});
"""


def random_values(rng, arguments):
    values = {}
    for name, kind in arguments:
        if kind == "color":
            values[name] = rng.choice((0, 0x40, 0x80, 0xFF)) << 24 | rng.getrandbits(24)
        elif kind == "switch":
            values[name] = rng.random() < 0.5
        elif isinstance(kind, list) and isinstance(kind[0], str):
            values[name] = rng.choice(kind)
        elif isinstance(kind, list):
            low, high, step = kind
            value = low + step * rng.randint(0, round((high - low) / step))
            values[name] = value if step == 1 else round(value, 4)
    return values


def show_call(case):
    if case["shows"] == "value":
        return "ShowValue(value);"
    if case["shows"] == "buffer":
        return "ShowBits(buffer);"
    if case["shows"] == "dest":
        return f"ShowDisplay(dest, {5 if case['op'] == 'QuickBltTo555' else 6});"
    return f"ShowSurface({case['shows']});"


def native_pictures(cases, build, work):
    """The pictures of all cases as the native library draws them."""
    work.mkdir(parents=True, exist_ok=True)
    with open(work / "listings.inc", "w", encoding="utf-8") as out:
        for i, case in enumerate(cases):
            out.write(f"void Case{i}() {{\n{case['lines']}{show_call(case)}\n}}\n")
        out.write("void DrawAllCases() {\n")
        out.writelines(f"Case{i}();\n" for i in range(len(cases)))
        out.write("}\n")
    program = work / "native_pictures"
    subprocess.run(
        [os.environ.get("CXX", "c++"), "-std=c++17", "-O0", "-Wall", "-Wextra", "-Werror",
         f"-I{work}", f"-I{ROOT}/web", f"-I{ROOT}/include", f"-I{ROOT}/kit/include",
         ROOT / "web/tests/native_pictures.cpp", ROOT / "web/hooks.cpp", "-o", program, build / "kit/libgfx_kit.a", f"-L{build}", "-lgfx",
         f"-Wl,-rpath,{build.resolve()}"], check=True)
    face = subprocess.run(["find", "/usr/share/fonts", "-name", "DejaVuSans.ttf"], check=True,
                          capture_output=True, text=True).stdout.splitlines()[0]
    drawn = subprocess.run([program.resolve()], check=True, capture_output=True,
                           cwd=pathlib.Path(face).parent).stdout
    pictures, at = [], 0
    for case in cases:
        w, h = struct.unpack_from("<II", drawn, at)
        size = 4 if case["shows"] == "value" else 3 * w * h
        pictures.append(((w, h), drawn[at + 8:at + 8 + size]))
        at += 8 + size
    check(at == len(drawn), "the native program drew more than it was asked for")
    return pictures


def compare(case, native):
    (size, expected) = native
    if case["shows"] == "value":
        (value,) = struct.unpack("<I", expected)
        check(case["value"] == value,
              f"{case['name']}: value {case['value']:#x}, native {value:#x}")
        return
    check(tuple(case["size"]) == size, f"{case['name']}: size {case['size']}, native {size}")
    if case["bytes"] == expected:
        return
    first = next(i for i, (a, b) in enumerate(zip(case["bytes"], expected)) if a != b) // 3
    check(False, f"{case['name']}: pixel {first % size[0]}, {first // size[0]} is "
          f"{case['bytes'][3 * first:3 * first + 3].hex()}, native "
          f"{expected[3 * first:3 * first + 3].hex()}")


def read(browser, name):
    case = browser.run(READ)
    case["bytes"] = base64.b64decode(case["bytes"])
    case["name"] = name
    return case


def draw_cases(browser):
    rng = random.Random(1)
    cases = []
    for entry in browser.run(TABLE):
        for depth in DEPTHS:
            for turn in range(1 + RANDOM_ROUNDS):
                values = random_values(rng, entry["arguments"]) if turn else {}
                browser.run(SET, entry["title"], depth, values)
                case = read(browser, f"{entry['title']}, {depth} bits, {values}")
                check(case["hasAll"] != case["isKit"], f"{case['name']}: lines of C and Python")
                cases.append(case)
    return cases


def check_slider(browser):
    """A slider moved by the keyboard draws anew, and draws what its lines say."""
    browser.run(SET, "RectFill", 16, {})
    before = read(browser, "RectFill")
    browser.press("argument-w", "ARROW_RIGHT", 5)
    after = read(browser, "RectFill after its slider was moved")
    check(before["bytes"] != after["bytes"], "the slider changed no pixel")
    check("RectFill(30, 24, 95, 64" in after["lines"], "the lines do not follow the slider")
    return after


def loaded_files(page):
    """What the page loads besides itself."""
    return re.findall(r'(?:src|href)="([^"#:]+)"', (page / "index.html").read_text("utf-8"))


def check_guide(browser, page):
    """The lines at the beginning of the guide run, and leave the pixel that it names."""
    text = (ROOT / "docs/guide/browser.md").read_text(encoding="utf-8")
    lines = re.search("```html\n(.*?)```", text, re.S)[1]
    (page / "guide.html").write_text(lines, encoding="utf-8")
    named = re.search(r"middle of the canvas is `rgb\((\d+), (\d+), (\d+)\)`", text).groups()
    browser.open((page / "guide.html").resolve().as_uri())
    pixel = PIXELS + "return [...pixelsOf(view).slice(4 * (160 * 60 + 80))].slice(0, 4)"
    browser.wait(lambda: browser.run(pixel)[3] == 255, "the guide's lines drew nothing")
    check(browser.run(pixel)[:3] == [int(n) for n in named],
          f"the guide's lines drew {browser.run(pixel)}, the guide says {named}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("page", type=pathlib.Path)
    parser.add_argument("build", type=pathlib.Path)
    options = parser.parse_args()
    with Browser((options.page / "index.html").resolve().as_uri()) as browser:
        browser.wait_until_ready()
        check(browser.text("pinned-state").startswith("10 of 10 "),
              "pinned drawing: " + browser.text("pinned-state"))
        cases = [check_slider(browser), *draw_cases(browser)]
        pictures = native_pictures(cases, options.build, ROOT / "build/web-check")
        for case, picture in zip(cases, pictures):
            compare(case, picture)
        print(f"pictures: {len(cases)} the same as the native library's")
        browser.check_panel()
        browser.check_keyboard()
        browser.check_widths((360, 390, 768, 1280))
        for name, size in (("desktop", (1280, 900)), ("phone", (390, 844))):
            browser.screenshots(options.page, name, size)
        browser.check_console()
        browser.report()
        check_guide(browser, options.page)
        browser.check_console()
    loaded = [options.page / f for f in ("index.html", *loaded_files(options.page))]
    print(f"loaded: {sum(f.stat().st_size for f in loaded) / 1e6:.2f} MB in {len(loaded)} files")


if __name__ == "__main__":
    sys.exit(main())
