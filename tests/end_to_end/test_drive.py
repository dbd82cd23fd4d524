"""Drive commands: what a body means, what is refused, and what reaches the robot."""

from __future__ import annotations

import json
import struct

import pytest

from support.deadlines import wait_for
from support.drive import (COMMAND, DRIVE, STANDSTILL, drive, velocities,
                           wait_for_all_commands)
from support.sessions import PASSWORDS, log_in

JSON = "application/json; charset=utf-8"
VX = "Error: MyOmniDrive::setData - vx out of bounds : vx = {} | limit = {}"
VY = "Error: MyOmniDrive::setData - vy out of bounds : vx = {} | limit = {}"
OMEGA = "Error: MyOmniDrive::setData - vy out of bounds : omega = {} | limit = {}"


def as_float(number):
    """The number that is left of it in 32 bits."""
    return struct.unpack("f", struct.pack("f", number))[0]


def assert_empty(reply, status):
    assert reply.status == status
    assert reply.content_type == JSON
    assert reply.body == b""


@pytest.mark.parametrize("body, expected", [
    ("[1, -2, 3]", (1, -2, 3)),
    ("[0.1, 0.2, -0.3]", (0.1, 0.2, -0.3)),
    ("[]", STANDSTILL),
    ("{}", STANDSTILL),
    ('{"vx": 1, "vy": 1, "omega": 1}', STANDSTILL),
    ("[1]", (1, 0, 0)),
    ("[0, 1]", (0, 1, 0)),
    ("[1, 1, 1, 99]", (1, 1, 1)),
    ('[1, 1, 1, "x", [], 5]', (1, 1, 1)),
    ('["1", 1, "99"]', (0, 1, 0)),
    ("[true, null, 1]", (0, 0, 1)),
    ("[[1], {}, 1]", (0, 0, 1)),
    ("[2, 2, 3]", (2, 2, 3)),
    ("[-2, -2, -3]", (-2, -2, -3)),
    # It is the 32 bits of the command that must keep the limit.
    ("[2.00000001]", (2, 0, 0)),
    ("[1e-300, -0.0, 1e0]", (0, 0, 1)),
    (" [1,\n1] \n", (1, 1, 0)),
    ("\ufeff[1]", (1, 0, 0)),
])
def test_a_body_within_the_limits_drives_at_once(start_connected, fake_robot, body, expected):
    reply, commands = drive(start_connected(fake_robot), fake_robot, body.encode())
    assert_empty(reply, 200)
    assert commands == [tuple(as_float(number) for number in expected)]


@pytest.mark.parametrize("body, message", [
    ("[2.0001]", VX.format("2.0001", 2)),
    ("[-2.0001]", VX.format("-2.0001", 2)),
    ("[0, 2.0001]", VY.format("2.0001", 2)),
    ("[0, -2.0001]", VY.format("-2.0001", 2)),
    ("[0, 0, 3.0001]", OMEGA.format("3.0001", 3)),
    ("[0, 0, -3.0001]", OMEGA.format("-3.0001", 3)),
    ("[9, 0, 9]", VX.format(9, 2)),
    ("[9, 9, 9]", VX.format(9, 2)),
    ("[1, -9, 9]", VY.format(-9, 2)),
    ("[123456789]", VX.format("1.23457e+08", 2)),
    ("[1e300]", VX.format("inf", 2)),
    ("[0, -1e300]", VY.format("-inf", 2)),
])
def test_a_body_beyond_a_limit_stops_the_robot_and_is_logged_once(start_connected, fake_robot,
                                                                  body, message):
    daemon = start_connected(fake_robot)
    daemon.expect_log(message)
    reply, commands = drive(daemon, fake_robot, body.encode())
    assert_empty(reply, 400)
    assert commands == [STANDSTILL]
    daemon.stop()
    assert daemon.messages() == ["Connected", message]


@pytest.mark.parametrize("body, reason", [
    pytest.param(b"no json", "illegal value", id="a word"),
    pytest.param(b"", "illegal value", id="nothing"),
    pytest.param(b"1", "illegal value", id="a number"),
    pytest.param(b"[1,0", "invalid termination by number", id="half an array"),
    pytest.param(b"[1] [2]", "garbage at the end of the document", id="two arrays"),
    pytest.param(b"[\"\xff\"]", "invalid UTF8 string", id="not UTF-8"),
    pytest.param(b"[nan]", "illegal value", id="nan"),
])
def test_a_body_that_is_no_json_is_refused_and_leaves_the_velocity_alone(start_connected,
                                                                         fake_robot, body, reason):
    daemon = start_connected(fake_robot)
    message = f"Error: MyOmniDrive::setData - Invalid JSON: {reason}"
    daemon.expect_log(message)
    reply, commands = drive(daemon, fake_robot, body)
    assert_empty(reply, 400)
    assert commands == []
    daemon.stop()
    assert daemon.messages() == ["Connected", message]


def test_the_settings_limit_each_component(start_connected, fake_robot):
    daemon = start_connected(fake_robot, settings={
        "Omnidrive/vxmax": "0.5", "Omnidrive/vymax": "2,5", "Omnidrive/omegamax": "1e1"})
    daemon.expect_log(VX.format("0.51", "0.5"), VY.format("0.01", 0), OMEGA.format("10.5", 10))
    bodies = [b"[0.5, 0, 10]", b"[-0.5, 0, -10]", b"[0.51]", b"[0, 0.01]", b"[0, 0, 10.5]"]
    statuses = [daemon.put(DRIVE, body).status for body in bodies]
    assert statuses == [200, 200, 400, 400, 400]
    wait_for_all_commands(daemon, fake_robot)
    assert velocities(fake_robot)[:5] == [(0.5, 0, 10), (-0.5, 0, -10), *[STANDSTILL] * 3]


@pytest.mark.parametrize("method", ["PUT", "POST"])
def test_each_request_is_one_command_in_the_requests_order(start_connected, robot, method):
    daemon = start_connected(robot)
    sent = [(number / 128, -number / 64, number / 32) for number in range(64)]
    with daemon.connect() as connection:
        for command in sent:
            body = json.dumps(command).encode()
            assert_empty(connection.request(method, DRIVE, body), 200)
    wait_for_all_commands(daemon, robot)
    assert velocities(robot)[:64] == sent


def test_a_command_names_its_three_components(start_connected, fake_robot):
    drive(start_connected(fake_robot), fake_robot, b"[1, 2, 3]")
    assert fake_robot.commands(COMMAND)[0] == {"vx": 1, "vy": 2, "omega": 3}


@pytest.mark.parametrize("method", ["PUT", "POST"])
@pytest.mark.parametrize("query", ["", "?sid=", "?sid=unknown", "?SID=driver", "?sid=driver%20"])
def test_a_guest_is_refused_and_moves_nothing(start_connected, fake_robot, query, method):
    daemon = start_connected(fake_robot, settings=PASSWORDS)
    daemon.expect_log(f"Error: DataHandler::setData with path {DRIVE}")
    for session in ("driver", "marker"):
        log_in(daemon, session, "operator")
    for body in (b"[1]", b"[9]", b"no json"):
        reply, commands = drive(daemon, fake_robot, body, query, method)
        assert_empty(reply, 400)
        assert commands == []


@pytest.mark.parametrize("role", ["operator", "admin"])
def test_operator_and_admin_may_drive(start_connected, fake_robot, role):
    daemon = start_connected(fake_robot, settings=PASSWORDS)
    log_in(daemon, "marker", role)
    reply, commands = drive(daemon, fake_robot, b"[1]", "?sid=marker")
    assert_empty(reply, 200)
    assert commands == [(1, 0, 0)]


def test_who_has_logged_out_drives_no_more(start_connected, fake_robot):
    daemon = start_connected(fake_robot, settings=PASSWORDS)
    daemon.expect_log(f"Error: DataHandler::setData with path {DRIVE}")
    log_in(daemon, "driver", "operator")
    log_in(daemon, "marker", "operator")
    daemon.put("/data/login?sid=driver", b'{"role": "guest"}')
    reply, commands = drive(daemon, fake_robot, b"[1]", "?sid=driver")
    assert_empty(reply, 400)
    assert commands == []


@pytest.mark.parametrize("path", [DRIVE + "/", DRIVE.upper(), DRIVE + "s", "/data/omniDrive"])
def test_only_the_path_as_it_is_written_drives(start_connected, fake_robot, path):
    daemon = start_connected(fake_robot)
    daemon.expect_log(f" {path}")
    assert_empty(daemon.put(path, b"[1]"), 400)
    wait_for_all_commands(daemon, fake_robot)
    assert velocities(fake_robot) == []


def test_the_drive_cannot_be_read(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    daemon.expect_log(f"invalid -- {DRIVE}")
    assert_empty(daemon.get(DRIVE), 200)
    wait_for_all_commands(daemon, fake_robot)
    assert velocities(fake_robot) == []


def test_commands_during_a_loss_are_dropped(start_connected, robot):
    daemon = start_connected(robot)
    robot.stop()
    daemon.wait_for_message("Disconnected")
    assert_empty(daemon.put(DRIVE, b"[1]"), 200)
    robot.start()
    daemon.wait_for_message("Connected", count=2)
    wait_for_all_commands(daemon, robot)
    # The stop may come when the robot is back already, the command never.
    assert set(velocities(robot)) <= {STANDSTILL}


def test_the_simulated_robot_drives_and_its_odometry_tells(start_connected, simulator):
    daemon = start_connected(simulator)
    with daemon.connect() as connection:

        def has_moved():
            assert connection.request("PUT", DRIVE, b"[0.5, 0, 0]").status == 200
            x, *_ = json.loads(connection.request("GET", "/data/odometry").body)
            return x > 0.02

        wait_for("the robot to move", has_moved)
