"""Programs that flood, don't listen, leave children behind or still run when the daemon stops."""

from __future__ import annotations

import json
import os
import signal
from pathlib import Path

import pytest

from support.deadlines import wait_for

PROGRAM = {"name": "a", "suffix": "lv"}
FLOOD_BYTES = 100_000_000


@pytest.fixture
def start_running(start_daemon, tmp_path):
    """Starts a daemon and, in it, a program that an interpreter of this text runs."""

    def start(script):
        folder = tmp_path / "programs"
        folder.mkdir()
        (folder / "a.lv").write_text("x")
        interpreter = tmp_path / "interpreter"
        interpreter.write_text("#!/bin/sh\n" + script)
        interpreter.chmod(0o700)
        daemon = start_daemon(settings={"Lumview/path": str(interpreter),
                                        "Lumview/programpath": str(folder)})
        toggle(daemon)
        return daemon

    return start


def toggle(daemon):
    assert daemon.put("/data/startStopProgram", json.dumps(PROGRAM).encode()).status == 200


def output(daemon):
    return [line["value"] for line in json.loads(daemon.get("/data/lumviewout").body)]


def action(daemon):
    return json.loads(daemon.get("/data/program").body)[0]["action"]


def is_alive(pid):
    """Whether a process runs; one that nobody has waited for yet does not."""
    try:
        return Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()[0] != "Z"
    except FileNotFoundError:
        return False


def test_a_flood_of_output_leaves_its_last_lines_and_a_daemon_that_answers(start_running):
    line = "x" * 99
    daemon = start_running(f"yes {line} | head -c {FLOOD_BYTES}; echo the end; exec sleep 1000")

    def the_end():
        assert daemon.get("/data/userrole").status == 200
        return output(daemon)[-1:] == ["the end"]

    wait_for("the end of the flood", the_end)
    lines = output(daemon)
    assert len(lines) == 20
    # A line that arrives in two pieces counts as two.
    assert all(line.startswith(piece) for piece in lines[:-1])


def test_a_flood_without_a_line_end_does_no_harm(start_running):
    daemon = start_running(f"head -c {FLOOD_BYTES // 10} /dev/zero | tr '\\0' y; echo; echo the end")
    wait_for("the end of the flood", lambda: output(daemon)[-1:] == ["the end"])
    assert set("".join(output(daemon)[:-1])) <= {"y"}
    wait_for("the program's end", lambda: action(daemon) == "stopped")


def test_a_program_that_ignores_signals_is_stopped(start_running):
    daemon = start_running("trap '' TERM INT HUP QUIT; echo $$; while :; do sleep 1000; done")
    pid = wait_for("its process", lambda: output(daemon))[0]
    toggle(daemon)
    wait_for("its end", lambda: action(daemon) == "stopped")
    assert not is_alive(pid)


def test_a_stopped_program_leaves_its_children_to_themselves(start_running):
    daemon = start_running("sleep 1000 >/dev/null 2>&1 & echo $!; wait")
    child = int(wait_for("its child", lambda: output(daemon))[0])
    try:
        toggle(daemon)
        wait_for("its end", lambda: action(daemon) == "stopped")
        assert is_alive(child)
    finally:
        os.kill(child, signal.SIGKILL)


def test_a_child_that_holds_the_output_open_does_not_hold_up_the_end(start_running):
    daemon = start_running("sleep 1000 & echo $!; exit 0")
    child = int(wait_for("its child", lambda: output(daemon))[0])
    try:
        wait_for("its end", lambda: action(daemon) == "stopped")
    finally:
        os.kill(child, signal.SIGKILL)


def test_the_daemon_takes_the_running_program_with_it(start_running):
    daemon = start_running("trap '' TERM; echo $$; while :; do sleep 1000; done")
    pid = wait_for("its process", lambda: output(daemon))[0]
    assert daemon.stop() == 0
    assert not is_alive(pid)
