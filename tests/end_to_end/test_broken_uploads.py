"""Uploads whose client goes away inside the body."""

from __future__ import annotations

import socket
import struct

import pytest

from support.deadlines import wait_for

BROKEN = {
    "half a body": b"Content-Length: 1000\r\n\r\n" + b"x" * 500,
    "no body": b"Content-Length: 1000\r\n\r\n",
    "half a chunk": b"Transfer-Encoding: chunked\r\n\r\n64\r\nabc",
    "between chunks": b"Transfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n",
}


def close(connection):
    connection.close()


def shut_half(connection):
    """The client says that no more comes, but would still read a reply."""
    connection.socket.shutdown(socket.SHUT_WR)
    connection.close()


def reset(connection):
    connection.socket.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
    connection.close()


def break_off(daemon, method, rest, leave, count):
    for _ in range(count):
        connection = daemon.connect()
        connection.send(f"{method} /data/relayarray HTTP/1.1\r\nHost: x\r\n".encode() + rest)
        leave(connection)


def wait_until_as_before(daemon, before):
    """Waits until the daemon answers and holds no more descriptors than it did."""
    assert daemon.get("/data/bumper").status == 200
    wait_for("connections to be closed", lambda: len(daemon.open_files()) <= before)
    assert daemon.put("/data/relayarray", b"[1,0]").status == 200


@pytest.mark.parametrize("leave", [close, shut_half, reset])
@pytest.mark.parametrize("rest", BROKEN.values(), ids=BROKEN)
def test_a_broken_upload_leaves_no_descriptor_behind(start_daemon, rest, leave):
    daemon = start_daemon()
    daemon.get("/data/bumper")
    before = len(daemon.open_files())
    for method in ("PUT", "POST"):
        break_off(daemon, method, rest, leave, 25)
    wait_until_as_before(daemon, before)


def test_two_thousand_broken_uploads_leave_no_descriptor_behind(start_daemon):
    daemon = start_daemon()
    daemon.get("/data/bumper")
    before = len(daemon.open_files())
    for _ in range(20):
        break_off(daemon, "PUT", BROKEN["half a body"], close, 50)
        break_off(daemon, "PUT", BROKEN["half a body"], reset, 50)
    wait_until_as_before(daemon, before)


def test_uploads_that_stall_hold_nobody_else_up(start_daemon):
    daemon = start_daemon()
    stalled = [daemon.connect() for _ in range(200)]
    for connection in stalled:
        connection.send(b"PUT /data/relayarray HTTP/1.1\r\nHost: x\r\n" + BROKEN["half a body"])
    for _ in range(100):
        assert daemon.get("/data/bumper").status == 200
        assert daemon.put("/data/relayarray", b"[1,0]").status == 200
    for connection in stalled:
        connection.close()
