#!/usr/bin/python3
"""Writes the seeds of the target `faces` into fuzz/corpus/faces: small faces of every kind of glyph
that the font cache loads. Needs Debian's python3-fonttools; the faces written are checked in."""

import sys
from array import array
from pathlib import Path

from fontTools.fontBuilder import FontBuilder
from fontTools.misc.psCharStrings import T2CharString
from fontTools.pens.t2CharStringPen import T2CharStringPen
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import newTable
from fontTools.ttLib.tables.ttProgram import Program

ORDER = [".notdef", "box", "round", "pair", "scaled", "nested", "empty"]
CMAP = {0x20: "empty", 0x41: "box", 0x42: "round", 0x43: "pair", 0x44: "scaled", 0x3A9: "nested"}

PUSHW, FDEF, ENDF, MIRP, SVTCA, IUP, MDAP, CALL, LOOPCALL = (
    "PUSHW[ ]", "FDEF[ ]", "ENDF[ ]", "MIRP[11101]", "SVTCA[0]", "IUP[0]", "MDAP[1]", "CALL[ ]",
    "LOOPCALL[ ]")


def program(*lines):
    made = Program()
    made.fromAssembly(list(lines))
    return made


def draw_box(pen, left=50, bottom=0, right=450, top=700):
    pen.moveTo((left, bottom))
    for point in ((left, top), (right, top), (right, bottom)):
        pen.lineTo(point)
    pen.closePath()


def draw_round(pen):
    pen.moveTo((250, 0))
    pen.qCurveTo((450, 0), (450, 350), (450, 700), (250, 700))
    pen.qCurveTo((50, 700), (50, 350), (50, 0), (250, 0))
    pen.closePath()


def true_type_glyphs():
    glyphs = {}
    for name, draw in ((".notdef", draw_box), ("box", draw_box), ("round", draw_round)):
        pen = TTGlyphPen(None)
        draw(pen)
        glyphs[name] = pen.glyph()
    glyphs["empty"] = TTGlyphPen(None).glyph()
    for name, parts in (("pair", (("box", (1, 0, 0, 1, 0, 0)), ("round", (1, 0, 0, 1, 500, 0)))),
                        ("scaled", (("round", (0.5, 0.25, -0.25, 0.75, 10, -20)),)),
                        ("nested", (("pair", (1, 0, 0, 1, 0, 100)), ("scaled", (-1, 0, 0, 1, 0, 0))))):
        pen = TTGlyphPen(glyphs)
        for part in parts:
            pen.addComponent(*part)
        glyphs[name] = pen.glyph()
    glyphs["box"].program = program(SVTCA, "PUSHB[ ]", "0 1 2", MDAP, "PUSHB[ ]", "3 0", CALL, IUP)
    return glyphs


def finish(builder, cmap_formats):
    builder.setupHorizontalMetrics({name: (500, 50) for name in ORDER})
    builder.setupHorizontalHeader(ascent=800, descent=-200)
    builder.setupNameTable({"familyName": "Seed", "styleName": "Regular"})
    builder.setupOS2(sTypoAscender=800, sTypoDescender=-200, sTypoLineGap=90)
    builder.setupPost()
    font = builder.font
    if cmap_formats:
        builder.setupCharacterMap(CMAP)
        font["cmap"].tables = [t for t in font["cmap"].tables if t.format in cmap_formats]
    return font


def true_type(units_per_em, hinted, cmap_formats):
    builder = FontBuilder(units_per_em, isTTF=True)
    builder.setupGlyphOrder(ORDER)
    builder.setupCharacterMap(CMAP)
    builder.setupGlyf(true_type_glyphs())
    font = finish(builder, cmap_formats)
    if hinted:
        font["cvt "] = newTable("cvt ")
        font["cvt "].values = array("h", [0, 700, 350, -200])
        font["fpgm"] = newTable("fpgm")
        font["fpgm"].program = program("PUSHB[ ]", "0", FDEF, "POP[ ]", ENDF, "PUSHB[ ]", "1", FDEF,
                                       "DUP[ ]", "POP[ ]", ENDF)
        font["prep"] = newTable("prep")
        font["prep"].program = program("PUSHB[ ]", "1 3 1", LOOPCALL, "POP[ ]", "PUSHB[ ]", "1",
                                       "SCANCTRL[ ]")
        font["maxp"].maxFunctionDefs = 4
        font["maxp"].maxStackElements = 32
        font["maxp"].maxStorage = 8
    return font


def compact():
    builder = FontBuilder(1000, isTTF=False)
    builder.setupGlyphOrder(ORDER)
    builder.setupCharacterMap(CMAP)
    strings = {}
    for name in ORDER:
        pen = T2CharStringPen(500, None)
        if name == "round":
            pen.moveTo((250, 0))
            pen.curveTo((450, 0), (450, 700), (250, 700))
            pen.curveTo((50, 700), (50, 0), (250, 0))
            pen.closePath()
        elif name != "empty":
            draw_box(pen)
        strings[name] = pen.getCharString()
    strings["pair"] = T2CharString(program=[
        500, 0, 20, 660, 20, "hstemhm", 50, 30, 340, 30, "hintmask", b"\xe0", 50, 0, "rmoveto", 400,
        "hlineto", 700, "vlineto", -400, "hlineto", 100, -200, "rmoveto", 50, 60, 70, 80, 90, 100,
        "rrcurveto", "endchar"])
    builder.setupCFF("Seed-Regular", {"FullName": "Seed"}, strings, {"BlueValues": [0, 10, 700, 710]})
    return finish(builder, {4})


def main():
    folder = Path(__file__).parent / "corpus" / "faces"
    folder.mkdir(parents=True, exist_ok=True)
    faces = {
        "hinted.ttf": true_type(1000, True, {4, 12}),
        "plain.ttf": true_type(2048, False, {4}),
        "coarse.ttf": true_type(16, False, {4}),
        "unmapped.ttf": true_type(1000, False, set()),
        "compact.otf": compact(),
    }
    for name, font in faces.items():
        font["head"].created = font["head"].modified = 0
        font.recalcTimestamp = False
        font.save(folder / name)
    return 0


if __name__ == "__main__":
    sys.exit(main())
