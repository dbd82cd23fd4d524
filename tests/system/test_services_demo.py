"""The demo's service scripts: the controller's code on a table of simulated services."""

from __future__ import annotations

import os
import subprocess
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import pytest

from support.services import SCRIPTS

DEMO = SCRIPTS.parents[1] / "demo" / "scripts"


class Demo:
    def __init__(self, folder: Path) -> None:
        self.units = folder / "units"
        self.environment = os.environ | {"TESSARAD_DEMO_RUN": str(folder / "run"),
                                         "TESSARAD_UNIT_DIR": str(self.units)}

    def run(self, script: str, *arguments: str) -> tuple[int, str]:
        process = subprocess.run([str(DEMO / script), *arguments], env=self.environment, cwd="/",
                                 stdin=subprocess.DEVNULL, capture_output=True, timeout=60, text=True,
                                 check=False)
        return process.returncode, process.stdout

    def states(self) -> dict[str, str]:
        code, output = self.run("servicestate")
        assert code == 0
        records = [line.split() for line in output.splitlines()]
        assert {len(record) for record in records} == {5}
        return {record[0].removesuffix(".service"): " ".join(record[1:4]) for record in records}


@pytest.fixture
def demo(tmp_path: Path) -> Demo:
    return Demo(tmp_path)


def test_each_group_has_services(demo):
    for group, services in (
            ("veltrano-daemons", "veltrano-lights\nveltrano-mapper\nveltrano-recorder\nveltrano-camera@\n"),
            ("veltrano-smartsoft-master", "smartsoft-naming\n"),
            ("veltrano-smartsoft-slave", "smartsoft-bridge\n")):
        assert demo.run("listservices", group) == (0, services)


def test_all_services_have_a_state(demo):
    assert demo.states() == {
        "smartsoft-bridge": "loaded inactive dead", "smartsoft-naming": "loaded active running",
        "veltrano-camera@front": "loaded active running", "veltrano-camera@rear": "loaded inactive dead",
        "veltrano-lights": "loaded active running", "veltrano-mapper": "loaded active running",
        "veltrano-recorder": "loaded failed failed"}


def test_services_stop_and_start(demo):
    assert demo.run("startstopservice", "veltrano-lights", "stop")[0] == 0
    assert demo.states()["veltrano-lights"] == "loaded inactive dead"
    assert demo.run("startstopservice", "veltrano-lights", "start")[0] == 0
    assert demo.states()["veltrano-lights"] == "loaded active running"


def test_a_template_stops_and_starts_its_instances_alone(demo):
    before = demo.states()
    cameras = {name for name in before if "@" in name}
    for word, state in (("stop", "loaded inactive dead"), ("start", "loaded active running")):
        assert demo.run("startstopservice", "veltrano-camera@", word)[0] == 0
        after = demo.states()
        assert {after[name] for name in cameras} == {state}
        assert {name: after[name] for name in after.keys() - cameras} == {
            name: before[name] for name in before.keys() - cameras}


def test_a_deactivated_service_has_its_mark_and_does_not_start(demo):
    assert demo.run("enableservice", "veltrano-lights", "disable")[0] == 0
    assert os.readlink(demo.units / "veltrano-lights.service") == "/dev/null"
    assert demo.states()["veltrano-lights"] == "masked active running"
    demo.run("startstopservice", "veltrano-lights", "stop")
    assert demo.run("startstopservice", "veltrano-lights", "start")[0] == 1
    assert demo.run("enableservice", "veltrano-lights", "enable")[0] == 0
    assert not (demo.units / "veltrano-lights.service").is_symlink()
    assert demo.run("startstopservice", "veltrano-lights", "start")[0] == 0


def test_a_simulated_service_that_is_not_listed_is_refused(demo):
    assert demo.run("startstopservice", "cron", "stop")[0] == 3
    assert "cron" not in demo.states()


def test_the_stand_in_tells_a_status(demo):
    code, text = demo.run("service-stand-ins/systemctl", "status", "veltrano-lights")
    assert code == 0
    assert text.startswith("* veltrano-lights.service - Lamps and horn\n")
    assert demo.run("service-stand-ins/systemctl", "status", "veltrano-recorder")[0] == 3
    for name in ("nothing", "", "../services/veltrano-lights", "."):
        assert demo.run("service-stand-ins/systemctl", "status", name) == (4, "")


def test_many_at_once_see_whole_states(demo):
    with ThreadPoolExecutor(8) as pool:
        for states in pool.map(lambda _: demo.states(), range(24)):
            assert len(states) == 7
