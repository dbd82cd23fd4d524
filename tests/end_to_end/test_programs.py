"""User programs: listed, started, stopped, renamed and removed, with what they print."""

from __future__ import annotations

import json
import os
import signal
import socket
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import pytest

from support.deadlines import wait_for
from support.sessions import PASSWORDS, log_in

START_STOP = "/data/startStopProgram"


def write_script(path: Path, text: str) -> Path:
    path.write_text("#!/bin/sh\n" + text)
    path.chmod(0o700)
    return path


@pytest.fixture
def programs(tmp_path):
    folder = tmp_path / "programs"
    folder.mkdir()
    return folder


@pytest.fixture
def start_interpreting(start_daemon, programs, tmp_path):
    """Starts daemons whose interpreter is a shell script."""

    def start(script, **settings):
        interpreter = write_script(tmp_path / "interpreter", script)
        return start_daemon(verbosity=2, settings={
            "Lumview/path": str(interpreter), "Lumview/programpath": str(programs)} | settings)

    return start


def read(daemon, path):
    return json.loads(daemon.get(path).body)


def output(daemon):
    lines = read(daemon, "/data/lumviewout")
    assert [line["id"] for line in lines] == list(range(1, len(lines) + 1))
    return [line["value"] for line in lines]


def variables(daemon):
    return {entry["name"]: entry["value"] for entry in read(daemon, "/data/globalvars")}


def actions(daemon):
    return {entry["name"]: entry["action"] for entry in read(daemon, "/data/program")}


def put(daemon, path, body):
    reply = daemon.put(path, json.dumps(body).encode())
    assert reply.body == b""
    return reply.status


def toggle(daemon, name, suffix="lv"):
    assert put(daemon, START_STOP, {"name": name, "suffix": suffix}) == 200


def test_a_program_runs_prints_and_is_stopped(start_interpreting, programs):
    (programs / "a.b.lv").write_text("x")
    daemon = start_interpreting("echo \"$*\"; echo '## speed;;1.5 ##'; echo err >&2; exec sleep 1000")
    assert daemon.get("/data/lumviewout").body == b"[\n]\n"
    assert read(daemon, "/data/program") == [
        {"id": 1, "name": "a", "old": "a", "suffix": "b.lv", "action": "stopped"}]
    toggle(daemon, "a", "b.lv")
    wait_for("both lines", lambda: output(daemon) == [f"-f {programs}/a.b.lv", "err"])
    assert actions(daemon) == {"a": "running"}
    assert daemon.get("/data/globalvars").body == (
        b'[\n    {\n        "id": 1,\n        "name": "speed",\n        "value": "1.5"\n    }\n]\n')
    toggle(daemon, "a", "b.lv")
    wait_for("the end", lambda: actions(daemon) == {"a": "stopped"})
    assert output(daemon) == [f"-f {programs}/a.b.lv", "err"]
    assert variables(daemon) == {"speed": "1.5"}


def test_a_program_that_ends_by_itself_is_listed_as_stopped(start_interpreting, programs):
    (programs / "a.lv").write_text("x")
    daemon = start_interpreting("echo done; exit 7")
    toggle(daemon, "a")
    wait_for("its output", lambda: output(daemon) == ["done"])
    wait_for("its end", lambda: actions(daemon) == {"a": "stopped"})
    daemon.wait_for_message(
        f"ScriptRunner::on_process_finished {programs.parent}/interpreter : exitcode = 7")


def test_another_program_takes_the_place_of_the_running_one(start_interpreting, programs):
    for name in "ab":
        (programs / f"{name}.lv").write_text("x")
    daemon = start_interpreting("echo $2; exec sleep 1000")
    toggle(daemon, "a")
    wait_for("the first", lambda: output(daemon) == [f"{programs}/a.lv"])
    toggle(daemon, "b")
    wait_for("the second", lambda: output(daemon) == [f"{programs}/b.lv"])
    assert actions(daemon) == {"a": "stopped", "b": "running"}


def test_an_interpreter_that_is_missing_shows_in_the_log_alone(start_daemon, programs):
    daemon = start_daemon(settings={"Lumview/path": "/nowhere", "Lumview/programpath": str(programs)})
    (programs / "a.lv").write_text("x")
    toggle(daemon, "a")
    daemon.wait_for_message("ScriptRunner::on_process_error /nowhere : error = 0")
    assert actions(daemon) == {"a": "running"}
    toggle(daemon, "a")
    assert actions(daemon) == {"a": "running"}


def test_programs_are_renamed_and_removed(start_interpreting, programs):
    for name in ("a.lv", "b.lv", "plain"):
        (programs / name).write_text(name)
    daemon = start_interpreting("")
    changes = read(daemon, "/data/program")
    changes[0]["name"] = " new name "
    changes[1]["name"] = "   "
    assert put(daemon, "/data/renameprogram", changes) == 200
    assert sorted(path.name for path in programs.iterdir()) == ["b.lv", "new name.lv", "plain"]
    assert put(daemon, "/data/remove", {"name": "new name", "suffix": "lv"}) == 200
    assert put(daemon, "/data/remove", {"name": "new name", "suffix": "lv"}) == 400
    assert put(daemon, "/data/remove", {"name": "plain", "suffix": ""}) == 400
    assert sorted(path.name for path in programs.iterdir()) == ["b.lv", "plain"]


@pytest.mark.parametrize("path", ["/data/renameprogram", START_STOP, "/data/remove"])
def test_a_body_that_is_no_json_gives_400_without_a_word(start_interpreting, path):
    daemon = start_interpreting("")
    reply = daemon.put(path, b"{")
    assert (reply.status, reply.body) == (400, b"")


@pytest.mark.parametrize("path", ["/data/renameprogram", START_STOP, "/data/remove"])
def test_guests_change_no_program(start_daemon, programs, path):
    daemon = start_daemon(settings=PASSWORDS | {"Lumview/programpath": str(programs)})
    daemon.expect_log(f"Error: DataHandler::setData with path {path}")
    daemon.may_log("Logged in")
    (programs / "a.lv").write_text("x")
    body = {"name": "a", "suffix": "lv"}
    assert put(daemon, path, body) == 400
    assert (programs / "a.lv").exists()
    log_in(daemon, "me", "operator")
    assert put(daemon, "/data/remove?sid=me", body) == 200


def test_four_clients_that_toggle_two_programs_leave_the_daemon_answering(start_interpreting,
                                                                          programs):
    for name in "ab":
        (programs / f"{name}.lv").write_text("x")
    daemon = start_interpreting("echo $2; exec sleep 1000")

    def play(client):
        for turn in range(25):
            toggle(daemon, "ab"[(client + turn) % 2])
            actions(daemon)

    with ThreadPoolExecutor(4) as pool:
        list(pool.map(play, range(4)))
    assert set(actions(daemon)) == {"a", "b"}


def test_a_program_that_outlives_the_daemon_holds_none_of_its_sockets(start_interpreting, programs):
    (programs / "a.lv").write_text("x")
    daemon = start_interpreting("setsid sleep 1000 >/dev/null 2>&1 & echo $!; exec sleep 1000")
    toggle(daemon, "a")
    survivor = int(wait_for("its process", lambda: output(daemon))[0])
    try:
        assert daemon.stop() == 0
        assert Path(f"/proc/{survivor}").exists()
        with socket.create_server(("127.0.0.1", daemon.port)):
            pass
    finally:
        os.kill(survivor, signal.SIGKILL)
