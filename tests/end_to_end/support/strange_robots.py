"""Robots that do not keep to the protocol: the outermost fake with other manners."""

from __future__ import annotations

import json
import socket
import threading
from typing import Any

from support.fake_robot import FakeRobot, Params


class SilentRobot(FakeRobot):
    """Takes connections and never says a word."""

    def serve(self, connection: socket.socket) -> None:
        while connection.recv(4096):
            pass


class ClosingRobot(FakeRobot):
    """Closes each connection at once."""

    def serve(self, connection: socket.socket) -> None:
        connection.close()


class ChattingRobot(FakeRobot):
    """Answers the first words of each client with bytes of its own, and then says no more."""

    def __init__(self, words: bytes) -> None:
        self.words = words
        super().__init__()

    def serve(self, connection: socket.socket) -> None:
        connection.recv(4096)
        connection.sendall(self.words)
        while connection.recv(4096):
            pass


class EndlessRobot(FakeRobot):
    """Sends a hundred megabytes without a line feed, or as much of them as the daemon takes."""

    def serve(self, connection: socket.socket) -> None:
        connection.recv(4096)
        for _ in range(100):
            connection.sendall(b"x" * (1 << 20))


class LyingRobot(FakeRobot):
    """Speaks another version of the protocol."""

    def reply(self, connection: socket.socket, request: dict[str, Any], result: Params) -> None:
        super().reply(connection, request, {"protocol": 2, "robot": "liar"})


class StuffedRobot(FakeRobot):
    """Reads nothing any more once it has said hello."""

    def __init__(self) -> None:
        self.is_over = threading.Event()
        super().__init__()

    def serve(self, connection: socket.socket) -> None:
        connection.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 1024)
        with connection.makefile("rb") as lines:
            self.answer(connection, json.loads(lines.readline()))
        self.is_over.wait()

    def stop(self) -> None:
        super().stop()
        self.is_over.set()
