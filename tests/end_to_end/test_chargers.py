"""The robot's two chargers, and the record of its battery pack's charger."""

from __future__ import annotations

import base64
import json

import pytest

from support.sessions import PASSWORDS

JSON = "application/json; charset=utf-8"
CHARGERS = ["/data/charger0", "/data/charger1"]
RECORD = "/data/festoolcharger"

INFO = {"time": 12345, "batteryVoltage": 27.1, "chargingCurrent": 4.5, "bat1temp": 21.25,
        "bat2temp": -0.3, "state_number": 3, "state": "float"}

both_chargers = pytest.mark.parametrize("number", [0, 1])


def rendered(number, version="1.2.3", **changes):
    """A charger's reply; changes are told as they stand."""
    shown = {"bat1temp": 21.25, "bat2temp": -0.30000001192092896,
             "batteryVoltage": 27.100000381469727, "chargerNumber": number, "chargingCurrent": 4.5,
             "state": "float", "state_number": 3, "time": 12345, "version": version} | changes
    return json.dumps(shown, indent=4).encode() + b"\n"


def untold(number):
    return rendered(number, "0.0.0", bat1temp=0, bat2temp=0, batteryVoltage=0, chargingCurrent=0,
                    state="", state_number=0, time=0)


def show(robot, number, version=(1, 2, 3), **changes):
    robot.show("charger.infoChanged", {"chargerNumber": number} | INFO | changes)
    major, minor, patch = version
    robot.show("charger.versionChanged",
               {"chargerNumber": number, "major": major, "minor": minor, "patch": patch})


@both_chargers
def test_without_a_robot_a_charger_answers_with_its_number(start_daemon, number):
    reply = start_daemon().get(CHARGERS[number])
    assert reply.status_line == b"HTTP/1.1 200 OK"
    assert reply.content_type == JSON
    assert reply.body == untold(number)


def test_the_keys_stand_sorted_in_indented_lines(start_connected, robot):
    show(robot, 1)
    start_connected(robot).wait_for_reply("/data/charger1", b"""{
    "bat1temp": 21.25,
    "bat2temp": -0.30000001192092896,
    "batteryVoltage": 27.100000381469727,
    "chargerNumber": 1,
    "chargingCurrent": 4.5,
    "state": "float",
    "state_number": 3,
    "time": 12345,
    "version": "1.2.3"
}
""")


def test_each_charger_is_told_for_itself(start_connected, robot):
    show(robot, 0, state="bulk", state_number=1)
    show(robot, 1, (10, 0, 255))
    daemon = start_connected(robot)
    daemon.wait_for_reply("/data/charger0", rendered(0, state="bulk", state_number=1))
    daemon.wait_for_reply("/data/charger1", rendered(1, "10.0.255"))


@both_chargers
def test_the_other_charger_stays_untold(start_connected, fake_robot, number):
    show(fake_robot, number)
    daemon = start_connected(fake_robot)
    daemon.wait_for_reply(CHARGERS[number], rendered(number))
    assert daemon.get(CHARGERS[1 - number]).body == untold(1 - number)


@pytest.mark.parametrize("time, told", [
    (0, 0), (2147483647, 2147483647), (2147483648, -2147483648), (4294967295, -1),
])
def test_a_clock_from_two_to_the_31_on_is_negative(start_connected, robot, time, told):
    show(robot, 0, time=time)
    start_connected(robot).wait_for_reply("/data/charger0", rendered(0, time=told))


def test_an_error_of_a_charger_changes_nothing(start_connected, fake_robot):
    show(fake_robot, 0)
    daemon = start_connected(fake_robot)
    daemon.wait_for_reply("/data/charger0", rendered(0))
    fake_robot.show("charger.errorChanged", {"chargerNumber": 0, "time": 7, "message": "too hot"})
    show(fake_robot, 1)
    daemon.wait_for_reply("/data/charger1", rendered(1))
    assert daemon.get("/data/charger0").body == rendered(0)
    assert daemon.messages() == ["Connected"]


def test_a_charger_of_another_number_is_nobodys(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    for number in (-1, 2, 1000):
        show(fake_robot, number)
    show(fake_robot, 1, state="last")
    daemon.wait_for_reply("/data/charger1", rendered(1, state="last"))
    assert daemon.get("/data/charger0").body == untold(0)
    daemon.expect_log("invalid -- /data/charger2", "invalid -- /data/charger")
    for path in ("/data/charger2", "/data/charger"):
        assert daemon.get(path).body == b""


def test_before_the_first_event_the_battery_packs_record_is_empty(start_daemon):
    reply = start_daemon().get(RECORD)
    assert reply.status_line == b"HTTP/1.1 200 OK"
    assert reply.content_type == JSON
    assert reply.body == b""


@pytest.mark.parametrize("record", [
    pytest.param(b'{"state":"charging"}', id="JSON"),
    pytest.param(b"  no JSON\r\n\xff\xfe\x80 at all\n", id="not UTF-8"),
    pytest.param(b"\xef\xbb\xbf{}", id="a byte order mark"),
    pytest.param(b"x" * 300_000, id="300 kB"),
])
def test_the_battery_packs_record_passes_untouched(start_connected, robot, record):
    robot.show("festoolCharger.infoChanged", {"data": base64.b64encode(record).decode()})
    daemon = start_connected(robot)
    daemon.wait_for_reply(RECORD, record)
    assert daemon.get("/data/controllerinfo").body != record


def test_a_new_record_replaces_the_old_one_also_an_empty_one(start_connected, robot):
    daemon = start_connected(robot)
    for record in (b"first", b"", b"third"):
        robot.show("festoolCharger.infoChanged", {"data": base64.b64encode(record).decode()})
        daemon.wait_for_reply(RECORD, record)


def test_anyone_may_read_them(start_connected, fake_robot):
    show(fake_robot, 0)
    show(fake_robot, 1)
    fake_robot.show("festoolCharger.infoChanged", {"data": base64.b64encode(b"open").decode()})
    daemon = start_connected(fake_robot, settings=PASSWORDS)
    daemon.wait_for_reply("/data/charger0", rendered(0))
    daemon.wait_for_reply("/data/charger1", rendered(1))
    daemon.wait_for_reply(RECORD, b"open")


def test_what_was_told_stays_when_the_robot_is_lost(start_connected, robot):
    show(robot, 0)
    show(robot, 1)
    robot.show("festoolCharger.infoChanged", {"data": base64.b64encode(b"kept").decode()})
    daemon = start_connected(robot)
    expected = {"/data/charger0": rendered(0), "/data/charger1": rendered(1), RECORD: b"kept"}
    for path, body in expected.items():
        daemon.wait_for_reply(path, body)
    robot.stop()
    daemon.wait_for_message("Disconnected")
    assert {path: daemon.get(path).body for path in expected} == expected
    robot.start()
