"""Requests that nobody sends in good faith, after each of which the daemon still answers."""

from __future__ import annotations

import pytest

from support.deadlines import wait_for
from support.http import request_bytes

READ = "GET /data/userrole HTTP/1.1\r\nHost: x\r\n\r\n"
ROLE = b'{\n    "role": "admin"\n}\n'


def assert_still_answers(daemon):
    assert daemon.get("/data/userrole").body == ROLE
    assert daemon.put("/data/login", b"{}").status == 200


# Queries


@pytest.mark.parametrize("query, messages", [
    pytest.param("k=a%20b", ["k : a%20b"], id="a blank in a value"),
    pytest.param("a%20k=v", ["a%20k : v"], id="a blank in a key"),
    pytest.param("k=a+b", ["k : a+b"], id="a plus sign"),
    pytest.param("b=2&a=1", ["a : 1", "b : 2"], id="sorted by key"),
    pytest.param("k=a%26b%3Dc", ["k : a%26b%3Dc"], id="separators in a value"),
    pytest.param("k=%zz%", ["k : %zz%"], id="percent signs that mean nothing"),
    pytest.param("k=%00%ff%FE", ["k : %00%ff%FE"], id="a NUL and no UTF-8"),
    pytest.param("k=%C3%A4", ["k : %C3%A4"], id="UTF-8"),
    pytest.param("k=%1&l=%2", ["k : %1", "l : %2"], id="what stands for arguments in texts"),
])
def test_query_items_reach_the_daemon_undecoded(start_daemon, query, messages):
    daemon = start_daemon(verbosity=2)
    daemon.get(f"/data/bumper?{query}")
    daemon.stop()
    assert [text for text in daemon.messages() if " : " in text] == messages


def test_a_repeated_key_keeps_one_of_its_values(start_daemon):
    daemon = start_daemon(verbosity=2)
    daemon.get("/data/bumper?k=1&k=2&k=3")
    daemon.stop()
    kept = [text for text in daemon.messages() if text.startswith("k : ")]
    assert len(kept) == 1 and kept[0] in ("k : 1", "k : 2", "k : 3")


def test_ten_thousand_query_items_all_arrive(start_daemon):
    daemon = start_daemon(verbosity=2, arguments=["-daemon"])
    query = "&".join(f"k{number}={number}" for number in range(10_000))
    assert daemon.get(f"/data/userrole?{query}").body == ROLE
    daemon.stop()
    assert len([text for text in daemon.messages() if text.startswith("k")]) == 10_000


def test_a_query_of_a_megabyte_is_answered(start_daemon):
    daemon = start_daemon(verbosity=3, arguments=["-daemon"])
    assert daemon.get("/data/userrole?sid=" + "x" * (1 << 20)).body == ROLE


# Bodies


@pytest.mark.parametrize("method", ["PUT", "POST"])
def test_a_body_of_fifty_megabytes_is_read_and_refused(start_daemon, method):
    daemon = start_daemon()
    daemon.expect_log("Error: DataHandler::setData with path /data/nowhere")
    body = bytes(50 << 20)
    assert daemon.request(method, "/data/nowhere", body, seconds=60).status == 400
    assert_still_answers(daemon)


@pytest.mark.parametrize("body", [
    pytest.param(b"\0", id="a NUL"), pytest.param(b"[\0]", id="a NUL inside"),
    pytest.param(bytes(range(256)), id="all bytes"), pytest.param(b"\xff\xfe", id="not UTF-8"),
    pytest.param(b"[" * 100_000, id="deep arrays"),
    pytest.param(b'{"a":' * 5_000, id="deep objects"),
    pytest.param(b"[" + b"1," * 200_000 + b"1]", id="a long array"),
    pytest.param(b'"' + b"\\u0000" * 1000 + b'"', id="escaped NULs"),
    pytest.param(b"[1e999999, -1e999999]", id="endless numbers"),
])
@pytest.mark.parametrize("path", ["/data/login", "/data/relayarray", "/data/digitaloutputarray"])
def test_an_odd_body_does_no_harm(start_daemon, path, body):
    daemon = start_daemon(verbosity=0)
    daemon.may_log("Error: AccessManager::setData - Invalid JSON: ",
                   "Error: MyRelayArray::setData - ")
    assert daemon.put(path, body).status in (200, 400)
    assert_still_answers(daemon)


def test_a_byte_order_mark_in_front_of_a_body_is_skipped(start_daemon):
    daemon = start_daemon()
    reply = daemon.put("/data/login", b'\xef\xbb\xbf{"role": "admin"}')
    assert b'"success": true' in reply.body


@pytest.mark.parametrize("content_type", [
    "text/plain; charset=utf-16", "application/x-unheard; charset=unheard", "multipart/form-data",
    "application/json", "image/png",
])
def test_the_bodys_content_type_is_ignored(start_daemon, content_type):
    daemon = start_daemon()
    reply = daemon.request("PUT", "/data/login", b'{"role": "admin"}',
                           (f"Content-Type: {content_type}",))
    assert reply.status == 200
    assert b'"success": true' in reply.body


def test_a_body_in_chunks_is_put_together(start_daemon):
    daemon = start_daemon()
    with daemon.connect() as connection:
        connection.send(b"PUT /data/login HTTP/1.1\r\nHost: x\r\n"
                        b"Transfer-Encoding: chunked\r\n\r\n")
        for character in b'{"role": "admin"}':
            connection.send(b"1\r\n" + bytes([character]) + b"\r\n")
        connection.send(b"0\r\n\r\n")
        assert b'"success": true' in connection.read_reply().body


# Heads


@pytest.mark.parametrize("data", [
    b"\0", b"\r\n\r\n", b"GARBAGE\r\n\r\n", b"GET\r\n\r\n", b"GET  HTTP/1.1\r\n\r\n",
    b"GET /data/userrole HTTP/9.9\r\n\r\n", b"GET /data/userrole\r\n\r\n",
    b"GET /data/userrole HTTP/1.1\r\nno colon\r\n\r\n",
    b"GET /data/userrole HTTP/1.1\r\n: no name\r\n\r\n",
    b"GET /data/userrole HTTP/1.1\r\n" + b"X: y\r\n" * 10_000 + b"\r\n",
    b"GET /data/userrole HTTP/1.1\r\nX: " + b"y" * (1 << 20) + b"\r\n\r\n",
    b"PUT /data/login HTTP/1.1\r\nContent-Length: -1\r\n\r\n{}",
    b"PUT /data/login HTTP/1.1\r\nContent-Length: x\r\n\r\n{}",
    b"PUT /data/login HTTP/1.1\r\nContent-Length: 99999999999999999999\r\n\r\n{}",
    b"PUT /data/login HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\nxyz\r\n",
    b"PUT /data/login HTTP/1.1\r\nTransfer-Encoding: unheard\r\nContent-Length: 2\r\n\r\n{}",
    b"\x16\x03\x01\x02\x00\x01\x00\x01\xfc\x03\x03" + bytes(400),
], ids=lambda data: repr(data[:60]))
def test_a_broken_head_does_no_harm(start_daemon, data):
    daemon = start_daemon()
    # The library takes a request line without a version for one with a shorter path.
    daemon.may_log("Error: AccessManager::setData - Invalid JSON: ", "invalid -- /data")
    for _ in range(3):
        with daemon.connect() as connection:
            connection.send(data)
            # Another request behind it makes the daemon look at all of it.
            try:
                connection.send(READ.encode())
            except ConnectionError:
                pass
    assert_still_answers(daemon)


ODD_PATHS = [b"/", b"//", b"/%", b"/%zz", b"/%00", b"/\0", b"/data\0", b"/data/%00", b"*", b"",
             b"data/userrole", b"/./data", b"/../../etc/passwd", b"/data/../x", b"/\xff\xfe",
             b"/data/\xc3\xa4", b"/" + b"x" * 100_000, b"/data/" + b"y/" * 10_000, b"/?",
             b"/data#x", b"http://", b"http://[::1", b"http://a/data/userrole", b"//a@b:1/x",
             b"/data/<>\"{}|^`", b"/%s%n%1", b"/index.html%20", b"/dev/null",
             b"/data/userrole?sid=\xff", b"/;a=b", b"/:"]


@pytest.mark.parametrize("method", ["GET", "PUT", "POST", "DELETE", "HEAD", "PATCH", "OPTIONS",
                                    "TRACE", "get", "G\0T",
                                    pytest.param("X" * 5000, id="5000 letters")])
def test_every_method_with_odd_paths_is_answered(start_daemon, method):
    daemon = start_daemon(verbosity=3)
    daemon.may_log("Error: DataHandler::setData with path ", "invalid -- ", "%s%n%1")
    for path in ODD_PATHS:
        body = b"{}" if method in ("PUT", "POST") else None
        with daemon.connect() as connection:
            connection.send(request_bytes(method, path, body))
            reply = connection.read_reply(has_body=method != "HEAD")
            assert reply.status in (200, 400, 405, 500), (path, reply)
    assert_still_answers(daemon)


def test_a_request_that_comes_byte_by_byte_is_answered(start_daemon):
    daemon = start_daemon()
    with daemon.connect() as connection:
        for byte in request_bytes("PUT", "/data/login", b'{"role": "admin"}'):
            connection.send(bytes([byte]))
        assert b'"success": true' in connection.read_reply().body


def test_connections_that_only_open_and_close_do_no_harm(start_daemon):
    daemon = start_daemon()
    before = len(daemon.open_files())
    for _ in range(500):
        daemon.connect().close()
    assert_still_answers(daemon)
    wait_for("the connections to be gone", lambda: len(daemon.open_files()) <= before)


def test_a_client_that_does_not_wait_for_its_reply_does_no_harm(start_daemon):
    daemon = start_daemon()
    before = len(daemon.open_files())
    for _ in range(300):
        with daemon.connect() as connection:
            connection.send(READ.encode())
    assert_still_answers(daemon)
    wait_for("the connections to be gone", lambda: len(daemon.open_files()) <= before)
