"""Fixtures of the end-to-end tests."""

from __future__ import annotations

from pathlib import Path
from typing import Any, Callable, Iterator

import pytest

from support.configuration import Configuration
from support.daemon import Daemon, Options
from support.fake_robot import FakeRobot
from support.ports import RefusingPort
from support.robot import Robot
from support.simulator import Simulator

StartDaemon = Callable[..., Daemon]


def pytest_configure(config: pytest.Config) -> None:
    """Makes a failure in a test's own threads a failure of the test."""
    config.addinivalue_line("filterwarnings", "error")


@pytest.fixture
def no_robot() -> Iterator[str]:
    """The address of a robot that is switched off."""
    port = RefusingPort()
    yield port.address
    port.close()


@pytest.fixture
def fake_robot() -> Iterator[FakeRobot]:
    robot = FakeRobot()
    yield robot
    robot.stop()


@pytest.fixture
def simulator(tmp_path: Path) -> Iterator[Simulator]:
    robot = Simulator(tmp_path)
    yield robot
    robot.close()


@pytest.fixture(params=["simulator", "fake_robot"])
def robot(request: pytest.FixtureRequest) -> Robot:
    """A robot to talk to; every test that takes it runs with each kind."""
    return request.getfixturevalue(request.param)


@pytest.fixture
def programs(tmp_path: Path) -> Path:
    """An empty folder for user programs."""
    folder = tmp_path / "programs"
    folder.mkdir()
    return folder


@pytest.fixture
def new_daemon(tmp_path: Path, no_robot: str) -> Iterator[StartDaemon]:
    """Makes daemons that do not run yet, and judges them all when the test has ended."""
    daemons: list[Daemon] = []

    def new(**options: Any) -> Daemon:
        folder = tmp_path / f"daemon{len(daemons)}"
        folder.mkdir()
        daemons.append(Daemon(folder, Options(**({"robot": no_robot} | options))))
        return daemons[-1]

    yield new
    try:
        complaints = [complaint for daemon in daemons for complaint in daemon.complaints()]
        assert not complaints, "\n".join(complaints)
    finally:
        for daemon in daemons:
            daemon.kill()


@pytest.fixture
def start_daemon(new_daemon: StartDaemon) -> StartDaemon:
    """Starts daemons that listen and judges them all when the test has ended."""

    def start(**options: Any) -> Daemon:
        daemon = new_daemon(**options)
        daemon.start()
        return daemon

    return start


@pytest.fixture
def start_configured(start_daemon: StartDaemon) -> Iterator[Callable[..., Configuration]]:
    """Starts daemons with an empty configuration directory each."""
    configurations: list[Configuration] = []

    def start(**options: Any) -> Configuration:
        configurations.append(Configuration(start_daemon(**options)))
        return configurations[-1]

    yield start
    for configuration in configurations:
        configuration.remove_temporaries()


@pytest.fixture
def configuration(start_configured: Callable[..., Configuration]) -> Configuration:
    return start_configured()


@pytest.fixture
def start_connected(start_daemon: StartDaemon) -> StartDaemon:
    """Starts daemons and waits until they are connected to the robot that is given."""

    def start(robot: Robot, **options: Any) -> Daemon:
        daemon = start_daemon(robot=robot.address, **options)
        daemon.wait_for_message("Connected")
        return daemon

    return start
