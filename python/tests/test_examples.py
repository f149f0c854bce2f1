"""The examples, run as they are: the rig as a program, the server by requests on loopback."""

import concurrent.futures
import http.client
import os
import pathlib
import subprocess
import sys
import threading
import urllib.parse

import numpy
import pytest

EXAMPLES = pathlib.Path(__file__).resolve().parent.parent / "examples"
FACE = os.environ["GFX_TEST_FACE"]
sys.path.insert(0, str(EXAMPLES))

import image_server  # noqa: E402
import png  # noqa: E402


def rig(*arguments):
    done = subprocess.run([sys.executable, EXAMPLES / "test_rig.py", FACE, *arguments],
                          stdout=subprocess.PIPE, text=True)
    return done.returncode, done.stdout


def test_the_rig_passes_its_reference_and_finds_what_differs(tmp_path):
    reference, capture, shown = (tmp_path / name for name in ("r.png", "c.png", "d.png"))
    assert rig("reference", reference) == (0, "")
    assert rig("compare", reference, shown) == (0, "The capture shows the reference.\n")
    picture = png.decode(reference.read_bytes()).copy()
    assert len(numpy.unique(picture.reshape(-1, 3), axis=0)) > 100
    picture[100:103, 40:45] ^= 0x40
    picture[0, 0] ^= 1  # within the tolerance
    capture.write_bytes(png.encode(picture))
    code, text = rig("compare", capture, shown)
    assert (code, text) == (1, "15 pixels differ, all in x=40 y=100 w=5 h=3.\n")
    red = (png.decode(shown.read_bytes()) == [255, 0, 0]).all(-1)
    assert red.sum() == 15 and red[100:103, 40:45].all()


@pytest.fixture(scope="module")
def server():
    with image_server.make_server(FACE) as running:
        thread = threading.Thread(target=running.serve_forever)
        thread.start()
        yield running
        running.shutdown()
        thread.join()


def post(server, body, path="/thumbnail", length=None, **query):
    connection = http.client.HTTPConnection(*server.server_address, timeout=30)
    try:
        connection.putrequest("POST", path + "?" + urllib.parse.urlencode(query))
        connection.putheader("Content-Length", str(len(body) if length is None else length))
        connection.endheaders()
        connection.send(body)
        answer = connection.getresponse()
        return answer.status, answer.read()
    finally:
        connection.close()


def test_thumbnails_are_shrunk_pictures_with_captions(server):
    picture = numpy.zeros((60, 100, 3), numpy.uint8)
    picture[:, 50:] = [10, 200, 30]
    bare, captioned, cut = (
        png.decode(post(server, picture.tobytes(), width=100, height=60, w=50, caption=c)[1])
        for c in ("", "Äpfel", "W" * 150))
    assert bare.shape == captioned.shape == (30 + image_server.CAPTION_HEIGHT, 50, 3)
    assert (bare[:30, :25] == 0).all() and (bare[:30, 25:] == [10, 200, 30]).all()
    assert not bare[30:].any() and captioned[30:].any() and cut[30:].any()
    assert (captioned[:30] == bare[:30]).all() and (cut[:30] == bare[:30]).all()


def test_requests_at_once_give_what_they_give_alone(server):
    rgb = numpy.random.default_rng(3).integers(0, 256, (90, 120, 3), numpy.uint8).tobytes()

    def one(k):
        return post(server, rgb, width=120, height=90, w=40 + k, caption=f"Nummer {k}")

    alone = [one(k) for k in range(16)]
    with concurrent.futures.ThreadPoolExecutor(8) as pool:
        assert list(pool.map(one, range(16))) == alone
    assert {status for status, _ in alone} == {200}


@pytest.mark.parametrize("status, query", [
    (400, dict(width=10, height=10)),
    (400, dict(width="ten", height=10, w=5)),
    (400, dict(width=10, height=11, w=5)),
    (400, dict(width=-10, height=-10, w=5)),
    (413, dict(width=100000, height=50000, w=5, length=15_000_000_000)),
    (413, dict(width=10, height=10, w=513)),
    (413, dict(width=10, height=10, w=5, caption="x" * 201)),
    (404, dict(path="/other", width=10, height=10, w=5)),
])
def test_requests_beyond_the_limits_are_refused(server, status, query):
    assert post(server, bytes(300), **query)[0] == status
