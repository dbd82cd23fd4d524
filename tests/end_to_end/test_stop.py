"""Stop requests of the operating system: which there are, what is logged, and when they work."""

from __future__ import annotations

import os
import signal
import time

import pytest

from support.deadlines import deadline, wait_for
from support.http import request_bytes

NAMES = {
    signal.SIGINT: "CTRL_C_EVENT",
    signal.SIGQUIT: "CTRL_BREAK_EVENT",
    signal.SIGHUP: "CTRL_CLOSE_EVENT",
    signal.SIGTERM: "CTRL_SHUTDOWN_EVENT",
}

each_signal = pytest.mark.parametrize("number", list(NAMES), ids=lambda number: number.name)


@each_signal
def test_the_events_name_is_written_before_the_stop(start_daemon, number):
    daemon = start_daemon(verbosity=1)
    assert daemon.stop(number) == 0
    assert daemon.messages() == ["tessarad started", NAMES[number], "tessarad stopped\n"]


@each_signal
def test_without_verbosity_the_stop_leaves_no_text(start_daemon, number):
    daemon = start_daemon()
    before = daemon.stdout()
    assert daemon.stop(number) == 0
    assert daemon.log() == ""
    assert daemon.stdout() == before


@pytest.mark.parametrize("number", [signal.SIGPIPE, signal.SIGCHLD, signal.SIGWINCH,
                                    signal.SIGCONT, signal.SIGURG], ids=lambda number: number.name)
def test_a_signal_that_is_no_stop_request_leaves_it_running(start_daemon, number):
    daemon = start_daemon(verbosity=1)
    daemon.send_signal(number)
    assert daemon.get("/data/bumper").status == 200
    assert daemon.messages() == ["tessarad started"]


@pytest.mark.parametrize("first, second", [
    (signal.SIGTERM, signal.SIGTERM), (signal.SIGINT, signal.SIGTERM),
    (signal.SIGHUP, signal.SIGINT), (signal.SIGQUIT, signal.SIGHUP),
])
def test_a_second_request_on_the_heels_of_the_first_does_no_harm(start_daemon, first, second):
    daemon = start_daemon(verbosity=1)
    daemon.send_signal(first)
    assert daemon.stop(second) == 0
    messages = daemon.messages()
    assert messages[0] == "tessarad started" and messages[-1] == "tessarad stopped\n"
    # Whether the second arrives before the first is acted on is a matter of luck.
    assert messages[1:-1] in ([NAMES[first]], [NAMES[second]])


def test_requests_that_go_on_to_the_last_moment_do_no_harm(start_daemon):
    daemon = start_daemon(verbosity=1)
    end = time.monotonic() + deadline(15)
    while daemon.is_running():
        assert time.monotonic() < end, "the daemon doesn't stop"
        daemon.send_signal(signal.SIGTERM)
        daemon.send_signal(signal.SIGINT)
        # Without a breath between them the system does nothing but deliver signals.
        time.sleep(0.0005)
    assert daemon.wait_for_end() == 0
    assert daemon.messages()[-1] == "tessarad stopped\n"


@pytest.mark.parametrize("number, listener", [
    pytest.param(signal.SIGTERM, None, id="SIGTERM with a listener"),
    pytest.param(signal.SIGINT, "", id="SIGINT without a listener"),
])
def test_a_request_at_any_moment_of_the_start_ends_the_daemon(new_daemon, number, listener):
    outcomes = set()
    for step in range(60):
        daemon = new_daemon(verbosity=1, listener=listener)
        daemon.choose_port()
        daemon.launch()
        time.sleep(step * deadline(0.0005))
        exit_code = daemon.stop(number)
        daemon.expected_exit_code = exit_code
        outcomes.add(exit_code)
        # Before it can stop in order it is ended by the signal; from the log's first line on never.
        assert exit_code == 0 or (exit_code == -number and daemon.log() == "")
        if exit_code == 0:
            assert daemon.messages() == ["tessarad started", NAMES[number], "tessarad stopped\n"]
    assert 0 in outcomes


@pytest.mark.parametrize("data", [
    pytest.param(b"", id="nothing"),
    pytest.param(b"GET /data/bumper HTTP/1.1\r\nHost: x\r\n", id="half a head"),
    pytest.param(request_bytes("GET", "/data/bumper"), id="a whole request"),
    pytest.param(b"PUT /data/login HTTP/1.1\r\nHost: x\r\nContent-Length: 100\r\n\r\nabc",
                 id="half a body"),
    pytest.param(b"PUT /data/login HTTP/1.1\r\nHost: x\r\nTransfer-Encoding: chunked\r\n\r\n5\r\na",
                 id="half a chunk"),
])
def test_open_connections_do_not_hold_up_the_stop(start_daemon, data):
    daemon = start_daemon()
    connections = [daemon.connect() for _ in range(5)]
    for connection in connections:
        connection.send(data)
    daemon.get("/data/bumper")
    start = time.monotonic()
    assert daemon.stop() == 0
    assert time.monotonic() - start < deadline(2)
    for connection in connections:
        connection.close()


def test_downloads_that_nobody_reads_do_not_hold_up_the_stop(start_daemon, tmp_path):
    with open(tmp_path / "large.bin", "wb") as file:
        os.truncate(file.fileno(), 200 << 20)
    daemon = start_daemon(resources=tmp_path)
    connections = [daemon.connect() for _ in range(10)]
    for connection in connections:
        connection.send(request_bytes("GET", "/large.bin"))
        wait_for("the reply's first byte", lambda c=connection: c.socket.recv(1))
    start = time.monotonic()
    assert daemon.stop() == 0
    assert time.monotonic() - start < deadline(4)
    for connection in connections:
        connection.close()
