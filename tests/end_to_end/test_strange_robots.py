"""Robots that do not keep to the protocol, none of which may disturb the daemon."""

from __future__ import annotations

import random

import pytest

from support.deadlines import wait_for
from support.strange_robots import (ChattingRobot, ClosingRobot, EndlessRobot, LyingRobot,
                                    SilentRobot, StuffedRobot)

NOISE = random.Random(1).randbytes(100_000)


@pytest.fixture
def make_robot():
    """Makes robots of a given class, and stops them."""
    robots = []

    def make(kind, *arguments):
        robots.append(kind(*arguments))
        return robots[-1]

    yield make
    for robot in robots:
        robot.stop()


@pytest.mark.parametrize("kind, arguments", [
    pytest.param(ClosingRobot, (), id="that closes at once"),
    pytest.param(LyingRobot, (), id="of another protocol"),
    pytest.param(EndlessRobot, (), id="without a line feed"),
    pytest.param(ChattingRobot, (b"garbage\n",), id="that talks garbage"),
    pytest.param(ChattingRobot, (NOISE,), id="of noise"),
    pytest.param(ChattingRobot, (b"[]\n",), id="of arrays"),
    pytest.param(ChattingRobot, (b"\0\0\0\n",), id="of NULs"),
    pytest.param(ChattingRobot, (b"HTTP/1.1 400 Bad Request\r\n\r\n",), id="that is a web server"),
    pytest.param(ChattingRobot, (b'{"a":' * 100_000 + b"\n",), id="of deep objects"),
])
def test_a_stranger_is_left_tried_again_and_never_connected(start_daemon, make_robot, kind,
                                                            arguments):
    stranger = make_robot(kind, *arguments)
    daemon = start_daemon(robot=stranger.address)
    wait_for("another attempt", lambda: stranger.connections_made >= 3)
    assert daemon.get("/data/bumper").body == b'{\n    "value": false\n}\n'
    assert daemon.put("/data/relayarray", b"[1,1]").status == 200
    daemon.stop()
    assert daemon.messages() == []


@pytest.mark.parametrize("kind, arguments", [
    pytest.param(SilentRobot, (), id="that says nothing"),
    pytest.param(ChattingRobot, (b'{"jsonrpc": "2.0", "id": 1, "res',), id="of half a line"),
    pytest.param(ChattingRobot, (b"\n" * 1000,), id="of empty lines"),
])
def test_a_robot_that_never_answers_is_left_after_a_while(start_daemon, make_robot, kind,
                                                          arguments):
    mute = make_robot(kind, *arguments)
    daemon = start_daemon(robot=mute.address)
    wait_for("another attempt", lambda: mute.connections_made >= 2)
    assert daemon.get("/data/bumper").status == 200
    daemon.stop()
    assert daemon.messages() == []


@pytest.mark.parametrize("line", [
    b'{"jsonrpc": "2.0", "method": "unheard.of", "params": {}}',
    b'{"jsonrpc": "2.0", "method": "bumper.changed"}',
    b'{"jsonrpc": "2.0", "method": "bumper.changed", "params": {"value": "yes"}}',
    b'{"jsonrpc": "2.0", "method": "bumper.changed", "params": [true]}',
    b'{"jsonrpc": "2.0", "method": "analogInputArray.valuesChanged", "params": {"values": [1]}}',
    b'{"jsonrpc": "2.0", "method": "analogInputArray.valuesChanged", "params": {"values": '
    b'[1,2,3,4,5,6,7,8,9]}}',
    b'{"jsonrpc": "2.0", "method": "controllerInfo.infoChanged", "params": {"data": "*"}}',
    b'{"jsonrpc": "2.0", "method": "odometry.readings", "params": {"x": 1}}',
    b'{"jsonrpc": "2.0", "id": 7, "result": {}}',
    b"",
], ids=lambda line: line[18:80].decode() or "an empty line")
def test_a_message_that_does_not_fit_is_ignored(start_connected, fake_robot, line):
    daemon = start_connected(fake_robot)
    before = {path: daemon.get(path).body for path in ("/data/analoginputarray", "/data/odometry",
                                                       "/data/controllerinfo", "/data/bumper")}
    fake_robot.send_bytes(line + b"\n")
    fake_robot.show("distanceSensorArray.distancesChanged", {"values": [1] * 9})
    daemon.wait_for_reply("/data/distancesensorarray", b"[\n" + b"    1,\n" * 8 + b"    1\n]\n")
    assert {path: daemon.get(path).body for path in before} == before
    assert daemon.messages() == ["Connected"]


def test_an_unknown_request_of_the_robot_gets_an_error(start_connected, fake_robot):
    start_connected(fake_robot)
    fake_robot.send_bytes(b'{"jsonrpc": "2.0", "id": 8, "method": "unheard.request"}\n')
    answer = wait_for("an answer", lambda: fake_robot.answers)[0]
    assert (answer["id"], answer["error"]["code"]) == (8, -32601)


@pytest.mark.parametrize("data", [
    pytest.param(b"no json\n", id="a line of garbage"),
    pytest.param(b"[]\n", id="an array"),
    pytest.param(b"x" * (9 << 20), id="nine megabytes without a line feed"),
])
def test_garbage_ends_a_connection_that_was_up(start_connected, fake_robot, data):
    daemon = start_connected(fake_robot)
    fake_robot.send_bytes(data)
    daemon.wait_for_message("Connected", count=2)
    assert daemon.messages() == ["Connected", "Disconnected", "Connected"]


def test_half_a_line_is_forgotten_with_its_connection(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    fake_robot.send_bytes(b'{"jsonrpc": "2.0", "method": "bumper.changed", "par')
    fake_robot.drop()
    daemon.wait_for_message("Connected", count=2)
    fake_robot.show("bumper.changed", {"value": True})
    daemon.wait_for_reply("/data/bumper", b'{\n    "value": true\n}\n')
    assert daemon.messages() == ["Connected", "Disconnected", "Connected"]


def test_a_flood_of_events_leaves_the_newest(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    for number in range(20_000):
        fake_robot.show("odometry.readings", {"x": number, "y": 0, "phi": 0, "vx": 0, "vy": 0,
                                              "omega": 0, "sequence": number})
    last = b"[\n    19999,\n" + b"    0,\n" * 5 + b"    19999\n]\n"
    daemon.wait_for_reply("/data/odometry", last)
    assert daemon.messages() == ["Connected"]


def test_a_stop_does_not_wait_for_a_robot_that_never_answers(start_daemon, make_robot):
    mute = make_robot(SilentRobot)
    daemon = start_daemon(robot=mute.address)
    wait_for("the daemon's call", lambda: mute.connections_made >= 1)
    assert daemon.stop() == 0


def test_a_stop_does_not_wait_for_a_robot_that_does_not_read(start_connected, make_robot):
    robot = make_robot(StuffedRobot)
    daemon = start_connected(robot)
    with daemon.connect() as connection:
        for _ in range(2000):
            assert connection.request("PUT", "/data/relayarray", b"[1,0]").status == 200
    assert daemon.stop() == 0
