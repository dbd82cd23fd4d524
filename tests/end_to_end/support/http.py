"""An HTTP client that shows the exact bytes of every reply."""

from __future__ import annotations

import socket
from dataclasses import dataclass

from support.deadlines import deadline


@dataclass(frozen=True)
class Reply:
    status_line: bytes
    headers: list[tuple[str, str]]
    body: bytes

    @property
    def status(self) -> int:
        return int(self.status_line.split(b" ")[1])

    def header(self, name: str) -> str | None:
        """The one value of a header, None without it."""
        values = [value for key, value in self.headers if key.lower() == name.lower()]
        assert len(values) <= 1, f"{name} occurs {len(values)} times"
        return values[0] if values else None

    @property
    def content_type(self) -> str | None:
        return self.header("Content-Type")


class Connection:
    """One TCP connection to the daemon."""

    def __init__(self, port: int, seconds: float = 10.0) -> None:
        self.socket = socket.create_connection(("127.0.0.1", port), timeout=deadline(seconds))
        self._received = b""

    def __enter__(self) -> Connection:
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def close(self) -> None:
        self.socket.close()

    def send(self, data: bytes) -> None:
        self.socket.sendall(data)

    def request(self, method: str, target: str | bytes, body: bytes | None = None,
                headers: tuple[str, ...] = ()) -> Reply:
        """Sends a request and reads its reply. The target goes out as it is."""
        self.send(request_bytes(method, target, body, headers))
        return self.read_reply(has_body=method != "HEAD")

    def read_reply(self, has_body: bool = True) -> Reply:
        head = self._read_until(b"\r\n\r\n")
        lines = head.decode("latin-1").split("\r\n")
        headers = [(key, value.strip()) for key, _, value in (x.partition(":") for x in lines[1:])]
        reply = Reply(lines[0].encode("latin-1"), headers, b"")
        if not has_body:
            return reply
        if reply.header("Transfer-Encoding") == "chunked":
            body = self._read_chunks()
        else:
            body = self._read_exactly(int(reply.header("Content-Length") or 0))
        return Reply(reply.status_line, headers, body)

    def read_to_end(self) -> bytes:
        """All that still comes until the daemon closes the connection."""
        while self._receive():
            pass
        received, self._received = self._received, b""
        return received

    def _receive(self) -> bool:
        data = self.socket.recv(1 << 16)
        self._received += data
        return bool(data)

    def _read_until(self, mark: bytes) -> bytes:
        while mark not in self._received:
            if not self._receive():
                raise ConnectionError(f"closed after {self._received[:200]!r}")
        text, _, self._received = self._received.partition(mark)
        return text

    def _read_exactly(self, size: int) -> bytes:
        while len(self._received) < size:
            if not self._receive():
                raise ConnectionError(f"closed {size - len(self._received)} bytes too early")
        body, self._received = self._received[:size], self._received[size:]
        return body

    def _read_chunks(self) -> bytes:
        body = b""
        while size := int(self._read_until(b"\r\n"), 16):
            body += self._read_exactly(size)
            self._read_until(b"\r\n")
        self._read_until(b"\r\n")
        return body


def request_bytes(method: str, target: str | bytes, body: bytes | None = None,
                  headers: tuple[str, ...] = ()) -> bytes:
    """A request in the form that is sent; the length of a body is added to the headers."""
    target = target.encode("utf-8") if isinstance(target, str) else target
    lines = ["Host: 127.0.0.1", *headers]
    if body is not None:
        lines.append(f"Content-Length: {len(body)}")
    head = "".join(f"{line}\r\n" for line in lines).encode("latin-1")
    return method.encode() + b" " + target + b" HTTP/1.1\r\n" + head + b"\r\n" + (body or b"")
