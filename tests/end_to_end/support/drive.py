"""What reaches a robot's drive."""

from __future__ import annotations

import time
from typing import Any

from support.daemon import Daemon
from support.deadlines import SANITIZER, wait_for
from support.http import Reply
from support.robot import Robot

DRIVE = "/data/omnidrive"
COMMAND = "omniDrive.setVelocity"

Velocity = tuple[float, float, float]
STANDSTILL: Velocity = (0, 0, 0)

# When the watchdog stops the robot, in seconds after the last permitted request, and by how much a
# single stop may miss that on a machine that a sanitizer slows down.
EARLIEST_STOP = 0.4
LATEST_STOP = 0.5
TOLERANCE = {"": 0.03, "address": 0.15, "thread": 0.3}[SANITIZER]


def velocity(params: dict[str, Any]) -> Velocity:
    return params["vx"], params["vy"], params["omega"]


def timed_velocities(robot: Robot) -> list[tuple[float, Velocity]]:
    """All commands of the drive in order, with the times at which they reached the robot."""
    return [(when, velocity(params)) for when, params in robot.timed_commands(COMMAND)]


def velocities(robot: Robot) -> list[Velocity]:
    return [velocity(params) for params in robot.commands(COMMAND)]


def drive(daemon: Daemon, robot: Robot, body: bytes,
          query: str = "", method: str = "PUT") -> tuple[Reply, list[Velocity]]:
    """The reply to a test's first request of the drive, and what it made the drive do at once."""
    reply = daemon.request(method, DRIVE + query, body)
    end = time.monotonic()
    wait_for_all_commands(daemon, robot)
    # On a slow machine the watchdog's stop may be there already.
    return reply, [command for when, command in timed_velocities(robot)
                   if command != STANDSTILL or when < end + EARLIEST_STOP - TOLERANCE]


def wait_for_all_commands(daemon: Daemon, robot: Robot) -> None:
    """Waits until all that the daemon has told the robot so far has reached it."""
    before = len(robot.commands("relayArray.setValues"))
    assert daemon.put("/data/relayarray?sid=marker", b"[1,0]").status == 200
    wait_for("the relays' command", lambda: len(robot.commands("relayArray.setValues")) > before)
