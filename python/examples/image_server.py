#!/usr/bin/env python3
"""A server that draws thumbnails with captions of the pictures it receives.

Usage: image_server.py FACE [PORT]

POST /thumbnail?width=W&height=H&w=TW&caption=TEXT with W * H * 3 bytes of red, green and blue as
the body gives a PNG file TW pixels wide. Sizes beyond the limits below are refused.
"""

import http.server
import sys
import urllib.parse

import gfx
import numpy
import png

MOST_PIXELS = 4_000_000
MOST_THUMBNAIL = 512
MOST_CAPTION = 200
CAPTION_HEIGHT = 22


def shrink(rgb, width, height):
    """The mean of the source pixels below each target pixel."""
    rows = numpy.arange(height + 1) * rgb.shape[0] // height
    columns = numpy.arange(width + 1) * rgb.shape[1] // width
    sums = numpy.zeros((rgb.shape[0] + 1, rgb.shape[1] + 1, 3), numpy.uint64)
    sums[1:, 1:] = rgb.cumsum(0, numpy.uint64).cumsum(1)
    total = (sums[rows[1:]][:, columns[1:]] + sums[rows[:-1]][:, columns[:-1]]
             - sums[rows[:-1]][:, columns[1:]] - sums[rows[1:]][:, columns[:-1]])
    areas = numpy.outer(numpy.diff(rows), numpy.diff(columns))[..., None]
    return (total // areas.astype(numpy.uint64)).astype(numpy.uint8)


def thumbnail(rgb, width, caption, font):
    width = min(width, rgb.shape[1])
    height = min(max(1, rgb.shape[0] * width // rgb.shape[1]), MOST_THUMBNAIL)
    drawn = gfx.Surface(width, height + CAPTION_HEIGHT)
    drawn.pixels[:height] = png.words_of(shrink(rgb, width, height))
    gfx.draw_string_in_box(drawn, font, 2, height, max(width - 4, 0), CAPTION_HEIGHT, caption,
                           "#ffffff", align_x=gfx.AlignX.CENTER, align_y=gfx.AlignY.MIDDLE,
                           ellipsis=True)
    return png.encode(png.rgb_of(drawn.pixels))


class Handler(http.server.BaseHTTPRequestHandler):
    timeout = 10  # seconds for a sender that stops

    def do_POST(self):
        url = urllib.parse.urlsplit(self.path)
        query = dict(urllib.parse.parse_qsl(url.query))
        if url.path != "/thumbnail":
            return self.answer(404, "there is only /thumbnail")
        try:
            width, height, w = (int(query[name]) for name in ("width", "height", "w"))
            length = int(self.headers["Content-Length"])
        except (KeyError, TypeError, ValueError):
            return self.answer(400, "width, height, w and a body are needed")
        caption = query.get("caption", "")
        if width < 1 or height < 1 or w < 1 or length != width * height * 3:
            return self.answer(400, "the body is width * height * 3 bytes")
        if width * height > MOST_PIXELS or w > MOST_THUMBNAIL or len(caption) > MOST_CAPTION:
            return self.answer(413, "too large")
        body = self.rfile.read(length)
        if len(body) != length:
            return self.answer(400, "the body ends early")
        rgb = numpy.frombuffer(body, numpy.uint8).reshape(height, width, 3)
        return self.answer(200, thumbnail(rgb, w, caption, self.server.font), "image/png")

    def answer(self, status, body, kind="text/plain"):
        if status != 200:
            self.close_connection = True  # the body may still be on its way
        data = body if isinstance(body, bytes) else body.encode()
        self.send_response(status)
        self.send_header("Content-Type", kind)
        self.send_header("Content-Length", str(len(data)))
        self.end_headers()
        self.wfile.write(data)

    def log_message(self, *arguments):
        pass


def make_server(face, port=0):
    server = http.server.ThreadingHTTPServer(("127.0.0.1", port), Handler)
    server.daemon_threads = True
    server.font = gfx.Font(gfx.FontCache(face, 14))  # all threads share it
    return server


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    with make_server(sys.argv[1], int(sys.argv[2]) if len(sys.argv) == 3 else 8080) as running:
        running.serve_forever()
