"""A robot's RPC server that is nothing but its end of the wire."""

from __future__ import annotations

import json
import socket
import threading
import time
from typing import Any

from support.deadlines import wait_for

Params = dict[str, Any]


class FakeRobot:
    """The outermost fake: it simulates no robot, it shows and records what a test wants.

    It answers hello and ping as the protocol says, tells every client the state that the test has
    shown, and keeps the commands it gets. A robot that misbehaves overrides serve().
    """

    def __init__(self, port: int = 0) -> None:
        self._lock = threading.Lock()
        self._sending = threading.Lock()
        self._state: dict[tuple[str, Any], Params] = {}
        self._commands: list[tuple[float, str, Params]] = []
        self._connections: list[socket.socket] = []
        self._greeted: list[socket.socket] = []
        self._port = port
        self.connections_made = 0
        self.answers: list[dict[str, Any]] = []
        self.start()

    @property
    def address(self) -> str:
        return f"127.0.0.1:{self._port}"

    def start(self) -> None:
        """Listens, after a stop on the same port as before."""
        self._listener = socket.create_server(("127.0.0.1", self._port), backlog=64)
        self._port = self._listener.getsockname()[1]
        threading.Thread(target=self._accept, args=(self._listener,), daemon=True).start()

    def stop(self) -> None:
        """Refuses connections and drops those that there are."""
        self._listener.shutdown(socket.SHUT_RDWR)
        self._listener.close()
        self.drop()

    def drop(self) -> None:
        """Ends all connections."""
        with self._lock:
            connections, self._connections, self._greeted = self._connections, [], []
        for connection in connections:
            try:
                connection.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass
            connection.close()

    def show(self, event: str, params: Params) -> None:
        """Sends an event to all clients, and later to those that come."""
        with self._lock:
            self._state[event, params.get("chargerNumber")] = params
        self.tell(event, params)

    def tell(self, event: str, params: Params) -> None:
        """Sends an event to the clients that there are, and forgets it."""
        with self._lock:
            greeted = list(self._greeted)
        for connection in greeted:
            self.send(connection, {"method": event, "params": params})

    def send_bytes(self, data: bytes) -> None:
        """Sends bytes to all clients that have been greeted, as they are."""
        with self._lock:
            greeted = list(self._greeted)
        for connection in greeted:
            self._send_all(connection, data)

    def commands(self, method: str) -> list[Params]:
        """The params of all commands of a method, in order of arrival."""
        return [params for _, params in self.timed_commands(method)]

    def timed_commands(self, method: str) -> list[tuple[float, Params]]:
        """The same with the times of arrival, those of time.monotonic()."""
        with self._lock:
            return [(when, params) for when, name, params in self._commands if name == method]

    def clear_commands(self) -> None:
        """Forgets the commands so far."""
        with self._lock:
            self._commands.clear()

    def has_client(self) -> bool:
        """True while a client that has been greeted is connected."""
        return bool(self._greeted)

    def wait_for_client(self) -> None:
        """Waits until a client has been greeted."""
        wait_for("a client of the robot", self.has_client)

    # What each connection's thread does

    def serve(self, connection: socket.socket) -> None:
        """Talks to one client until it goes."""
        with connection.makefile("rb") as lines:
            for line in lines:
                self.answer(connection, json.loads(line))

    def answer(self, connection: socket.socket, message: dict[str, Any]) -> None:
        method = message.get("method")
        if method is None:
            self.answers.append(message)
        elif method == "hello":
            self.reply(connection, message, {"protocol": 1, "robot": "fake"})
            with self._lock:
                state = dict(self._state)
                self._greeted.append(connection)
            for (event, _), params in state.items():
                self.send(connection, {"method": event, "params": params})
        elif method == "ping":
            self.reply(connection, message, {})
        else:
            with self._lock:
                self._commands.append((time.monotonic(), method, message.get("params", {})))

    def reply(self, connection: socket.socket, request: dict[str, Any], result: Params) -> None:
        self.send(connection, {"id": request["id"], "result": result})

    def send(self, connection: socket.socket, message: dict[str, Any]) -> None:
        self._send_all(connection, json.dumps({"jsonrpc": "2.0", **message}).encode() + b"\n")

    def _send_all(self, connection: socket.socket, data: bytes) -> None:
        try:
            # A large message goes out in pieces, between which no other may come.
            with self._sending:
                connection.sendall(data)
        except OSError:
            pass

    def _accept(self, listener: socket.socket) -> None:
        while True:
            try:
                connection, _ = listener.accept()
            except OSError:
                return
            with self._lock:
                self._connections.append(connection)
                self.connections_made += 1
            threading.Thread(target=self._serve_until_end, args=(connection,), daemon=True).start()

    def _serve_until_end(self, connection: socket.socket) -> None:
        try:
            self.serve(connection)
        except (OSError, ValueError):
            pass
        with self._lock:
            self._greeted = [other for other in self._greeted if other is not connection]
            self._connections = [other for other in self._connections if other is not connection]
        connection.close()
