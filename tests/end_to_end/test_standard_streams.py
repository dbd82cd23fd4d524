"""Standard streams that are closed, full, or read by nobody."""

from __future__ import annotations

import os
import signal

import pytest

from support.deadlines import wait_for
from support.http import Connection


def wait_for_listener(daemon):
    """Waits until the daemon takes connections, where its output can't tell."""

    def connects():
        try:
            Connection(daemon.port).close()
            return True
        except ConnectionRefusedError:
            return False

    wait_for("the listener", connects)


@pytest.mark.parametrize("streams", [(0,), (1,), (2,), (0, 1), (1, 2), (0, 1, 2)],
                         ids=lambda streams: " and ".join(map(str, streams)))
def test_closed_streams_are_replaced_before_a_socket_takes_their_place(new_daemon, streams):
    daemon = new_daemon(verbosity=3, closed_streams=streams)
    daemon.choose_port()
    daemon.launch()
    wait_for_listener(daemon)
    for stream in streams:
        assert os.readlink(f"/proc/{daemon.pid}/fd/{stream}") == "/dev/null"
    daemon.expect_log("invalid -- /data/nowhere")
    # Console text that went into a socket would stand in these replies.
    with daemon.connect() as first, daemon.connect() as second:
        for _ in range(20):
            for connection in (first, second):
                assert connection.request("GET", "/data/nowhere").status_line == b"HTTP/1.1 200 OK"
                assert connection.request("DELETE", "/").status_line == b"HTTP/1.1 200 OK"
    assert daemon.stop() == 0
    messages = daemon.messages()
    assert messages.count("invalid -- /data/nowhere") == 40
    assert messages[0] == "tessarad started" and messages[-1] == "tessarad stopped\n"


def test_the_usage_text_with_closed_streams_does_no_harm(new_daemon):
    daemon = new_daemon(closed_streams=(0, 1, 2))
    daemon.launch_with(["-help"])
    assert daemon.wait_for_end() == 0


def unread_pipe():
    reading, writing = os.pipe()
    os.close(reading)
    return writing


def full_device():
    return os.open("/dev/full", os.O_WRONLY)


@pytest.mark.parametrize("make", [unread_pipe, full_device])
@pytest.mark.parametrize("stream", ["stdout", "stderr", "both"])
def test_output_that_nobody_takes_does_not_end_the_daemon(new_daemon, make, stream):
    target = make()
    streams = ("stdout", "stderr") if stream == "both" else (stream,)
    daemon = new_daemon(verbosity=3, **{name: target for name in streams})
    daemon.choose_port()
    daemon.launch()
    os.close(target)
    wait_for_listener(daemon)
    for _ in range(5):
        assert daemon.get("/data/bumper").body == b'{\n    "value": false\n}\n'
        assert daemon.request("DELETE", "/x").status == 200
    assert daemon.stop(signal.SIGTERM) == 0
    assert daemon.messages()[-1] == "tessarad stopped\n"


def test_a_reader_that_goes_away_later_does_not_end_the_daemon(new_daemon):
    reading, writing = os.pipe()
    daemon = new_daemon(verbosity=3, stdout=writing)
    daemon.choose_port()
    daemon.launch()
    os.close(writing)
    wait_for_listener(daemon)
    assert daemon.get("/data/bumper").status == 200
    os.close(reading)
    for _ in range(5):
        assert daemon.get("/data/bumper").status == 200
        assert daemon.request("DELETE", "/x").status == 200
    assert daemon.stop() == 0
