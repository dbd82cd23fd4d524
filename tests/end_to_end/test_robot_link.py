"""The connection to the robot: when it comes up, what it survives, and who is on the other side."""

from __future__ import annotations

import base64
import json
import random
import socket
import threading

import pytest

from support.deadlines import wait_for
from support.fake_robot import FakeRobot

RELAYS = "relayArray.setValues"


def info(text):
    return {"data": base64.b64encode(text).decode()}


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


# Up and down


def test_up_and_down_are_logged_at_every_level(start_connected, robot):
    daemon = start_connected(robot)
    robot.stop()
    daemon.wait_for_message("Disconnected")
    robot.start()
    daemon.wait_for_message("Connected", count=2)
    daemon.stop()
    assert daemon.messages() == ["Connected", "Disconnected", "Connected"]


def test_a_robot_that_is_switched_off_leaves_no_message(start_daemon, fake_robot):
    fake_robot.stop()
    daemon = start_daemon(robot=fake_robot.address)
    fake_robot.start()
    daemon.wait_for_message("Connected")
    assert daemon.messages() == ["Connected"]


def test_a_daemon_may_start_before_its_robot(start_daemon, robot):
    robot.stop()
    daemon = start_daemon(robot=robot.address)
    assert daemon.get("/data/bumper").body == b'{\n    "value": false\n}\n'
    robot.start()
    robot.show("bumper.changed", {"value": True})
    daemon.wait_for_reply("/data/bumper", b'{\n    "value": true\n}\n')


def test_what_was_received_stays_until_the_robot_tells_anew(start_connected, robot):
    robot.show("controllerInfo.infoChanged", info(b"before"))
    daemon = start_connected(robot)
    daemon.wait_for_reply("/data/controllerinfo", b"before")
    robot.stop()
    daemon.wait_for_message("Disconnected")
    assert daemon.get("/data/controllerinfo").body == b"before"
    robot.start()
    robot.show("controllerInfo.infoChanged", info(b"after"))
    daemon.wait_for_reply("/data/controllerinfo", b"after")


def test_a_crashed_robot_comes_back(start_connected, simulator):
    daemon = start_connected(simulator)
    for loss in range(1, 3):
        simulator.crash()
        daemon.wait_for_message("Disconnected", count=loss)
        simulator.start()
        daemon.wait_for_message("Connected", count=loss + 1)


def test_five_restarts_of_the_robot_under_load(start_connected, simulator):
    simulator.show("bumper.changed", {"value": True})
    daemon = start_connected(simulator)
    daemon.wait_for_reply("/data/bumper", b'{\n    "value": true\n}\n')
    is_over = threading.Event()
    statuses = set()

    def load():
        with daemon.connect(60) as connection:
            while not is_over.is_set():
                for path in ("bumper", "odometry", "analoginputarray", "controllerinfo"):
                    statuses.add(connection.request("GET", f"/data/{path}").status)
                statuses.add(connection.request("PUT", "/data/relayarray", b"[1,0]").status)

    clients = [threading.Thread(target=load) for _ in range(8)]
    for client in clients:
        client.start()
    try:
        for restart in range(1, 6):
            simulator.crash()
            daemon.wait_for_message("Disconnected", count=restart)
            assert daemon.get("/data/bumper").body == b'{\n    "value": true\n}\n'
            simulator.start()
            daemon.wait_for_message("Connected", count=restart + 1)
    finally:
        is_over.set()
        for client in clients:
            client.join()
    assert statuses == {200}
    daemon.stop()
    assert daemon.messages() == ["Connected", *["Disconnected", "Connected"] * 5]


def test_a_robot_that_falls_silent_is_left_and_tried_again(start_connected, simulator):
    daemon = start_connected(simulator)
    simulator.call("clients.mute", {"on": True})
    daemon.wait_for_message("Disconnected")
    simulator.call("clients.mute", {"on": False})
    daemon.wait_for_message("Connected", count=2)


def test_a_dropped_connection_is_made_anew(start_connected, simulator):
    daemon = start_connected(simulator)
    simulator.call("clients.drop", {"forMs": 0})
    daemon.wait_for_message("Connected", count=2)
    assert daemon.messages() == ["Connected", "Disconnected", "Connected"]


def test_a_slow_robot_is_no_lost_robot(start_connected, simulator):
    simulator.call("clients.delay", {"ms": 1000})
    daemon = start_connected(simulator)
    simulator.show("bumper.changed", {"value": True})
    daemon.wait_for_reply("/data/bumper", b'{\n    "value": true\n}\n')
    assert daemon.messages() == ["Connected"]


# Robots that do not keep to the protocol


class SilentRobot(FakeRobot):
    """Takes connections and never says a word."""

    def serve(self, connection):
        while connection.recv(4096):
            pass


class ClosingRobot(FakeRobot):
    """Closes each connection at once."""

    def serve(self, connection):
        connection.close()


class ChattingRobot(FakeRobot):
    """Answers the first words of a client with bytes of its own, again and again."""

    def __init__(self, words):
        self.words = words
        super().__init__()

    def serve(self, connection):
        connection.recv(4096)
        connection.sendall(self.words)
        while connection.recv(4096):
            pass


class EndlessRobot(FakeRobot):
    """Sends a hundred megabytes without a line feed, or as much of them as the daemon takes."""

    def serve(self, connection):
        connection.recv(4096)
        for _ in range(100):
            connection.sendall(b"x" * (1 << 20))


class LyingRobot(FakeRobot):
    """Speaks another version of the protocol."""

    def reply(self, connection, request, result):
        super().reply(connection, request, {"protocol": 2, "robot": "liar"})


class StuffedRobot(FakeRobot):
    """Reads nothing any more once it has said hello."""

    def __init__(self):
        self.is_over = threading.Event()
        super().__init__()

    def serve(self, connection):
        connection.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 1024)
        self.answer(connection, json.loads(connection.makefile("rb").readline()))
        self.is_over.wait()

    def stop(self):
        super().stop()
        self.is_over.set()


NOISE = random.Random(1).randbytes(100_000)


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
