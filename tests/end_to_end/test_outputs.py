"""Digital outputs and relays: what a body means, what is refused, and what reaches the robot."""

from __future__ import annotations

import json

import pytest

from support.deadlines import wait_for
from support.sessions import PASSWORDS, log_in

DIGITAL = "/data/digitaloutputarray"
RELAYS = "/data/relayarray"
COMMANDS = {DIGITAL: "digitalOutputArray.setValues", RELAYS: "relayArray.setValues"}
# A command that tells the end of a test's commands from all that stands before it.
LAST = {DIGITAL: [0, 1, 0, 1, 0, 1, 0, 1], RELAYS: [1, 0]}
WRONG_LENGTH = {
    DIGITAL: "Error: MyRelayArray::setData - Expected array with 8 entries",
    RELAYS: "Error: MyRelayArray::setData - Expected array with two entries",
}

both_paths = pytest.mark.parametrize("path", [DIGITAL, RELAYS])


def commands_until_last(robot, path):
    """The values of all commands that reached the robot before LAST."""
    last = {"values": LAST[path]}
    commands = wait_for("the last command", lambda: [
        command for command in [robot.commands(COMMANDS[path])] if last in command])[0]
    assert commands[-1] == last
    return [command["values"] for command in commands[:-1]]


def finish(daemon, robot, path, target=None):
    """Sends LAST and gives what reached the robot before it."""
    assert daemon.put(target or path, json.dumps(LAST[path]).encode()).status == 200
    return commands_until_last(robot, path)


def assert_empty(reply, status):
    assert reply.status == status
    assert reply.content_type == "application/json; charset=utf-8"
    assert reply.body == b""


def test_every_second_output_is_set(start_connected, robot):
    daemon = start_connected(robot)
    assert_empty(daemon.put(DIGITAL, b"[1, 0, 1, 0, 1, 0, 1, 0]"), 200)
    assert finish(daemon, robot, DIGITAL) == [[1, 0, 1, 0, 1, 0, 1, 0]]


def test_true_and_yes_set_both_relays(start_connected, robot):
    daemon = start_connected(robot)
    assert_empty(daemon.put(RELAYS, b'[true, "yes"]'), 200)
    assert finish(daemon, robot, RELAYS) == [[1, 1]]


@pytest.mark.parametrize("entry, is_on", [
    ("true", True), ("false", False),
    ("1", True), ("0", False), ("-1", False), ("0.5", True), ("2", True), ("-0.5", False),
    ("1e-300", True), ("-0", False), ("1e300", True),
    ('"true"', True), ('"TRUE"', True), ('"True"', True), ('"yes"', True), ('"YES"', True),
    ('"1"', False), ('"on"', False), ('"false"', False), ('"no"', False), ('""', False),
    ('" yes"', False), ('"yes "', False), ('"y\\u0065s"', True),
    ("null", False), ("[]", False), ("[true]", False), ("{}", False), ('{"value": true}', False),
])
def test_an_entry_is_on_for_true_yes_and_all_above_zero(start_connected, fake_robot, entry, is_on):
    daemon = start_connected(fake_robot)
    assert_empty(daemon.put(RELAYS, f"[{entry}, 1]".encode()), 200)
    assert_empty(daemon.put(DIGITAL, f"[1,1,1,1,1,1,1,{entry}]".encode()), 200)
    assert finish(daemon, fake_robot, RELAYS) == [[int(is_on), 1]]
    assert finish(daemon, fake_robot, DIGITAL) == [[1, 1, 1, 1, 1, 1, 1, int(is_on)]]


@pytest.mark.parametrize("path, body", [
    pytest.param(DIGITAL, b"[1,1,1,1,1,1,1]", id="seven outputs"),
    pytest.param(DIGITAL, b"[1,1,1,1,1,1,1,1,1]", id="nine outputs"),
    pytest.param(DIGITAL, b"[]", id="no output"),
    pytest.param(DIGITAL, b'{"values": [1,1,1,1,1,1,1,1]}', id="an object for the outputs"),
    pytest.param(DIGITAL, b"[[1,1,1,1,1,1,1,1]]", id="an array in an array"),
    pytest.param(RELAYS, b"[1]", id="one relay"),
    pytest.param(RELAYS, b"[1,1,1]", id="three relays"),
    pytest.param(RELAYS, b"[1,1,1,1,1,1,1,1]", id="eight relays"),
    pytest.param(RELAYS, b"{}", id="an object for the relays"),
    pytest.param(RELAYS, b'{"0": 1, "1": 1}', id="an object of two for the relays"),
])
def test_an_array_of_another_length_is_refused_and_changes_nothing(start_connected, robot, path,
                                                                   body):
    daemon = start_connected(robot)
    daemon.expect_log(WRONG_LENGTH[path])
    assert_empty(daemon.put(path, body), 400)
    assert finish(daemon, robot, path) == []
    daemon.stop()
    assert daemon.messages().count(WRONG_LENGTH[path]) == 1


@both_paths
@pytest.mark.parametrize("body, reason", [
    pytest.param(b"no json", "illegal value", id="a word"),
    pytest.param(b"", "illegal value", id="nothing"),
    pytest.param(b"1", "illegal value", id="a number"),
    pytest.param(b"[1,0", "invalid termination by number", id="half an array"),
    pytest.param(b"[1,0] x", "garbage at the end of the document", id="more than an array"),
    pytest.param(b"[\"\xff\", 1]", "invalid UTF8 string", id="not UTF-8"),
])
def test_text_that_is_no_json_is_accepted_and_changes_nothing(start_connected, fake_robot, path,
                                                              body, reason):
    daemon = start_connected(fake_robot)
    message = f"Error: MyRelayArray::setData - Invalid JSON: {reason}"
    daemon.expect_log(message)
    assert_empty(daemon.put(path, body), 200)
    assert finish(daemon, fake_robot, path) == []
    daemon.stop()
    assert daemon.messages().count(message) == 1


@both_paths
@pytest.mark.parametrize("method", ["PUT", "POST"])
def test_a_guest_is_refused_and_an_operator_is_not(start_connected, robot, path, method):
    daemon = start_connected(robot, settings=PASSWORDS)
    message = f"Error: DataHandler::setData with path {path}"
    daemon.expect_log(message)
    body = json.dumps([1] * len(LAST[path])).encode()
    for sid in ["", "?sid=", "?sid=unknown", "?SID=driver"]:
        assert_empty(daemon.request(method, path + sid, body), 400)
    log_in(daemon, "driver", "operator")
    assert finish(daemon, robot, path, f"{path}?sid=driver") == []
    daemon.stop()
    assert daemon.messages().count(message) == 4


@both_paths
@pytest.mark.parametrize("role", ["operator", "admin"])
def test_operator_and_admin_may_switch(start_connected, fake_robot, path, role):
    daemon = start_connected(fake_robot, settings=PASSWORDS)
    log_in(daemon, "me", role)
    assert finish(daemon, fake_robot, path, f"{path}?sid=me") == []


@both_paths
def test_commands_during_a_loss_are_dropped(start_connected, robot, path):
    daemon = start_connected(robot)
    robot.stop()
    daemon.wait_for_message("Disconnected")
    assert_empty(daemon.put(path, json.dumps([1] * len(LAST[path])).encode()), 200)
    robot.start()
    daemon.wait_for_message("Connected", count=2)
    assert finish(daemon, robot, path) == []


@both_paths
def test_commands_before_the_first_connection_are_dropped(start_daemon, robot, path):
    robot.stop()
    daemon = start_daemon(robot=robot.address)
    assert_empty(daemon.put(path, json.dumps([1] * len(LAST[path])).encode()), 200)
    robot.start()
    daemon.wait_for_message("Connected")
    assert finish(daemon, robot, path) == []


def test_the_simulated_robots_inputs_follow_its_outputs(start_connected, simulator):
    daemon = start_connected(simulator)
    daemon.put(DIGITAL, b"[1,0,0,0,0,0,0,1]")
    body = [value in (0, 7) for value in range(8)]
    daemon.wait_for_reply("/data/digitalinputarray", json.dumps(body, indent=4).encode() + b"\n")
