"""Hundreds of starts and stops under load, none of which may crash, hang or leak."""

from __future__ import annotations

import pytest

from support.deadlines import SANITIZER, wait_for
from support.pollers import Pollers

STARTS = 200 if SANITIZER != "thread" else 50
CLIENTS = 32


@pytest.fixture
def pollers():
    clients = Pollers(CLIENTS)
    yield clients
    clients.close()


def test_two_hundred_stops_under_polling_clients_are_all_in_order(new_daemon, simulator, pollers,
                                                                  tmp_path):
    (tmp_path / "page.html").write_bytes(b"p" * 5000)
    for _ in range(STARTS):
        daemon = new_daemon(robot=simulator.address, resources=tmp_path)
        daemon.start()
        pollers.poll(daemon.port)
        wait_for("replies", lambda: pollers.replies > 2 * CLIENTS)
        daemon.stop()
        pollers.pause()
