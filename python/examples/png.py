"""PNG files of 8-bit red, green and blue, written and read with nothing but zlib."""

import struct
import zlib

import numpy

SIGNATURE = b"\x89PNG\r\n\x1a\n"


def rgb_of(pixels):
    """(height, width, 3) of a 32-bit surface's pixels."""
    return numpy.stack([pixels >> shift & 255 for shift in (16, 8, 0)], -1).astype(numpy.uint8)


def words_of(rgb):
    """Opaque colour words of (height, width, 3)."""
    r, g, b = (rgb[..., k].astype(numpy.uint32) for k in range(3))
    return r << 16 | g << 8 | b


def encode(rgb):
    height, width, _ = rgb.shape
    rows = numpy.zeros((height, 1 + 3 * width), numpy.uint8)
    rows[:, 1:] = rgb.reshape(height, -1)

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return (SIGNATURE + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows.tobytes()))
            + chunk(b"IEND", b""))


def decode(data):
    """The picture of a file that `encode` wrote; ValueError for any other."""
    if data[:8] != SIGNATURE or data[12:16] != b"IHDR" or len(data) < 33:
        raise ValueError("not a PNG file")
    width, height, *kind = struct.unpack(">IIBBBBB", data[16:29])
    if kind != [8, 2, 0, 0, 0]:
        raise ValueError("not 8-bit red, green and blue")
    packed, at = b"", 8
    while at + 8 <= len(data):
        length, = struct.unpack(">I", data[at:at + 4])
        if data[at + 4:at + 8] == b"IDAT":
            packed += data[at + 8:at + 8 + length]
        at += 12 + length
    size = height * (1 + 3 * width)
    unpacked = zlib.decompressobj().decompress(packed, size + 1)
    if len(unpacked) != size:
        raise ValueError("the picture is not as large as it says")
    rows = numpy.frombuffer(unpacked, numpy.uint8).reshape(height, -1)
    if rows[:, 0].any():
        raise ValueError("filtered rows")
    return rows[:, 1:].reshape(height, width, 3)
