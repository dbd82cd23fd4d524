"""The stop that the daemon sends when drive commands no longer come.

All times are those at which the commands reach the robot. A test sleeps only to choose when its
next request comes, or to see that nothing more comes.
"""

from __future__ import annotations

import base64
import statistics
import time

import pytest

from support.deadlines import deadline, wait_for
from support.drive import (DRIVE, EARLIEST_STOP, LATEST_STOP, STANDSTILL, TOLERANCE,
                           timed_velocities, velocities, wait_for_all_commands)
from support.http import request_bytes
from support.pollers import Pollers
from support.sessions import PASSWORDS, log_in

SHORTEST = EARLIEST_STOP - TOLERANCE
LONGEST = LATEST_STOP + TOLERANCE


def wait_for_stop(robot, count=1):
    """Waits for so many commands to stop."""
    wait_for(f"{count} stops", lambda: velocities(robot).count(STANDSTILL) >= count)


def wait_and_see(robot):
    """All commands of a robot, when none has come for more than twice the watchdog's time."""
    start = time.monotonic()
    while True:
        commands = timed_velocities(robot)
        quiet_since = commands[-1][0] if commands else start
        rest = quiet_since + 2 * LATEST_STOP - time.monotonic()
        if rest < 0:
            return commands
        assert time.monotonic() - start < deadline(5), f"no end of {commands}"
        time.sleep(rest)


def delays_of_stops(commands):
    """How long after the last command each stop came; none may be repeated."""
    pairs = list(zip(commands, commands[1:]))
    assert not [pair for pair in pairs if pair[0][1] == pair[1][1] == STANDSTILL]
    return [after - before for (before, _), (after, command) in pairs if command == STANDSTILL]


def test_without_a_command_nothing_is_sent(start_connected, fake_robot):
    start_connected(fake_robot)
    assert wait_and_see(fake_robot) == []


def test_each_command_that_is_the_last_is_followed_by_one_stop(start_connected, robot):
    daemon = start_connected(robot)
    for trial in range(8):
        # From all over the watchdog's tick of 100 ms.
        time.sleep(trial * 0.0125)
        assert daemon.put(DRIVE, b"[1]").status == 200
        wait_for_stop(robot, trial + 1)
    commands = wait_and_see(robot)
    assert [command for _, command in commands] == [(1, 0, 0), STANDSTILL] * 8
    delays = delays_of_stops(commands)
    assert all(SHORTEST <= delay <= LONGEST for delay in delays), delays
    assert EARLIEST_STOP <= statistics.median(delays) <= LATEST_STOP, delays


def drive_every_300_ms(daemon, robot):
    """Ten commands; False where the machine was too slow to send them so often."""
    before = len(velocities(robot))
    with daemon.connect() as connection:
        start = time.monotonic()
        for number in range(10):
            time.sleep(max(0.0, start + number * 0.3 - time.monotonic()))
            assert connection.request("PUT", DRIVE, b"[1]").status == 200
    wait_for_stop(robot)
    times = [when for when, command in timed_velocities(robot)[before:] if command != STANDSTILL]
    return max(after - start for start, after in zip(times, times[1:])) < EARLIEST_STOP - 0.02


def test_a_command_every_300_ms_keeps_the_robot_moving(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    while not drive_every_300_ms(daemon, fake_robot):
        wait_and_see(fake_robot)
        fake_robot.clear_commands()
    commands = wait_and_see(fake_robot)
    assert [command for _, command in commands] == [(1, 0, 0)] * 10 + [STANDSTILL]


@pytest.mark.parametrize("body, at_once, complaint", [
    pytest.param(b"[9]", [STANDSTILL], "vx out of bounds", id="beyond a limit"),
    pytest.param(b"no json", [], "Invalid JSON", id="no JSON"),
    pytest.param(b"[]", [STANDSTILL], None, id="no number"),
])
def test_a_request_that_does_not_drive_arms_the_watchdog_too(start_connected, fake_robot, body,
                                                             at_once, complaint):
    daemon = start_connected(fake_robot)
    if complaint:
        daemon.expect_log(complaint)
    start = time.monotonic()
    daemon.put(DRIVE, body)
    end = time.monotonic()
    commands = wait_and_see(fake_robot)
    assert [command for _, command in commands] == [*at_once, STANDSTILL]
    assert start + SHORTEST <= commands[-1][0] <= end + LONGEST


def test_a_refused_body_lets_the_last_good_command_go_on_for_its_time(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    daemon.expect_log("Invalid JSON")
    daemon.put(DRIVE, b"[1]")
    time.sleep(0.2)
    start = time.monotonic()
    daemon.put(DRIVE, b"no json")
    end = time.monotonic()
    commands = wait_and_see(fake_robot)
    assert [command for _, command in commands] == [(1, 0, 0), STANDSTILL]
    assert start + SHORTEST <= commands[-1][0] <= end + LONGEST


def test_a_guest_does_not_keep_the_robot_moving(start_connected, fake_robot):
    daemon = start_connected(fake_robot, settings=PASSWORDS)
    daemon.expect_log(f"Error: DataHandler::setData with path {DRIVE}")
    log_in(daemon, "driver", "operator")
    assert daemon.put(DRIVE + "?sid=driver", b"[1]").status == 200

    def has_stopped():
        assert daemon.put(DRIVE, b"[1]").status == 400
        return STANDSTILL in velocities(fake_robot)

    wait_for("the stop", has_stopped)
    commands = wait_and_see(fake_robot)
    assert [command for _, command in commands] == [(1, 0, 0), STANDSTILL]
    assert commands[1][0] - commands[0][0] <= LONGEST


def test_a_guest_arms_nothing(start_connected, fake_robot):
    daemon = start_connected(fake_robot, settings=PASSWORDS)
    daemon.expect_log(f"Error: DataHandler::setData with path {DRIVE}")
    assert daemon.put(DRIVE, b"[1]").status == 400
    assert wait_and_see(fake_robot) == []


def test_a_stop_is_not_repeated_when_the_robot_comes_back(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    daemon.put(DRIVE, b"[1]")
    wait_for_stop(fake_robot)
    fake_robot.drop()
    daemon.wait_for_message("Connected", count=2)
    wait_for_all_commands(daemon, fake_robot)
    assert velocities(fake_robot) == [(1, 0, 0), STANDSTILL]


def test_the_end_of_the_daemon_sends_no_stop(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    daemon.put(DRIVE, b"[1]")
    assert daemon.stop() == 0
    wait_for("the end of the connection", lambda: not fake_robot.has_client())
    commands = timed_velocities(fake_robot)
    assert commands[0][1] == (1, 0, 0)
    # On a slow machine the watchdog may have sent its own before the daemon came to its end.
    assert all(when - commands[0][0] >= SHORTEST for when, _ in commands[1:])


@pytest.fixture
def crowd():
    """32 clients that ask for scans and images as fast as they can."""
    pollers = Pollers(32, [request_bytes("GET", "/data/scan0"), request_bytes("GET", "/cam0")])
    yield pollers
    pollers.close()


def drive_until_stopped(connection, robot):
    """The last command's delay until the stop; None where the robot took that command down late."""
    for _ in range(10):
        assert connection.request("PUT", DRIVE, b"[1]").status == 200
        time.sleep(0.05)
    assert connection.request("PUT", DRIVE, b"[0.5]").status == 200
    end = time.monotonic()
    wait_for("the stop", lambda: velocities(robot)[-2:] == [(0.5, 0, 0), STANDSTILL])
    (last, _), (stop, _) = timed_velocities(robot)[-2:]
    return stop - last if last - end < 0.03 else None


def test_the_stop_is_in_time_among_clients_of_scanner_and_camera(start_connected, simulator,
                                                                 crowd):
    # Images that needn't be painted leave the robot the time to take down when commands come.
    simulator.call("state.set", {"camera": {"base64": base64.b64encode(bytes(30_000)).decode()}})
    daemon = start_connected(simulator)
    crowd.poll(daemon.port)
    wait_for("the crowd", lambda: crowd.replies > 100)
    delays = []
    with daemon.connect() as connection:
        for trial in range(1, 31):
            if delay := drive_until_stopped(connection, simulator):
                delays.append(delay)
            assert velocities(simulator).count((1, 0, 0)) == 10 * trial
            if len(delays) == 6:
                break
    # What is left of that slowness delays the robot's note of a stop, but never hastens it.
    assert all(SHORTEST <= delay <= LATEST_STOP + 3 * TOLERANCE for delay in delays), delays
    assert min(delays) <= LATEST_STOP, delays
    assert len(delays_of_stops(timed_velocities(simulator))) >= 6
    assert crowd.replies > 1000
