"""Fixtures of the end-to-end tests."""

from __future__ import annotations

from pathlib import Path
from typing import Any, Callable, Iterator

import pytest

from support.daemon import Daemon, Options
from support.ports import RefusingPort

StartDaemon = Callable[..., Daemon]


@pytest.fixture
def no_robot() -> Iterator[str]:
    """The address of a robot that is switched off."""
    port = RefusingPort()
    yield port.address
    port.close()


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
