"""Sessions of clients, where a daemon has a password for each role."""

from __future__ import annotations

import json

from support.daemon import Daemon

PASSWORDS = {"Login/operator": "driver", "Login/administrator": "chief"}
PASSWORD_OF = {"operator": "driver", "admin": "chief"}


def log_in(daemon: Daemon, sid: str, role: str) -> None:
    """Gives the session this role. The log then holds a line of it at every level."""
    body = json.dumps({"role": role, "password": PASSWORD_OF[role]}).encode()
    reply = daemon.put(f"/data/login?sid={sid}", body)
    assert f'"Logged in as {role}"'.encode() in reply.body, reply
