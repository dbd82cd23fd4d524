"""Clients that poll a daemon all the time, through its starts and stops."""

from __future__ import annotations

import threading
from typing import Sequence

from support.http import Connection, request_bytes

REQUESTS = [
    request_bytes("GET", "/data/bumper"),
    request_bytes("GET", "/data/odometry?sid=a"),
    request_bytes("PUT", "/data/relayarray", b"[1,0]"),
    request_bytes("GET", "/page.html"),
    request_bytes("GET", "/data/userrole"),
]


class Pollers:
    """Half of the clients keep their connection, the others make one for each request.

    They go on while the daemon starts and stops, so a request may end in any way; what the daemon
    does of it shows elsewhere.
    """

    def __init__(self, count: int, requests: Sequence[bytes] = REQUESTS) -> None:
        self._requests = requests
        self._replies = 0
        self._port = 0
        self._has_port = threading.Event()
        self._is_over = False
        self._clients = [threading.Thread(target=self._poll, args=(number % 2 == 0, number))
                         for number in range(count)]
        for client in self._clients:
            client.start()

    def poll(self, port: int) -> None:
        """Turns all clients to the daemon on this port."""
        self._port = port
        self._replies = 0
        self._has_port.set()

    def pause(self) -> None:
        """Lets the clients rest until they get a port; what they have begun goes on."""
        self._has_port.clear()

    @property
    def replies(self) -> int:
        """How many replies have come since the last poll(), give or take some."""
        return self._replies

    def close(self) -> None:
        self._is_over = True
        self._port = 0
        self._has_port.set()
        for client in self._clients:
            client.join()

    def _poll(self, keeps_connection: bool, number: int) -> None:
        while not self._is_over:
            self._has_port.wait()
            try:
                self._talk(self._port, keeps_connection, number)
            except (OSError, ValueError):
                # Refused, reset or cut off: the daemon is starting or stopping.
                continue

    def _talk(self, port: int, keeps_connection: bool, number: int) -> None:
        with Connection(port, 2) as connection:
            for turn in range(1_000_000 if keeps_connection else 1):
                connection.send(self._requests[(number + turn) % len(self._requests)])
                connection.read_reply()
                self._replies += 1
                if self._port != port:
                    return
