"""Scripts and commands of the services that flood, die, say nothing or take too long."""

from __future__ import annotations

import json
import os
from concurrent.futures import ThreadPoolExecutor

import pytest

FLOOD = "head -c 50000000 /dev/zero | tr '\\0' x\n"


@pytest.fixture
def start_serving(start_daemon, tmp_path):
    """Starts daemons with scripts of these texts, by their names; systemctl is one of them."""

    def start(**scripts):
        folder = tmp_path / "scripts"
        folder.mkdir()
        for name, text in scripts.items():
            (folder / name).write_text("#!/bin/sh\n" + text)
            (folder / name).chmod(0o700)
        return start_daemon(settings={f"Scripts/{name}": str(folder / name) for name in scripts},
                            environment={"PATH": f"{folder}:{os.environ['PATH']}"})

    return start


def services(daemon):
    return json.loads(daemon.get("/data/services").body)


def names(daemon):
    return [entry["name"] for group in services(daemon) for entry in group["_children"]]


@pytest.mark.parametrize("count", [0, 1, 300])
def test_any_number_of_services_is_listed(start_serving, count):
    units = [f"unit{number}" for number in range(count)]
    listing = "".join(f"echo {unit}\n" for unit in units)
    states = "".join(f"echo '{unit}.service loaded active running Unit'\n" for unit in units)
    daemon = start_serving(
        listservices=f"[ $1 = veltrano-daemons ] || exit 0\n{listing}", servicestate=states)
    assert names(daemon) == units
    for group in services(daemon):
        assert {entry["sub"] for entry in group["_children"]} == {"running"}
        assert [entry["id"] for entry in group["_children"]] == list(range(1, count + 1))


@pytest.mark.parametrize("script", ["", "exit 3\n", "kill -KILL $$\n", "sleep 1000\n",
                                    "echo no >&2\n", "head -c 100000 /dev/urandom\n",
                                    FLOOD + "exec sleep 1000"])
def test_a_listing_that_goes_wrong_leaves_the_daemon_answering(start_serving, script):
    daemon = start_serving(listservices=script, servicestate="echo x")
    reply = daemon.request("GET", "/data/services", seconds=60)
    assert isinstance(json.loads(reply.body), list)
    assert daemon.get("/data/bumper").status == 200


def test_a_long_name_is_listed_whole(start_serving):
    name = "x" * 1_000_000
    daemon = start_serving(listservices=f"[ $1 = veltrano-daemons ] && head -c {len(name)} /dev/zero |"
                                        " tr '\\0' x", servicestate="")
    assert names(daemon) == [name]


@pytest.mark.parametrize("script", ["", "exit 3\n", "kill -KILL $$\n", "sleep 1000\n", "echo no >&2\n",
                                    "head -c 100000 /dev/urandom\n", FLOOD])
def test_states_that_go_wrong_leave_the_services_without_any(start_serving, script):
    daemon = start_serving(listservices="[ $1 = veltrano-daemons ] && echo motors",
                           servicestate=script)
    assert services(daemon)[0]["_children"] == [
        {"id": 1, "name": "motors", "load": "", "active": "", "sub": "", "activation": "true"}]


@pytest.mark.parametrize("script, status", [
    ("exit 3", 200), ("kill -KILL $$", 200), ("yes | head -c 1000000", 200), ("sleep 1000", 400)])
def test_only_a_start_that_does_not_end_in_time_is_refused(start_serving, script, status):
    daemon = start_serving(startstopservice=script)
    assert daemon.put("/data/startService", b"motors").status == status


def test_a_flood_of_a_status_is_cut_where_its_time_ends(start_serving):
    daemon = start_serving(systemctl="yes line | head -c 50000000; exec sleep 1000")
    assert json.loads(daemon.get("/data/servicestatus/motors").body) == []
    assert daemon.get("/data/bumper").status == 200


def test_forty_statuses_that_overrun_end_no_daemon(start_serving):
    daemon = start_serving(systemctl="echo late >&2; exec sleep 1000")
    with ThreadPoolExecutor(41) as pool:
        replies = [pool.submit(daemon.request, "GET", "/data/servicestatus/x", seconds=120)
                   for _ in range(40)]
        others = pool.submit(daemon.request, "GET", "/data/bumper", seconds=120)
        assert {reply.result().status for reply in replies} == {200}
        assert {reply.result().body for reply in replies} <= {
            b'[\n    {\n        "text": "late"\n    }\n]\n', b"[\n]\n"}
        assert others.result().status == 200
    assert daemon.get("/data/bumper").status == 200
