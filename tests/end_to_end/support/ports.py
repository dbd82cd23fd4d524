"""Ports of the loopback interface."""

from __future__ import annotations

import socket


def free_port() -> int:
    """A port that nobody has just now. Somebody may take it before the caller does."""
    with socket.socket() as candidate:
        candidate.bind(("127.0.0.1", 0))
        return candidate.getsockname()[1]


class RefusingPort:
    """A port that refuses every connection for as long as this object is open."""

    def __init__(self) -> None:
        self._socket = socket.socket()
        # Bound but not listening: nobody else can get it, and a connection to it is refused.
        self._socket.bind(("127.0.0.1", 0))
        self.address = f"127.0.0.1:{self._socket.getsockname()[1]}"

    def close(self) -> None:
        self._socket.close()
