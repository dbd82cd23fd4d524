"""The demo's scripts: the controller's code on the demo's files, with nothing of the system touched."""

from __future__ import annotations

import os
import subprocess
from pathlib import Path

import pytest

from support.readers import read_wired, read_wireless
from support.site import SCRIPTS, wait_for

DEMO = SCRIPTS.parents[1] / "demo" / "scripts"
WIRED = ("manual", "192.168.0.77", "24", "0.0.0.0", "", "no", "", "", "", "no", "", "", "")
CONFIGURATION = """[NetworkManager]
eth0=network/eth0.nmconnection
wlan0=network/wlan.nmconnection
hostapd=network/hostapd.conf
legacyiface=network/interfaces
"""


class Demo:
    def __init__(self, folder: Path) -> None:
        self.run_folder = folder / "run"
        self.network = self.run_folder / "network"
        self.eth0 = self.network / "eth0.nmconnection"
        configuration = folder / "tessarad.conf"
        configuration.write_text(CONFIGURATION)
        self.environment = os.environ | {"TESSARAD_CONF": str(configuration),
                                         "TESSARAD_DEMO_RUN": str(self.run_folder)}

    def run(self, script: str, *arguments: str, **environment: str) -> str:
        """What the script prints until every holder of its output has closed it."""
        return subprocess.run([str(DEMO / script), *arguments], env=self.environment | environment,
                              cwd="/", stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, check=True, timeout=60, text=True).stdout

    def wireless(self) -> dict[str, str]:
        return read_wireless(self.network / "wlan.nmconnection", self.network / "interfaces",
                             self.network / "hostapd.conf")


@pytest.fixture
def demo(tmp_path: Path) -> Demo:
    return Demo(tmp_path)


def test_the_first_run_finds_sample_files(demo):
    demo.run("prepare-network")
    assert read_wired(demo.eth0)[0]["address"] == "192.168.0.10"
    assert demo.wireless()["ssid"] == "robots"
    demo.eth0.write_text("mine\n")
    demo.run("prepare-network")
    assert demo.eth0.read_text() == "mine\n", "a file that is there stays"


def test_a_trial_is_confirmed(demo):
    assert "ROLLBACK 90 s: " in demo.run("configureeth", *WIRED)
    assert demo.run("configureeth", *WIRED).startswith("CONFIRMED: ")
    assert read_wired(demo.eth0)[0]["address"] == "192.168.0.77"
    assert not list((demo.network / "timers").iterdir())


def test_a_trial_runs_out_by_itself(demo):
    assert "ROLLBACK 1 s: " in demo.run("configureeth", *WIRED, TESSARAD_ROLLBACK_S="1")
    assert read_wired(demo.eth0)[0]["address"] == "192.168.0.77"
    wait_for("the rollback",
             lambda: "RESTORED" in (demo.network / "rollback.log").read_text())
    assert read_wired(demo.eth0)[0]["address"] == "192.168.0.10"


def test_the_pipe_closes_with_the_script_and_not_with_the_timer(demo):
    # With a timer that held the pipe, this would outlast the deadline.
    demo.run("configurewlan", "master", "robot 7", "TKIP", "12345678", TESSARAD_ROLLBACK_S="300")
    assert demo.wireless()["ssid"] == "robot 7"
    demo.run("configurewlan", "master", "robot 7", "TKIP", "12345678")


def test_a_link_that_fails_can_be_played(demo):
    demo.run("prepare-network")
    (demo.network / "no-link").touch()
    run = subprocess.run([str(DEMO / "configureeth"), *WIRED], env=demo.environment, check=False,
                         stdout=subprocess.PIPE, timeout=60)
    assert run.returncode == 6
    assert read_wired(demo.eth0)[0]["address"] == "192.168.0.10"


def test_the_stand_in_shows_a_connection_without_its_passphrase(demo):
    demo.run("prepare-network")
    shown = subprocess.run([str(DEMO / "stand-ins" / "nmcli"), "connection", "show", "wlan"],
                           env=demo.environment, cwd=demo.run_folder, check=True, text=True,
                           stdout=subprocess.PIPE, timeout=60).stdout
    assert "connection.id:" in shown and "robots" in shown
    assert "demonstration" not in shown
