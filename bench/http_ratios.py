#!/usr/bin/python3
"""What the daemon costs beside its HTTP library: requests per second as ratios of a bare listener.

usage: http_ratios.py BIN_DIR [ROUNDS [SECONDS]]

Both servers run all the time, the daemon with a robot that has sent one scan and one image and is
quiet then; wrk loads one and then the other, so that a change of the machine's speed meets both.
Prints the median of the rounds' ratios for each request, and its smallest and largest.
"""

from __future__ import annotations

import base64
import math
import random
import statistics
import sys
import tempfile
import urllib.error
import urllib.request
from dataclasses import dataclass
from pathlib import Path

from harness.servers import Server, bare_listener, daemon, requests_per_second
from support.deadlines import wait_for
from support.fake_robot import FakeRobot

RAYS = 541
IMAGE_BYTES = 60_000
PUT_SCRIPT = """
wrk.method = "PUT"
wrk.body = "[true,0            ]"
"""


@dataclass(frozen=True)
class Case:
    title: str
    path: str
    goal: float
    # What the bare listener does for its reply.
    kind: str = "text"
    connections: int = 32
    is_put: bool = False
    program: str = "tessarad"


CASES = (
    Case("GET /data/bumper", "/data/bumper", 0.93),
    Case("GET /data/odometry", "/data/odometry", 0.85),
    Case("PUT /data/relayarray, 20 bytes", "/data/relayarray", 0.75, is_put=True),
    Case("GET /data/scan0, 541 rays", "/data/scan0", 0.85, kind="scan", connections=8),
    Case("GET /cam0, 60 kB", "/cam0", 0.85, kind="image", connections=8,
         program="tessarad-endless-camera"),
)


def scan() -> dict:
    """Walls at 1 to 5 m, with the digits of real measurements."""
    generator = random.Random(1)
    return {
        "seq": 1, "stamp": 100, "angle_min": -0.75 * math.pi, "angle_max": 0.75 * math.pi,
        "angle_increment": math.radians(0.5), "time_increment": 0.0, "scan_time": 0.1,
        "range_min": 0.02, "range_max": 5.6,
        "ranges": [generator.uniform(1, 5) for _ in range(RAYS)],
        "intensities": [generator.uniform(0, 4000) for _ in range(RAYS)],
    }


def image() -> dict:
    data = b"\xff\xd8" + random.Random(2).randbytes(IMAGE_BYTES - 4) + b"\xff\xd9"
    return {"format": "jpeg", "width": 640, "height": 480, "step": 0,
            "data": base64.b64encode(data).decode()}


def fetch(url: str) -> bytes:
    try:
        with urllib.request.urlopen(url) as reply:
            return reply.read()
    except urllib.error.HTTPError:
        return b""


def measured_content(server: Server, case: Case, robot: FakeRobot) -> bytes:
    """What the daemon replies once the robot's data has reached it."""

    def content() -> bytes:
        body = fetch(server.url(case.path))
        robot.tell("laserRangeFinder.scan", scan())
        robot.tell("camera.imageReceived", image())
        return body if case.kind == "text" or len(body) > 10_000 else b""

    return wait_for(case.path, content)


def compare(case: Case, folder: Path, rounds: int, seconds: int) -> None:
    script = folder / "put.lua"
    script.write_text(PUT_SCRIPT)
    robot = FakeRobot()
    with daemon(folder, robot.address, case.program) as server:
        robot.wait_for_client()
        content = b"" if case.is_put else measured_content(server, case, robot)
        with bare_listener(folder, case.kind, content) as bare:
            ratios, rates = [], []
            for _ in range(rounds):
                rate, bare_rate = (
                    requests_per_second(each.url(case.path), case.connections, seconds,
                                        script if case.is_put else None)
                    for each in (server, bare))
                ratios.append(rate / bare_rate)
                rates.append(rate)
    robot.stop()
    print(f"{case.title:32} {statistics.median(ratios):.3f} of the bare listener "
          f"({min(ratios):.3f} to {max(ratios):.3f}), {statistics.median(rates):.0f} a second; "
          f"goal {case.goal:.2f}", flush=True)


def main() -> None:
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 7
    seconds = int(sys.argv[3]) if len(sys.argv) > 3 else 3
    with tempfile.TemporaryDirectory() as name:
        for case in CASES:
            compare(case, Path(name), rounds, seconds)


if __name__ == "__main__":
    main()
