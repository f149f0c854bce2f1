"""Random calls through Python give the bytes that the same calls give in C++."""

import os
import subprocess

import gfx
import numpy
import pytest

WIDTH, HEIGHT = 61, 47


class Numbers:
    def __init__(self, seed):
        self.state = seed

    def word(self):
        self.state ^= self.state << 13 & 0xFFFFFFFF
        self.state ^= self.state >> 17
        self.state ^= self.state << 5 & 0xFFFFFFFF
        return self.state

    def below(self, limit):
        return self.word() % limit

    def place(self):
        return self.below(100) - 20


def draw_one(n, surfaces):
    s = surfaces[n.below(3)]
    other = surfaces[n.below(3)]
    kind = n.below(10)
    rect = dict(x=n.place(), y=n.place(), w=n.below(50), h=n.below(50))
    a, b = n.place(), n.place()
    word = n.word()
    pattern = [1 + n.below(5), 1 + n.below(5)]
    color = gfx.Color.from_word(word)
    tile = word & 1 != 0
    line = dict(x0=rect["x"], y0=rect["y"], x1=a, y1=b)
    if kind == 0:
        s.rect_fill(**rect, color=color)
    elif kind == 1:
        s.rect_fill_blend(**rect, color=tuple(color))
    elif kind == 2:
        s.rect_fill_blend(**rect, color=color, src_x=a, src_y=b, mask=surfaces[0])
    elif kind == 3:
        s.rect_copy(**rect, src_x=a, src_y=b, src=other, tile=tile)
    elif kind == 4:
        s.rect_blend(**rect, src_x=a, src_y=b, src=other, tile=tile)
    elif kind == 5:
        s.rect_blend_alpha(**rect, src_x=a, src_y=b, transparency=0.25, src=other)
    elif kind == 6:
        s.draw_line(**line, color=color, pattern=pattern)
    elif kind == 7:
        s.draw_aa_line(**line, color=color)
    elif kind == 8:
        planes = [gfx.Surface.Plane.ALPHA, gfx.Surface.Plane.RED, gfx.Surface.Plane.GREEN,
                  gfx.Surface.Plane.BLUE]
        s.rect_insert(**rect, plane_x=a, plane_y=b, plane=surfaces[0], which=planes[word & 3])
    else:
        s.set_clip_rect(rect["x"], rect["y"], rect["w"] + 20, rect["h"] + 20)


def own_surfaces():
    return [gfx.Surface(WIDTH, HEIGHT, depth) for depth in (8, 16, 32)]


def windows():
    types = (numpy.uint8, numpy.uint16, numpy.uint32)
    return [gfx.Surface.over(numpy.zeros((HEIGHT + 9, WIDTH + 13), t)[4:-5, 6:-7]) for t in types]


@pytest.mark.parametrize("make", [own_surfaces, windows])
@pytest.mark.parametrize("seed", range(1, 7))
def test_calls_from_python_draw_what_calls_from_cpp_draw(seed, make):
    surfaces = make()
    numbers = Numbers(seed)
    for _ in range(400):
        draw_one(numbers, surfaces)
    expected = subprocess.run([os.environ["GFX_TEST_SCENE"], str(seed), "400"], check=True,
                              stdout=subprocess.PIPE).stdout
    drawn = b"".join(s.pixels.tobytes() for s in surfaces)
    assert len(set(expected)) > 50, "the scene draws something"
    assert drawn == expected
