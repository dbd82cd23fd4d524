"""The interpreter of users' programs, with the daemon and the simulated robot that it drives."""

from __future__ import annotations

import json
import math
import os
import signal
import subprocess
from pathlib import Path
from typing import Callable, Iterator

import pytest

from support.daemon import BINARIES, ROOT, Daemon, quiet_environment
from support.deadlines import SANITIZER, deadline, wait_for
from support.drive import STANDSTILL, timed_velocities
from support.sessions import PASSWORD_OF, PASSWORDS
from support.simulator import Simulator

EXAMPLES = ROOT / "demo/programs"
# How long the robot may hear nothing between two commands of a drive before the daemon stops it.
LONGEST_GAP = 0.4


class Run:
    """One run of the interpreter, with both of its output streams in one, as the daemon reads it."""

    def __init__(self, folder: Path, arguments: list[str], environment: dict[str, str]) -> None:
        self._output = folder / "interpreter.out"
        with open(self._output, "wb") as out:
            self.process = subprocess.Popen(
                [str(BINARIES / "lumview_interpreter"), *arguments], cwd=folder, stdout=out,
                stdin=subprocess.DEVNULL, stderr=subprocess.STDOUT,
                env=quiet_environment(environment))

    def lines(self) -> list[str]:
        return self._output.read_text().splitlines()

    def wait_for_line(self, line: str) -> None:
        wait_for(f"the line {line!r}", lambda: line in self.lines())

    def wait(self, seconds: float = 60.0) -> int:
        """The exit code."""
        return self.process.wait(deadline(seconds))


Start = Callable[..., Run]


@pytest.fixture
def start(tmp_path: Path) -> Iterator[Start]:
    """Starts the interpreter with a program's text or file; ends what a failed test has left."""
    runs: list[Run] = []

    def begin(program: str | Path, *arguments: str, **environment: str) -> Run:
        file = program
        if isinstance(program, str):
            file = tmp_path / "program.lv"
            file.write_text(program)
        runs.append(Run(tmp_path, [*arguments, "-f", str(file)], environment))
        return runs[-1]

    yield begin
    for run in runs:
        run.process.kill()
        run.process.wait()


@pytest.fixture
def daemon(start_connected: Callable[..., Daemon], simulator: Simulator) -> Daemon:
    return start_connected(simulator, settings=PASSWORDS)


@pytest.fixture
def drive_with(start: Start, daemon: Daemon) -> Start:
    """Starts the interpreter for a program that may drive the daemon's robot."""
    return lambda program, *arguments: start(
        program, *arguments, LUMVIEW_DAEMON=f"http://127.0.0.1:{daemon.port}",
        LUMVIEW_PASSWORD=PASSWORD_OF["operator"])


def wait_for_stops(simulator: Simulator) -> None:
    """Waits for the interpreter's stop after a drive, and then the one of the daemon, which stops
    a robot half a second after the last request, a stop included. Without the interpreter's there
    would be one alone."""
    wait_for("two stops after a drive", lambda: [
        command == STANDSTILL for _, command in timed_velocities(simulator)][-3:]
        == [False, True, True])


def test_the_hello_example_needs_no_daemon(start: Start) -> None:
    run = start(EXAMPLES / "hello.lv")
    assert run.wait() == 0
    lines = run.lines()
    assert lines[:2] == ["## name;;robot ##", "Hello, robot!"]
    assert "## square;;16 ##" in lines
    assert lines[-2:] == ["5 times 5 is 25", "That was more than 20."]


def test_variables_are_told_together_once_an_interval(start: Start) -> None:
    run = start("set b = 1\nset a = 1\nset a = 2\nprint a\n",
                "--global-variable-output-interval", "60000")
    assert run.wait() == 0
    assert run.lines() == ["2", "## a;;2 ##", "## b;;1 ##"]


def test_the_square_example_ends_near_its_start(drive_with: Start, simulator: Simulator) -> None:
    before = simulator.call("state.get")["pose"]
    run = drive_with(EXAMPLES / "square.lv")
    farthest = 0.0
    while run.process.poll() is None:
        pose = simulator.call("state.get")["pose"]
        farthest = max(farthest, math.hypot(pose["x"] - before["x"], pose["y"] - before["y"]))
        try:
            run.process.wait(0.05)
        except subprocess.TimeoutExpired:
            continue
    assert run.process.returncode == 0, run.lines()
    assert [line for line in run.lines() if line.startswith("corner")] == [
        f"corner {number}" for number in range(1, 5)]
    after = simulator.call("state.get")["pose"]
    # The far corner is 1.13 m from the start.
    assert farthest > 0.9
    assert math.hypot(after["x"] - before["x"], after["y"] - before["y"]) < 0.15
    assert abs(math.remainder(after["phi"] - before["phi"], 2 * math.pi)) < 0.05


def test_a_drive_is_repeated_and_ends_with_a_stop(drive_with: Start,
                                                  simulator: Simulator) -> None:
    run = drive_with("drive 0.25 0 -0.5 for 1.05\n")
    assert run.wait() == 0, run.lines()
    wait_for_stops(simulator)
    commands = timed_velocities(simulator)
    first = next(i for i, (_, command) in enumerate(commands) if command != STANDSTILL)
    drives = [when for when, command in commands if command == (0.25, 0, -0.5)]
    assert 5 <= len(drives) <= 11
    assert commands[first + len(drives)][1] == STANDSTILL
    if not SANITIZER:
        assert all(later - earlier < LONGEST_GAP for earlier, later in zip(drives, drives[1:]))


@pytest.mark.parametrize("number", [signal.SIGTERM, signal.SIGINT], ids=["SIGTERM", "SIGINT"])
def test_a_signal_stops_the_robot(drive_with: Start, simulator: Simulator,
                                  number: signal.Signals) -> None:
    run = drive_with("set speed = 0.25\ndrive speed 0 0 for 600\nprint \"never\"\n")
    wait_for("a drive", lambda: len(timed_velocities(simulator)) >= 5)
    os.kill(run.process.pid, number)
    assert run.wait(2) == 128 + number
    wait_for_stops(simulator)
    assert run.lines() == ["## speed;;0.25 ##"]


def test_a_signal_ends_a_loop_that_does_nothing(start: Start) -> None:
    run = start("print \"on\"\nwhile 1 = 1\nend\n")
    run.wait_for_line("on")
    run.process.terminate()
    assert run.wait(2) == 128 + signal.SIGTERM


def test_sensors_are_read(drive_with: Start, simulator: Simulator) -> None:
    simulator.show("bumper.changed", {"value": True})
    simulator.show("distanceSensorArray.distancesChanged",
                   {"values": [0.125 + i / 64 for i in range(9)]})
    simulator.show("digitalInputArray.valuesChanged", {"values": [0, 0, 0, 1, 0, 0, 0, 0]})
    run = drive_with("set hit = 0\nset far = 0\nset on = 0\n"
                     "while hit = 0 or far != 0.25 or on = 0\n"
                     "read bumper into hit\nread distance 8 into far\nread digital 3 into on\n"
                     "end\nread odometry x into x\nprint hit, far, on, x\n",
                     "--global-variable-output-interval", "600000")
    assert run.wait() == 0, run.lines()
    assert run.lines()[0] == "1 0.25 1 0"


def test_a_bad_program_is_refused_before_its_first_line(start: Start, tmp_path: Path) -> None:
    run = start("print \"first\"\nrepeat 3\nprint \"second\"\n")
    assert run.wait() == 1
    assert run.lines() == [f"{tmp_path}/program.lv:2: expected an \"end\" for this \"repeat\", "
                           "but found the end of the program"]


def test_speeds_beyond_the_limits_end_the_program_in_its_line(
        drive_with: Start, daemon: Daemon, tmp_path: Path) -> None:
    daemon.expect_log("vx out of bounds")
    run = drive_with("print \"go\"\ndrive 99 0 0 for 1\n")
    assert run.wait() == 1
    assert run.lines() == ["go", f"{tmp_path}/program.lv:2: the robot refuses to drive like that; "
                           "expected speeds within its limits"]


def test_a_wrong_password_is_told(start: Start, daemon: Daemon, tmp_path: Path) -> None:
    address = f"http://127.0.0.1:{daemon.port}"
    run = start("drive 0.1 0 0 for 1\n", "--daemon", address, "--password", "wrong")
    assert run.wait() == 1
    assert run.lines() == [f"{tmp_path}/program.lv:1: the robot may not be driven: the daemon at "
                           f"{address} doesn't accept the password of the role operator"]


def test_a_daemon_that_is_not_there_is_told(start: Start, no_robot: str, tmp_path: Path) -> None:
    run = start("read bumper into hit\n", "--daemon", f"http://{no_robot}")
    assert run.wait() == 1
    assert run.lines() == [f"{tmp_path}/program.lv:1: the daemon at http://{no_robot} doesn't "
                           "answer: Connection refused"]


def test_a_wrong_command_line_is_told(tmp_path: Path) -> None:
    run = Run(tmp_path, ["--fast"], {})
    assert run.wait() == 2
    assert run.lines() == ["lumview_interpreter: unknown option --fast; see --help"]


def test_the_daemon_runs_a_program_and_shows_what_it_prints(
        start_connected: Callable[..., Daemon], simulator: Simulator, programs: Path) -> None:
    (programs / "hello.lv").write_text((EXAMPLES / "hello.lv").read_text())
    daemon = start_connected(simulator, settings={
        "Lumview/path": str(BINARIES / "lumview_interpreter"),
        "Lumview/programpath": str(programs)})
    assert daemon.put("/data/startStopProgram", b'{"name": "hello", "suffix": "lv"}').status == 200
    daemon.wait_for_text("/data/lumviewout", b"That was more than 20.")
    daemon.wait_for_text("/data/program", b'"stopped"')
    output = [entry["value"] for entry in json.loads(daemon.get("/data/lumviewout").body)]
    assert output == ["Hello, robot!", *[f"{i} times {i} is {i * i}" for i in range(1, 6)],
                      "That was more than 20."]
    variables = json.loads(daemon.get("/data/globalvars").body)
    assert {entry["name"]: entry["value"] for entry in variables} == {
        "count": "5", "name": "robot", "square": "25"}
