"""Scans: what they show before the first one, as they come, and when the robot is lost."""

from __future__ import annotations

import json
import math

import pytest

from support.deadlines import wait_for
from support.scanner import EMPTY, SCAN, rendered
from support.sessions import PASSWORDS

EVENT = "laserRangeFinder.scan"


def subscribe(daemon, robot):
    """Binds the scanner by a first request and waits until the robot knows."""
    before = len(robot.commands("laserRangeFinder.subscribe"))
    daemon.get(SCAN)
    wait_for("a subscription",
             lambda: len(robot.commands("laserRangeFinder.subscribe")) > before)


def test_before_the_first_scan_all_is_zero_and_empty(start_daemon):
    reply = start_daemon().get(SCAN)
    assert reply.status_line == b"HTTP/1.1 200 OK"
    assert reply.content_type == "application/json; charset=utf-8"
    assert reply.body == b"""{
    "angle_increment": 0,
    "angle_max": 0,
    "angle_min": 0,
    "intensities": [
    ],
    "range_max": 0,
    "range_min": 0,
    "ranges": [
    ],
    "scan_time": 0,
    "seq": 0,
    "stamp": 0,
    "time_increment": 0
}
"""
    assert reply.body == rendered(EMPTY)


def test_a_scan_is_told_with_the_digits_of_widened_floats(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    fake_robot.tell(EVENT, {
        "seq": 2147483647, "stamp": -5, "angle_min": -2.1, "angle_max": 2.1,
        "angle_increment": 0.1, "time_increment": 1e-7, "scan_time": 0.5, "range_min": 0.02,
        "range_max": 5.6, "ranges": [0.1, 5.6, 2, -0.3], "intensities": [100, 200, 300]})
    daemon.wait_for_reply(SCAN, b"""{
    "angle_increment": 0.10000000149011612,
    "angle_max": 2.0999999046325684,
    "angle_min": -2.0999999046325684,
    "intensities": [
        0.10000000149011612,
        5.599999904632568,
        2
    ],
    "range_max": 5.599999904632568,
    "range_min": 0.019999999552965164,
    "ranges": [
        0.10000000149011612,
        5.599999904632568,
        2,
        -0.30000001192092896
    ],
    "scan_time": 0.5,
    "seq": 2147483647,
    "stamp": -5,
    "time_increment": 1.0000000116860974e-07
}
""")


@pytest.mark.parametrize("ranges, intensities", [
    pytest.param([1, 2, 3], [7, 8, 9], id="as many"),
    pytest.param([1, 2, 3], [], id="no intensities"),
    pytest.param([1, 2, 3], [7], id="one intensity"),
    pytest.param([1.5], [7, 8, 9], id="more intensities than ranges"),
    pytest.param([], [7, 8], id="no ranges"),
    pytest.param([index / 8 + 0.0625 for index in range(1081)], [1] * 1081, id="a whole circle"),
    pytest.param([0.25] * 50_000, [1] * 20_000, id="fifty thousand rays"),
])
def test_intensities_repeat_the_ranges(start_connected, fake_robot, ranges, intensities):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    scan = {**EMPTY, "seq": 1, "ranges": ranges, "intensities": intensities}
    fake_robot.tell(EVENT, scan)
    daemon.wait_for_reply(SCAN, rendered(scan))


def test_a_new_scan_replaces_all_of_the_old_one(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    for number, rays in ((1, 10), (2, 3), (3, 0), (4, 20)):
        scan = {**EMPTY, "seq": number, "ranges": [number] * rays, "intensities": [9] * rays}
        fake_robot.tell(EVENT, scan)
        daemon.wait_for_reply(SCAN, rendered(scan))
        # Unlike an image it is given to whoever asks.
        assert daemon.get(SCAN).body == rendered(scan)
    assert daemon.messages() == ["Connected"]


def test_a_scan_is_never_a_mix_of_two(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    seen = set()
    with daemon.connect() as connection:
        for number in range(300):
            fake_robot.tell(EVENT, {**EMPTY, "seq": number, "ranges": [number] * (500 + number % 7),
                                    "intensities": [1] * (500 + number % 7)})
            scan = json.loads(connection.request("GET", SCAN).body)
            seen.add(scan["seq"])
            assert set(scan["ranges"]) <= {scan["seq"]}
            assert scan["intensities"] == scan["ranges"]
    assert len(seen) > 1


def test_anyone_may_read_it(start_connected, fake_robot):
    daemon = start_connected(fake_robot, settings=PASSWORDS)
    subscribe(daemon, fake_robot)
    scan = {**EMPTY, "seq": 5, "ranges": [1, 2], "intensities": [3, 4]}
    fake_robot.tell(EVENT, scan)
    daemon.wait_for_reply(SCAN, rendered(scan))


def test_the_last_scan_stays_when_the_robot_is_lost_and_new_ones_come(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    scan = {**EMPTY, "seq": 1, "ranges": [1, 2], "intensities": [3, 4]}
    fake_robot.tell(EVENT, scan)
    daemon.wait_for_reply(SCAN, rendered(scan))
    fake_robot.stop()
    daemon.wait_for_message("Disconnected")
    assert daemon.get(SCAN).body == rendered(scan)
    fake_robot.start()
    wait_for("another subscription",
             lambda: len(fake_robot.commands("laserRangeFinder.subscribe")) == 2)
    fake_robot.tell(EVENT, {**scan, "seq": 2})
    daemon.wait_for_reply(SCAN, rendered({**scan, "seq": 2}))


@pytest.mark.parametrize("path", ["/data/scan", "/data/scan1", "/data/scan0/", "/data/SCAN0"])
def test_only_the_path_as_it_is_written_is_the_scanner(start_connected, fake_robot, path):
    daemon = start_connected(fake_robot)
    daemon.expect_log(f"invalid -- {path}")
    reply = daemon.get(path)
    assert (reply.status, reply.body) == (200, b"")
    assert daemon.put("/data/relayarray", b"[1,1]").status == 200
    wait_for("the relays", lambda: fake_robot.commands("relayArray.setValues"))
    assert fake_robot.commands("laserRangeFinder.subscribe") == []


def test_the_simulated_robot_measures_its_room(start_connected, simulator):
    daemon = start_connected(simulator)
    daemon.wait_for_text(SCAN, b'"range_max": 5.59')
    scan = json.loads(daemon.get(SCAN).body)
    assert len(scan["ranges"]) == len(scan["intensities"]) == 541
    assert scan["ranges"] == scan["intensities"]
    assert all(0 < distance < 5.7 for distance in scan["ranges"])
    assert math.isclose(scan["angle_max"] - scan["angle_min"], 540 * scan["angle_increment"],
                        rel_tol=1e-5)
