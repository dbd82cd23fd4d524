"""Uploads and downloads of user programs."""

from __future__ import annotations

import base64
import json
from pathlib import Path
from typing import Any
from urllib.parse import quote

from support.daemon import Daemon
from support.http import Reply

UPLOAD = "/data/uploadProgram"
DOWNLOAD = "/download/program/"
PROGRAMS = "Lumview/programpath"


def settings(folder: Path) -> dict[str, str]:
    """Settings of a daemon that keeps its programs in this folder."""
    return {PROGRAMS: str(folder)}


def body_of(name: str, content: bytes, **changes: Any) -> bytes:
    """The body that uploads a program."""
    program = {"name": name, "size": len(content), "data": base64.b64encode(content).decode()}
    return json.dumps(program | changes).encode()


def message_of(reply: Reply, success: bool) -> str:
    """The message of an upload's reply, which must have this outcome."""
    assert reply.status_line == b"HTTP/1.1 200 OK"
    assert reply.content_type == "application/json; charset=utf-8"
    answer = json.loads(reply.body)
    assert answer == {"message": answer["message"], "success": success}
    return answer["message"]


def upload(daemon: Daemon, name: str, content: bytes) -> str:
    """Stores a program and gives the reply's message."""
    reply = daemon.request("PUT", UPLOAD, body_of(name, content), seconds=60)
    return message_of(reply, success=True)


def download(daemon: Daemon, name: str) -> Reply:
    """The reply to a request of a program as a browser would encode its name."""
    return daemon.request("GET", DOWNLOAD + quote(name), seconds=60)


def assert_program(reply: Reply, content: bytes) -> None:
    """The reply is the program with these bytes, and nothing besides."""
    assert reply.status_line == b"HTTP/1.1 200 OK"
    assert sorted(reply.headers) == [("Content-Type", "application/octet-stream"),
                                     ("Transfer-Encoding", "chunked")]
    assert reply.body == content


def assert_missing(reply: Reply) -> None:
    """The reply is the one of a file that can't be read."""
    assert reply.status_line == b"HTTP/1.1 500 Internal Error"
    assert sorted(reply.headers) == [("Content-Length", "15"),
                                     ("Content-Type", "text/plain; charset=utf-8")]
    assert reply.body == b"INTERNAL ERROR "
