"""The files of the browser interface: names, content types, and what cannot be read."""

from __future__ import annotations

import hashlib
import os
import random
import threading

import pytest

from support.deadlines import wait_for
from support.sessions import PASSWORDS

HTML = "text/html; charset=utf-8"


@pytest.fixture
def web(tmp_path):
    folder = tmp_path / "web"
    folder.mkdir()
    return folder


def assert_unreadable(reply):
    assert reply.status_line == b"HTTP/1.1 500 Internal Error"
    assert sorted(reply.headers) == [("Content-Length", "15"),
                                     ("Content-Type", "text/plain; charset=utf-8")]
    assert reply.body == b"INTERNAL ERROR "


def assert_file(reply, content_type, content):
    assert reply.status_line == b"HTTP/1.1 200 OK"
    # No caching, no cross-origin and no other header of its own.
    assert sorted(reply.headers) == [("Content-Type", content_type),
                                     ("Transfer-Encoding", "chunked")]
    assert reply.body == content


@pytest.mark.parametrize("name, content_type", [
    ("a.ico", "image/x-icon"), ("a.png", "image/png"), ("a.jpeg", "image/jpeg"),
    ("a.jpg", "image/jpeg"), ("a.js", "text/javascript"), ("a.css", "text/css"),
    ("a.html", HTML), ("a.htm", HTML), ("a.txt", HTML), ("a.svg", HTML), ("a.json", HTML),
    ("a.PNG", HTML), ("a.Js", HTML), ("a.CSS", HTML), ("a", HTML), ("a.", HTML),
    (".js", "text/javascript"),
    ("a.js.gz", HTML), ("a.tar.css", "text/css"), ("js", HTML), ("a.jsx", HTML), ("a.png~", HTML),
    ("folder.js/plain", HTML), ("folder.png/a.css", "text/css"), ("f.d/a.b/c", HTML),
])
def test_the_content_type_goes_by_what_is_behind_the_last_dot(start_daemon, web, name,
                                                              content_type):
    (web / name).parent.mkdir(parents=True, exist_ok=True)
    (web / name).write_bytes(b"content of " + name.encode())
    daemon = start_daemon(resources=web)
    assert_file(daemon.get(f"/{name}"), content_type, b"content of " + name.encode())


def test_the_root_is_the_index(start_daemon, web):
    (web / "index.html").write_bytes(b"<p>start</p>")
    daemon = start_daemon(resources=web)
    assert_file(daemon.get("/"), HTML, b"<p>start</p>")
    assert_file(daemon.get("/index.html"), HTML, b"<p>start</p>")
    assert_file(daemon.get("/?sid=a.png"), HTML, b"<p>start</p>")


def test_only_the_root_has_an_index(start_daemon, web):
    (web / "folder").mkdir()
    (web / "folder/index.html").write_bytes(b"never")
    daemon = start_daemon(resources=web)
    for path in ("/", "/folder", "/folder/"):
        assert_unreadable(daemon.get(path))


def test_files_need_no_login(start_daemon, web):
    (web / "a.js").write_bytes(b"open")
    daemon = start_daemon(resources=web, settings=PASSWORDS)
    assert daemon.get("/a.js").body == b"open"


def test_a_query_is_no_part_of_the_name(start_daemon, web):
    (web / "a.css").write_bytes(b"styles")
    daemon = start_daemon(resources=web)
    assert_file(daemon.get("/a.css?version=1.js&x=/.."), "text/css", b"styles")


def make_folder(path):
    path.mkdir()


def make_fifo(path):
    os.mkfifo(path)


def make_dangling_link(path):
    path.symlink_to("nowhere")


def make_loop(path):
    path.symlink_to(path.name)


def make_nothing(path):
    del path


@pytest.mark.parametrize("make", [make_nothing, make_folder, make_fifo, make_dangling_link,
                                  make_loop])
def test_what_is_no_readable_file_is_an_internal_error(start_daemon, web, make):
    make(web / "a.html")
    daemon = start_daemon(resources=web)
    for _ in range(3):
        assert_unreadable(daemon.get("/a.html"))


@pytest.mark.parametrize("path", ["/a.html/", "/a.html/b", "/A.html", "/a.htm", "/./missing",
                                  pytest.param("/" + "x" * 300, id="a long name"),
                                  pytest.param("/" + "x/" * 3000, id="a long way")])
def test_a_name_that_does_not_fit_is_an_internal_error(start_daemon, web, path):
    (web / "a.html").write_bytes(b"there")
    assert_unreadable(start_daemon(resources=web).get(path))


def test_a_file_without_read_permission_is_an_internal_error(start_daemon, web):
    (web / "a.html").write_bytes(b"secret")
    (web / "a.html").chmod(0)
    daemon = start_daemon(resources=web, obeys_permissions=True)
    assert_unreadable(daemon.get("/a.html"))


def test_a_file_that_fails_while_it_is_read_does_no_harm(start_daemon, web):
    # The kernel lets everybody open this file of their own and fails to read its first byte.
    (web / "a.html").symlink_to("/proc/self/mem")
    daemon = start_daemon(resources=web)
    for _ in range(20):
        with daemon.connect() as connection:
            connection.send(b"GET /a.html HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n")
            connection.read_to_end()
    assert daemon.get("/data/bumper").status == 200


def test_percent_signs_stand_for_themselves(start_daemon, web):
    (web / "a b.txt").write_bytes(b"with a blank")
    (web / "a%20b.txt").write_bytes(b"with a percent sign")
    (web / "%2e%2e").write_bytes(b"no way up")
    daemon = start_daemon(resources=web)
    assert daemon.get("/a%20b.txt").body == b"with a percent sign"
    assert daemon.get("/%2e%2e").body == b"no way up"


def test_a_name_that_needs_encoding_is_out_of_reach(start_daemon, web):
    (web / "a b.txt").write_bytes(b"with a blank")
    (web / "\u00e4.txt").write_bytes(b"with an umlaut")
    daemon = start_daemon(resources=web)
    assert_unreadable(daemon.get("/a%20b.txt"))
    assert_unreadable(daemon.get("/%C3%A4.txt"))


def test_a_path_leads_where_its_dots_lead(start_daemon, web):
    (web.parent / "outside.css").write_bytes(b"outside")
    (web / "folder").mkdir()
    (web / "inside.css").write_bytes(b"inside")
    daemon = start_daemon(resources=web)
    assert_file(daemon.get("/../outside.css"), "text/css", b"outside")
    assert_file(daemon.get("/folder/../inside.css"), "text/css", b"inside")
    assert_file(daemon.get("/./inside.css"), "text/css", b"inside")


@pytest.mark.parametrize("path", ["/DATA/bumper", "/dat", "/ddata", "/download",
                                  "/index.html/data"])
def test_what_does_not_begin_with_data_is_a_file(start_daemon, web, path):
    (web / path[1:]).parent.mkdir(parents=True, exist_ok=True)
    (web / path[1:]).write_bytes(b"a file")
    assert start_daemon(resources=web).get(path).body == b"a file"


def test_what_begins_with_data_is_no_file(start_daemon, web):
    (web / "database.png").write_bytes(b"never")
    daemon = start_daemon(resources=web)
    daemon.expect_log("invalid -- /database.png")
    assert daemon.get("/database.png").body == b""


@pytest.mark.parametrize("size", [0, 1, 4095, 4096, 4097, 1 << 20, 10_000_019])
def test_a_file_of_any_size_arrives_whole(start_daemon, web, size):
    content = random.Random(size).randbytes(size)
    (web / "a.bin").write_bytes(content)
    reply = start_daemon(resources=web).request("GET", "/a.bin", seconds=60)
    assert reply.status == 200
    assert hashlib.sha256(reply.body).digest() == hashlib.sha256(content).digest()


def test_an_edited_file_is_served_anew(start_daemon, web):
    daemon = start_daemon(resources=web)
    for content in (b"first", b"second, longer", b""):
        (web / "a.html").write_bytes(content)
        assert daemon.get("/a.html").body == content


def test_three_hundred_clients_may_fetch_one_small_file_at_once(start_daemon, web):
    (web / "a.js").write_bytes(b"s" * 1000)
    daemon = start_daemon(resources=web)
    before = len(daemon.open_files())
    gate = threading.Barrier(300)
    outcomes = []

    def fetch():
        gate.wait()
        with daemon.connect(60) as connection:
            for _ in range(20):
                outcomes.append(connection.request("GET", "/a.js").body == b"s" * 1000)

    clients = [threading.Thread(target=fetch) for _ in range(300)]
    for client in clients:
        client.start()
    for client in clients:
        client.join()
    assert outcomes == [True] * 6000
    assert daemon.get("/data/bumper").status == 200
    wait_until_closed(daemon, before)


def test_downloads_that_break_off_leave_nothing_open(start_daemon, web):
    (web / "a.bin").write_bytes(bytes(5 << 20))
    daemon = start_daemon(resources=web)
    before = len(daemon.open_files())
    for _ in range(100):
        with daemon.connect() as connection:
            connection.send(b"GET /a.bin HTTP/1.1\r\nHost: x\r\n\r\n")
            assert connection.socket.recv(100)
    assert daemon.get("/data/bumper").status == 200
    wait_until_closed(daemon, before)


def wait_until_closed(daemon, count):
    """Waits until the daemon holds no more descriptors than it did."""
    wait_for("files and connections to be closed", lambda: len(daemon.open_files()) <= count)
