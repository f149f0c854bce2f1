"""Views, host arrays, refusals and threads of Surface."""

import gc
import sys
import threading

import gfx
import numpy
import pytest

RESIZES = {
    "initialise": lambda s: s.initialise(5, 5),
    "set_new_size": lambda s: s.set_new_size(500, 500),
    "optimise_size": lambda s: s.optimise_size(),
}


@pytest.mark.parametrize("depth", range(1, 33))
def test_a_view_shows_and_changes_the_pixels_of_every_depth(depth):
    s = gfx.Surface(19, 7, depth)
    view = s.pixels
    kind = numpy.uint8 if depth <= 8 else numpy.uint16 if depth <= 16 else numpy.uint32
    assert view.dtype == kind
    assert view.shape == ((7, 3) if depth == 1 else (7, 19))
    assert view.strides == (s.pitch, view.itemsize)
    if depth == 1:
        return
    s.rect_fill(3, 2, 4, 3, "#ffffff")
    expected = numpy.zeros_like(view)
    expected[2:5, 3:7] = {1: 0xFF, 2: 0xFFFF, 4: 0x00FFFFFF}[view.itemsize]
    assert (view == expected).all()
    view[0, 0] = expected[2, 3]
    assert tuple(s.ret_pixel_rgb(0, 0)) == (255, 255, 255, 255)


@pytest.mark.parametrize("resize", RESIZES.values(), ids=RESIZES)
@pytest.mark.parametrize("derive", [lambda v: v, lambda v: v[1:, ::2], lambda v: memoryview(v),
                                    lambda v: v.view(numpy.uint8), numpy.frombuffer],
                         ids=["view", "slice", "memoryview", "retyped", "frombuffer"])
def test_no_resize_while_a_view_lives_and_any_afterwards(resize, derive):
    s = gfx.Surface(16, 16)
    if derive is numpy.frombuffer:
        derived = numpy.frombuffer(memoryview(s.pixels[:1].reshape(-1)), numpy.uint32)
    else:
        derived = derive(s.pixels)
    with pytest.raises(BufferError, match="views"):
        resize(s)
    assert (s.width, s.height) == (16, 16)
    del derived
    gc.collect()
    resize(s)


def test_a_view_keeps_its_surface_and_the_surface_its_array():
    view = gfx.Surface(64, 64).pixels
    gc.collect()
    view[:] = 7
    assert view.sum() == 7 * 64 * 64

    array = numpy.zeros((8, 8), numpy.uint32)
    before = sys.getrefcount(array)
    s = gfx.Surface.over(array)
    assert sys.getrefcount(array) > before
    s.initialise(4, 4)  # memory of its own: the array is let go
    assert sys.getrefcount(array) == before
    s.rect_fill(0, 0, 4, 4, "#ffffff")
    assert not array.any()


def test_a_window_draws_and_clears_inside_itself_only():
    picture = numpy.full((20, 30, 4), 9, numpy.uint8)
    window = gfx.Surface.over(picture[5:20, 10:30])  # touches the picture's end
    window.rect_fill(-5, -5, 500, 500, (1, 2, 3))
    outside = numpy.ones((20, 30), bool)
    outside[5:20, 10:30] = False
    assert (picture[~outside] == [3, 2, 1, 0]).all()
    window.clear()
    assert not picture[~outside].any()
    assert (picture[outside] == 9).all()


@pytest.mark.parametrize("array, error", [
    (numpy.zeros((4, 4), numpy.float32), ValueError),
    (numpy.zeros((4, 4), numpy.int16), ValueError),
    (numpy.zeros((4, 4), ">u4"), ValueError),
    (numpy.zeros((4, 4), numpy.uint64)[:, ::1], ValueError),
    (numpy.zeros(4, numpy.uint8), ValueError),
    (numpy.zeros((4, 4, 3), numpy.uint8), ValueError),
    (numpy.zeros((4, 8), numpy.uint32)[:, ::2], ValueError),
    (numpy.zeros((4, 4), numpy.uint32)[::-1], ValueError),
    (numpy.lib.stride_tricks.as_strided(numpy.zeros(9, numpy.uint8), (4, 4), (1, 1)), ValueError),
    (numpy.broadcast_to(numpy.uint8(0), (4, 4)), (ValueError, BufferError)),
    (b"bytes", (ValueError, BufferError)),
    ([1, 2], TypeError),
])
def test_arrays_that_no_surface_can_lie_over_are_refused(array, error):
    with pytest.raises(error):
        gfx.Surface.over(array)


@pytest.mark.parametrize("call, error, text", [
    (lambda s: gfx.Surface(1, 1, 33), ValueError, "bpp < 33"),
    (lambda s: gfx.Surface(2**31, 1), ValueError, "dx <= INT_MAX"),
    (lambda s: gfx.Surface(2**30, 2**24, 8), MemoryError, ""),
    (lambda s: s.draw_line(0, 0, 0, 10000, "#000000"), ValueError, "dy < MAX_LINE_LENGTH"),
    (lambda s: s.rect_fill(0, 0, -1, 1, "#000000"), ValueError, "-1 is not from 0"),
    (lambda s: s.rect_fill(2**31, 0, 1, 1, "#000000"), ValueError, "2147483648 is not from"),
    (lambda s: s.rect_fill(10**30, 0, 1, 1, "#000000"), ValueError, "is not from"),
    (lambda s: s.rect_fill(0.5, 0, 1, 1, "#000000"), TypeError, "x: int"),
    (lambda s: s.rect_fill(0, 0, 1, 1, 0xFF), TypeError, r"color: Color \| tuple \| str"),
    (lambda s: s.rect_fill(0, 0, 1, 1, "#12345"), ValueError, "#rrggbb"),
    (lambda s: s.rect_fill(0, 0, 1, 1, "#12345g"), ValueError, "#rrggbb"),
    (lambda s: s.rect_fill(0, 0, 1, 1, (1, 2)), ValueError, "tuple of 2"),
    (lambda s: s.rect_fill(0, 0, 1, 1, (1, 2, 256)), ValueError, "256 is not from 0 to 255"),
    (lambda s: s.rect_fill(0, 0, 1, 1, (1, 2, "3")), TypeError, "integers, not str"),
    (lambda s: s.rect_copy(0, 0, 1, 1, src=3), TypeError, "src: gfx.Surface"),
    (lambda s: s.draw_line(0, 0, 3, 3, "#000000", pattern=[70000]), ValueError, "65535"),
    (lambda s: s.set_pixel_line_bgr24(0, 0, b"1234"), ValueError, "three bytes"),
    (lambda s: s.set_pixel_line_mono(0, 0, 9, "#000000", b"1"), ValueError, "fewer"),
    (lambda s: s.quick_blt_to_565(0, 0, 4, 4, bytearray(31)), ValueError, "too short"),
    (lambda s: s.quick_blt_to_565(0, 0, 4, 4, bytearray(99), 7), ValueError, "dest_pitch"),
    (lambda s: s.quick_blt_to_565(14, 0, 3, 1, bytearray(99)), ValueError, "inside"),
    (lambda s: s.quick_blt_to_565(2**32 - 1, 0, 2, 1, bytearray(99)), ValueError, "inside"),
    (lambda s: s.quick_blt_to_565(0, 0, 4, 4, bytes(32)), BufferError, ""),
    (lambda s: s.quick_blt_to_565(0, 0, 4, 4, 5), TypeError, "bytes-like"),
    (lambda s: s.rect_extract_mono(0, 0, 16, 16, 0, 0, bytearray(31), 2), ValueError, "beyond"),
    (lambda s: s.rect_extract_mono(0, 0, 9, 1, 8, 0, bytearray(2), 2), ValueError, "beyond"),
    (lambda s: gfx.Surface(4, 4, 0).pixels, ValueError, "depth 0"),
])
def test_failures_are_those_of_python(call, error, text):
    s = gfx.Surface(16, 16)
    with pytest.raises(error, match=text):
        call(s)
    assert not s.pixels.any()


def test_display_blits_and_bits_fill_exactly_what_fits():
    s = gfx.Surface(16, 16)
    pixels = numpy.random.default_rng(5).integers(0, 2**24, (16, 16), numpy.uint32)
    s.pixels[:] = pixels
    r, g, b = pixels >> 16 & 255, pixels >> 8 & 255, pixels & 255
    for blit, expected in ((s.quick_blt_to_565, r >> 3 << 11 | g >> 2 << 5 | b >> 3),
                           (s.quick_blt_to_555, r >> 3 << 10 | g >> 3 << 5 | b >> 3)):
        dest = numpy.zeros((5, 7), numpy.uint16)
        blit(3, 2, 7, 5, dest)
        assert (dest == expected[2:7, 3:10]).all()
        tight = bytearray(4 * 20 + 14)  # the last row ends where the memory does
        blit(3, 2, 7, 5, tight, 20)
        assert tight[80:] == expected[6, 3:10].astype("<u2").tobytes()
        assert not any(tight[14:20])
    bits = bytearray(32)
    s.rect_extract_mono(0, 0, 99, 99, 0, 0, bits, 2)
    grey = ((r + 2 * g) * 307 + b * 103) >> 10
    assert bytes(bits) == numpy.packbits(grey > 128, axis=1).tobytes()


def test_threads_on_one_surface_wait_for_each_other():
    s = gfx.Surface(512, 512)
    colors = [gfx.Color.from_word(k * 0x010101) for k in range(1, 5)]
    torn = []

    def draw(color):
        for _ in range(60):
            s.rect_fill(0, 0, 512, 512, color)
            other = gfx.Surface(512, 512)
            other.rect_copy(0, 0, 512, 512, src=s)
            if len(numpy.unique(other.pixels)) != 1:
                torn.append(color)

    threads = [threading.Thread(target=draw, args=(c,)) for c in colors]
    for t in threads:
        t.start()
    for t in threads:
        t.join()
    assert not torn


def test_threads_that_resize_view_and_draw_end_with_whole_surfaces():
    surfaces = [gfx.Surface(300, 300), gfx.Surface(300, 300)]
    failures = []

    def use(turn):
        for i in range(200):
            a, b = surfaces[turn % 2], surfaces[1 - turn % 2]
            try:
                if turn < 2:
                    a.rect_copy(0, 0, 300, 300, src=b)
                elif turn == 2:
                    a.initialise(100 + i, 300)
                else:
                    a.pixels[-1, -1] += 1
            except BufferError:
                pass
            except Exception as error:  # told below, with its text
                failures.append(error)

    threads = [threading.Thread(target=use, args=(k,)) for k in range(4)]
    for t in threads:
        t.start()
    for t in threads:
        t.join()
    assert not failures
    for s in surfaces:
        s.rect_fill(0, 0, s.width, s.height, "#010203")
        assert (s.pixels == 0x010203).all()


def test_colors_mean_the_same_in_every_form():
    forms = [(18, 52, 86, 204), "#123456CC", gfx.Color(18, 52, 86, 204),
             gfx.Color.from_argb(0xCC123456), gfx.Color.from_word(0x33123456)]
    assert {gfx.Color.of(form) for form in forms} == {gfx.Color(18, 52, 86, 204)}
    assert gfx.Color.of("#123456") == gfx.Color.of((18, 52, 86))
    assert gfx.Color.of("#123456").word == 0x00123456
