"""The robot's readings: before the first event, as they come, and when the robot is lost."""

from __future__ import annotations

import base64
import json

import pytest

JSON = "application/json; charset=utf-8"

# Each path with its reply before the first event.
UNTOLD = {
    "/data/controllerinfo": b"",
    "/data/analoginputarray": b"[\n" + b"    0,\n" * 7 + b"    0\n]\n",
    "/data/digitalinputarray": b"[\n" + b"    false,\n" * 7 + b"    false\n]\n",
    "/data/distancesensorarray": b"[\n" + b"    0,\n" * 8 + b"    0\n]\n",
    "/data/bumper": b'{\n    "value": false\n}\n',
    "/data/odometry": b"[\n" + b"    0,\n" * 6 + b"    0\n]\n",
}


@pytest.mark.parametrize("path", UNTOLD)
def test_before_the_first_event_a_reading_is_zero_false_or_empty(start_daemon, path):
    reply = start_daemon().get(path)
    assert reply.status_line == b"HTTP/1.1 200 OK"
    assert reply.content_type == JSON
    assert reply.body == UNTOLD[path]


def test_analog_inputs_show_the_digits_of_widened_floats(start_connected, robot):
    values = [0.1, -2.5, 0, 1e-3, 3.3, 9.99, 16777216, -0.7]
    robot.show("analogInputArray.valuesChanged", {"values": values})
    daemon = start_connected(robot)
    daemon.wait_for_reply("/data/analoginputarray", b"""[
    0.10000000149011612,
    -2.5,
    0,
    0.0010000000474974513,
    3.299999952316284,
    9.989999771118164,
    16777216,
    -0.699999988079071
]
""")


def test_a_digital_input_is_true_only_above_zero(start_connected, robot):
    values = [0, 1, -1, 2, -2147483648, 2147483647, 0, -5]
    robot.show("digitalInputArray.valuesChanged", {"values": values})
    daemon = start_connected(robot)
    daemon.wait_for_reply("/data/digitalinputarray", b"""[
    false,
    true,
    false,
    true,
    false,
    true,
    false,
    false
]
""")


def test_the_nine_distances_come_in_their_order(start_connected, robot):
    values = [0.25, 0.5, 0.75, 1, 1.25, 1.5, 1.75, 0.3, 4]
    robot.show("distanceSensorArray.distancesChanged", {"values": values})
    daemon = start_connected(robot)
    expected = [0.25, 0.5, 0.75, 1, 1.25, 1.5, 1.75, 0.30000001192092896, 4]
    daemon.wait_for_reply("/data/distancesensorarray", json_array(expected))


def test_the_bumper_follows_the_robot(start_connected, robot):
    robot.show("bumper.changed", {"value": True})
    daemon = start_connected(robot)
    daemon.wait_for_reply("/data/bumper", b'{\n    "value": true\n}\n')
    robot.show("bumper.changed", {"value": False})
    daemon.wait_for_reply("/data/bumper", b'{\n    "value": false\n}\n')


def test_odometry_is_an_array_whose_sequence_is_a_whole_number(start_connected, robot):
    robot.show("odometry.readings", {"x": 0.1, "y": -1.5, "phi": 3.141592653589793, "vx": 0.1,
                                     "vy": -0.2, "omega": 0.5, "sequence": 2147483647})
    daemon = start_connected(robot)
    daemon.wait_for_reply("/data/odometry", b"""[
    0.1,
    -1.5,
    3.141592653589793,
    0.10000000149011612,
    -0.20000000298023224,
    0.5,
    2147483647
]
""")


@pytest.mark.parametrize("record, body", [
    pytest.param(b'{"hostname":"robot"}', b'{"hostname":"robot"}', id="JSON"),
    pytest.param(b"  no JSON\r\n\xff\xfe\x80 at all\n", b"  no JSON\r\n\xff\xfe\x80 at all\n",
                 id="not UTF-8"),
    pytest.param(b"\xef\xbb\xbf{}", b"\xef\xbb\xbf{}", id="a byte order mark"),
    pytest.param(b"before\0behind", b"before", id="cut at a NUL"),
    pytest.param(b"x" * 300_000, b"x" * 300_000, id="300 kB"),
])
def test_the_controllers_record_passes_untouched(start_connected, robot, record, body):
    robot.show("controllerInfo.infoChanged", {"data": base64.b64encode(record).decode()})
    daemon = start_connected(robot)
    daemon.wait_for_reply("/data/controllerinfo", body)
    assert daemon.get("/data/controllerinfo").content_type == JSON


def test_an_empty_record_replaces_an_earlier_one(start_connected, robot):
    robot.show("controllerInfo.infoChanged", {"data": base64.b64encode(b"first").decode()})
    daemon = start_connected(robot)
    daemon.wait_for_reply("/data/controllerinfo", b"first")
    robot.show("controllerInfo.infoChanged", {"data": ""})
    daemon.wait_for_reply("/data/controllerinfo", b"")


def test_readings_stay_when_the_robot_is_lost(start_connected, robot):
    robot.show("bumper.changed", {"value": True})
    robot.show("analogInputArray.valuesChanged", {"values": [1, 2, 3, 4, 5, 6, 7, 8]})
    robot.show("controllerInfo.infoChanged", {"data": base64.b64encode(b"kept").decode()})
    robot.show("odometry.readings", {"x": 1, "y": 2, "phi": 3, "vx": 4, "vy": 5, "omega": 6,
                                     "sequence": 7})
    daemon = start_connected(robot)
    expected = {
        "/data/bumper": b'{\n    "value": true\n}\n',
        "/data/analoginputarray": json_array([1, 2, 3, 4, 5, 6, 7, 8]),
        "/data/controllerinfo": b"kept",
        "/data/odometry": json_array([1, 2, 3, 4, 5, 6, 7]),
    }
    for path, body in expected.items():
        daemon.wait_for_reply(path, body)
    robot.stop()
    daemon.wait_for_message("Disconnected")
    assert {path: daemon.get(path).body for path in expected} == expected
    robot.start()


def json_array(values):
    return json.dumps(values, indent=4).encode() + b"\n"
