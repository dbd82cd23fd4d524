"""The configuration directory of a daemon, its files and its tree."""

from __future__ import annotations

import json
import os
import uuid
from pathlib import Path
from typing import Any, Iterator

from support.daemon import Daemon
from support.http import Reply

CONFIG = "/data/config"
# Seen from the daemon's folder, so that every daemon has one of its own.
DIRECTORY = os.environ.get("TESSARAD_CONFIG_DIR", "veltrano")
TEMPORARY = Path("/tmp")

# Keeps the debug stream out of the error stream, where nothing unannounced may stand.
NO_DEBUG = {"QT_LOGGING_RULES": "*.debug=false"}


class Configuration:
    """Made by the fixture of the same name; its files' names are like no other test's.

    All files of one base name share their temporary file, whichever daemon writes them.
    """

    def __init__(self, daemon: Daemon) -> None:
        assert not os.path.isabs(DIRECTORY), \
            f"{DIRECTORY} is the system's own: configure the build again with its preset"
        self.daemon = daemon
        self.folder = daemon.folder / DIRECTORY
        self.folder.mkdir()
        self._prefix = uuid.uuid4().hex

    def path(self, name: str) -> Path:
        """The path of the file that a test calls by a short name."""
        return self.folder / f"{self._prefix}{name}.conf"

    def backup(self, name: str) -> Path:
        return Path(f"{self.path(name)}.bak")

    def temporary(self, name: str) -> Path:
        return TEMPORARY / f"{self._prefix}{name}".partition(".")[0]

    def write(self, name: str, text: bytes) -> Path:
        self.path(name).write_bytes(text)
        return self.path(name)

    def read(self, name: str) -> bytes:
        return self.path(name).read_bytes()

    def files(self) -> dict[str, bytes]:
        """All files of the directory by their names without the prefix."""
        return {path.name.removeprefix(self._prefix): path.read_bytes()
                for path in self.folder.iterdir()}

    def leaf(self, name: str, key: str, value: Any) -> dict[str, Any]:
        """A leaf that gives a key, as "Group/key", a new value."""
        group, _, key = key.rpartition("/")
        return {"file": str(self.path(name)), "group": group, "name": key, "value": value}

    def tree(self, sid: str = "") -> list[dict[str, Any]]:
        return json.loads(self.get(sid).body)

    def get(self, sid: str = "") -> Reply:
        return self.daemon.get(f"{CONFIG}?sid={sid}")

    def put(self, tree: Any, sid: str = "") -> Reply:
        return self.daemon.put(f"{CONFIG}?sid={sid}", json.dumps(tree).encode())

    def change(self, name: str, key: str, value: Any) -> bytes:
        """Writes one leaf and gives the body of the reply, which must be a success."""
        reply = self.put([self.leaf(name, key, value)])
        assert reply.status == 200, reply
        return reply.body

    def remove_temporaries(self) -> None:
        for path in TEMPORARY.glob(f"{self._prefix}*"):
            if path.is_dir():
                path.rmdir()
            else:
                path.unlink()


def leaves(nodes: list[dict[str, Any]]) -> Iterator[dict[str, Any]]:
    """All leaves of a tree, in order."""
    for node in nodes:
        if "value" in node:
            yield node
        else:
            yield from leaves(node["_children"])


def daemons(*names: str) -> bytes:
    """The reply that names these daemons."""
    return (json.dumps({"daemons": list(names)}, indent=4) + "\n").encode()
