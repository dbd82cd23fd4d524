"""The robot's services, through scripts and a systemctl that each test writes."""

from __future__ import annotations

import json
import os
from pathlib import Path

import pytest

from support.sessions import PASSWORDS, log_in

LIST = """case $1 in
veltrano-daemons) printf 'motors\\nsensor@\\n';;
veltrano-smartsoft-slave) echo slave;;
esac
"""
STATES = """echo 'motors.service loaded active running Motors'
echo '  sensor@a.service loaded failed failed Sensor'
echo '* gone.service not-found inactive dead Gone'
"""


@pytest.fixture
def start_serving(start_daemon, tmp_path):
    """Starts daemons with scripts of these texts, by their names; systemctl is one of them."""

    def start(more=None, **scripts):
        folder = tmp_path / "scripts"
        folder.mkdir()
        for name, text in scripts.items():
            (folder / name).write_text("#!/bin/sh\n" + text)
            (folder / name).chmod(0o700)
        settings = {f"Scripts/{name}": str(folder / name) for name in scripts}
        return start_daemon(settings=settings | (more or {}),
                            environment={"PATH": f"{folder}:{os.environ['PATH']}"})

    return start


def read(daemon, path):
    return json.loads(daemon.get(path).body)


def test_services_stand_in_their_groups_with_their_states(start_serving):
    daemon = start_serving(listservices=LIST, servicestate=STATES)
    assert read(daemon, "/data/services") == [
        {"name": "veltrano-daemons", "_children": [
            {"id": 1, "name": "motors", "load": "loaded", "active": "active", "sub": "running",
             "activation": "true"},
            {"id": 2, "name": "sensor@", "load": "", "active": "", "sub": "", "activation": "true"},
            {"id": 3, "name": "sensor@a", "load": "loaded", "active": "failed", "sub": "failed"}]},
        {"name": "smartsoft-slave", "_children": [
            {"id": 4, "name": "slave", "load": "", "active": "", "sub": "", "activation": "true"}]},
    ]


def test_without_scripts_there_are_no_services(start_daemon):
    daemon = start_daemon()
    assert daemon.get("/data/services").body == b"[\n]\n"
    assert daemon.put("/data/startService", b"motors").status == 400


def test_states_that_come_too_late_leave_the_services_without_any(start_serving):
    daemon = start_serving(listservices=LIST, servicestate=STATES + "exec sleep 1000")
    entries = read(daemon, "/data/services")[0]["_children"]
    assert [(entry["name"], entry["active"]) for entry in entries] == [("motors", ""), ("sensor@", "")]


def test_a_status_is_what_systemctl_prints(start_serving):
    daemon = start_serving(systemctl="echo \"$# $*\"; echo; echo '  x'; echo no >&2; exit 3")
    assert daemon.get("/data/servicestatus/motors").body == (
        b'[\n    {\n        "text": "2 status motors"\n    },\n    {\n        "text": "  x"\n    }\n]\n')
    assert read(daemon, "/data/servicestatus/") == [{"text": "2 status "}, {"text": "  x"}]
    assert read(daemon, "/data/servicestatus/a/data/servicestatus/b") == [
        {"text": "2 status ab"}, {"text": "  x"}]


def test_a_status_without_its_name_is_an_unknown_path(start_serving):
    daemon = start_serving(systemctl="echo no")
    daemon.expect_log("invalid -- /data/servicestatus")
    assert daemon.get("/data/servicestatus").body == b""


def test_a_status_that_comes_too_late_shows_the_errors(start_serving):
    daemon = start_serving(systemctl="echo out; echo err >&2; exec sleep 1000")
    assert read(daemon, "/data/servicestatus/motors") == [{"text": "err"}]


@pytest.mark.parametrize("path, script, word", [
    ("/data/startService", "startstopservice", "start"),
    ("/data/stopService", "startstopservice", "stop"),
    ("/data/activateService", "enableservice", "enable"),
    ("/data/deactivateService", "enableservice", "disable"),
])
def test_each_write_hands_name_and_word_to_its_script(start_serving, tmp_path, path, script, word):
    calls = tmp_path / "calls"
    record = f"echo \"${{0##*/}} $# [$1] [$2]\" >> {calls}; exit 5"
    daemon = start_serving(startstopservice=record, enableservice=record)
    for body in (b"motors", b" a b;c ", b"", b"x\0y"):
        reply = daemon.put(path, body)
        assert (reply.status, reply.body) == (200, b"")
    assert calls.read_text().splitlines() == [
        f"{script} 2 [{name}] [{word}]" for name in ("motors", " a b;c ", "", "x")]


@pytest.mark.parametrize("path, least", [
    ("/data/startService", "operator"), ("/data/stopService", "operator"),
    ("/data/activateService", "admin"), ("/data/deactivateService", "admin"),
])
def test_each_write_needs_its_role(start_serving, tmp_path, path, least):
    calls = tmp_path / "calls"
    record = f"echo called >> {calls}"
    daemon = start_serving(more=PASSWORDS, startstopservice=record, enableservice=record)
    daemon.expect_log(f"Error: DataHandler::setData with path {path}")
    daemon.may_log("Logged in")
    log_in(daemon, "driver", "operator")
    log_in(daemon, "chief", "admin")
    assert daemon.put(path, b"motors").status == 400
    assert daemon.put(f"{path}?sid=driver", b"motors").status == (200 if least == "operator" else 400)
    assert daemon.put(f"{path}?sid=chief", b"motors").status == 200
    assert calls.read_text().count("called") == (2 if least == "operator" else 1)


def test_a_write_whose_script_takes_too_long_fails_and_ends_it(start_serving, tmp_path):
    pid = tmp_path / "pid"
    daemon = start_serving(startstopservice=f"echo $$ > {pid}; exec sleep 1000")
    assert daemon.put("/data/startService", b"motors").status == 400
    assert not Path(f"/proc/{pid.read_text().strip()}").exists()
