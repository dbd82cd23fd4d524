"""The supply and the battery: before the first reading, as they are told, and when all is lost."""

from __future__ import annotations

import pytest

from support.sessions import PASSWORDS

JSON = "application/json; charset=utf-8"
POWER = "/data/powermanagement"

READING = {"voltage": 24.3, "current": -1.5, "ext_power": True, "num_chargers": 2,
           "batteryType": "NiMH", "batteryLow": True, "batteryLowShutdownCounter": 59}

# The robot tells its current too, but no client gets it.
READING_AS_TOLD = b"""{
    "batteryLow": true,
    "batteryLowShutdownCounter": 59,
    "batteryType": "NiMH",
    "ext_power": true,
    "num_chargers": 2,
    "voltage": 24.299999237060547
}
"""


def test_before_the_first_reading_all_is_zero_false_or_empty(start_daemon):
    reply = start_daemon().get(POWER)
    assert reply.status_line == b"HTTP/1.1 200 OK"
    assert reply.content_type == JSON
    assert reply.body == b"""{
    "batteryLow": false,
    "batteryLowShutdownCounter": 0,
    "batteryType": "",
    "ext_power": false,
    "num_chargers": 0,
    "voltage": 0
}
"""


def test_a_reading_is_told_with_the_digits_of_widened_floats(start_connected, robot):
    robot.show("powerManagement.readings", READING)
    daemon = start_connected(robot)
    daemon.wait_for_reply(POWER, READING_AS_TOLD)


def test_a_new_reading_replaces_all_of_the_old_one(start_connected, robot):
    robot.show("powerManagement.readings", READING)
    daemon = start_connected(robot)
    daemon.wait_for_reply(POWER, READING_AS_TOLD)
    robot.show("powerManagement.readings",
               {"voltage": 0.1, "current": 0, "ext_power": False, "num_chargers": 0,
                "batteryType": "", "batteryLow": False, "batteryLowShutdownCounter": -1})
    daemon.wait_for_reply(POWER, b"""{
    "batteryLow": false,
    "batteryLowShutdownCounter": -1,
    "batteryType": "",
    "ext_power": false,
    "num_chargers": 0,
    "voltage": 0.10000000149011612
}
""")


@pytest.mark.parametrize("battery, told", [
    pytest.param("Bl\u00e4i \u20ac \U0001f50b", "Bl\u00e4i \u20ac \U0001f50b", id="umlauts"),
    pytest.param('a "b" \\ c', r'a \"b\" \\ c', id="quotes"),
    pytest.param("a\nb\tc", r"a\nb\tc", id="control characters"),
    pytest.param("%1 %2", "%1 %2", id="placeholders"),
    pytest.param("x" * 10_000, "x" * 10_000, id="a long text"),
])
def test_a_text_of_any_kind_is_valid_json(start_connected, fake_robot, battery, told):
    fake_robot.show("powerManagement.readings", READING | {"batteryType": battery})
    daemon = start_connected(fake_robot)
    daemon.wait_for_reply(POWER, READING_AS_TOLD.replace(b"NiMH", told.encode()))


def test_anyone_may_read_it(start_connected, fake_robot):
    fake_robot.show("powerManagement.readings", READING)
    daemon = start_connected(fake_robot, settings=PASSWORDS)
    daemon.wait_for_reply(POWER, READING_AS_TOLD)


def test_the_last_reading_stays_when_the_robot_is_lost(start_connected, robot):
    robot.show("powerManagement.readings", READING)
    daemon = start_connected(robot)
    daemon.wait_for_reply(POWER, READING_AS_TOLD)
    robot.stop()
    daemon.wait_for_message("Disconnected")
    assert daemon.get(POWER).body == READING_AS_TOLD
    robot.start()


def test_a_simulated_robot_that_is_plugged_in_tells_so(start_connected, simulator):
    daemon = start_connected(simulator)
    simulator.call("state.set", {"battery": {"charge": 0.1, "externalPower": False}})
    daemon.wait_for_text(POWER, b'"batteryLow": true')
    simulator.call("state.set", {"battery": {"charge": 0.9, "externalPower": True}})
    daemon.wait_for_text(POWER, b'"ext_power": true')
