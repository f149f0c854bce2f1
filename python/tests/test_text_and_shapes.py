"""Font caches and the kit's text and shapes from Python."""

import os

import gfx
import numpy
import pytest

FACE = os.environ["GFX_TEST_FACE"]
INK = "#ffffff"


def test_a_glyph_is_drawn_where_its_image_and_geometry_say():
    cache = gfx.FontCache(FACE, 24)
    image, geom = cache.access_glyph(ord("g"))
    assert image.shape == (geom.top - geom.bottom, geom.right - geom.left)
    s = gfx.Surface(40, 40, 8)
    cache.draw_glyph(code=ord("g"), x=10, y=25, color=INK, target=s)
    top, left = 25 - geom.top, 10 + geom.left
    drawn = s.pixels[top:top + image.shape[0], left:left + image.shape[1]]
    assert ((drawn > 0) == (image < 255)).all() and (image < 255).any()
    assert numpy.count_nonzero(s.pixels) == numpy.count_nonzero(drawn)


def test_faces_that_do_not_open_say_why(tmp_path):
    cache = gfx.FontCache(FACE, 16)
    with pytest.raises(FileNotFoundError):
        cache.open_face(tmp_path / "missing.ttf", 16)
    stranger = tmp_path / "face.ttf"
    stranger.write_bytes(b"no face")
    with pytest.raises(ValueError, match="face.ttf"):
        cache.open_face(stranger, 16)
    with pytest.raises(ValueError, match="null"):
        cache.open_face("a\0b", 16)
    with pytest.raises(TypeError):
        cache.open_face(3.5, 16)
    assert not cache.has_glyph(ord("A"))
    assert cache.access_glyph(5000)[0].size == 0


def test_lines_and_fits_count_characters_and_cover_the_text():
    font = gfx.Font(gfx.FontCache(FACE, 16))
    text = "Größe über zwölf Äpfel – naïve Zeile\nEnde"
    rest, lines = text, []
    while rest:
        length, following, width = gfx.next_line(font, rest, 90)
        assert width == gfx.measure_string(font, rest[:length]) <= 90
        lines.append(rest[:length])
        rest = rest[following:]
    assert " ".join(lines) == text.replace("\n", " ")
    length, width, cut = gfx.fit_string(font, text, 60)
    assert cut and width <= 60 and length > 0
    with pytest.raises(TypeError, match="text: str"):
        gfx.measure_string(font, "\ud800")  # no text: half of a pair


def test_a_string_is_its_glyphs_one_behind_the_other():
    cache = gfx.FontCache(FACE, 16)
    font = gfx.Font(cache)
    expected, drawn = gfx.Surface(120, 30), gfx.Surface(120, 30)
    pen = 5
    for c in "Añb":
        cache.draw_glyph(ord(c), pen, 20, INK, expected)
        pen += cache.get_glyph_geometry(ord(c)).advance
    assert gfx.draw_string(drawn, font, x=5, y=20, text="Añb", color=INK) == pen - 5
    assert (drawn.pixels == expected.pixels).all() and drawn.pixels.any()

    with pytest.raises(TypeError, match="FontCache, not str"):
        gfx.Font(FACE)
    with pytest.raises(ValueError, match="1 to 8"):
        gfx.Font(*[cache] * 9)
    fallback = gfx.Font(gfx.FontCache(), cache)  # the first has no face open
    assert gfx.measure_string(fallback, "Añb") == pen - 5

    mask = gfx.Surface(4, 4, 8)  # all ink
    font.add_image(0x20AC, mask, 0, 0, 4, 4, left=1, top=4, advance=6)
    del mask
    image = gfx.Surface(20, 20)
    assert gfx.draw_string(image, font, 3, 10, "€", INK) == 6
    assert (image.pixels != 0).sum() == 16 and (image.pixels[6:10, 4:8] != 0).all()


def test_shapes_on_whole_pixels_are_rectangles_and_gradients_run():
    s = gfx.Surface(32, 32)
    canvas = gfx.Canvas(s)
    canvas.fill_rect(rect=(2, 3, 10, 5), paint=INK)
    expected = numpy.zeros((32, 32), numpy.uint32)
    expected[3:8, 2:12] = 0xFFFFFF
    assert (s.pixels == expected).all()
    s.clear()
    canvas.fill_polygon(points=numpy.array([(2, 3), (12, 3), (12, 8), (2, 8)]), paint=INK)
    assert (s.pixels == expected).all()
    s.clear()
    canvas.draw_line((2, 5.5), (12, 5.5), INK, gfx.Stroke(width=5))
    assert (s.pixels == expected).all()

    canvas.fill_rect((0, 0, 32, 32), gfx.Gradient.linear((0, 0), (32, 0), [(0, "#000000"),
                                                                          (255, "#0000ff")]))
    blue = s.pixels[0].astype(int)
    assert (numpy.diff(blue) > 0).all() and blue[0] < 8 and blue[-1] > 247
    assert (s.pixels == s.pixels[0]).all()
    with pytest.raises(TypeError, match="pair"):
        canvas.fill_polygon([1, 2, 3], INK)
    with pytest.raises(TypeError, match="paint: Gradient"):
        canvas.fill_circle((1, 1), 3, 5)
