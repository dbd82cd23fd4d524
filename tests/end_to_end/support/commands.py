"""Scripts that stand for the site's own and for the system's commands."""

from __future__ import annotations

import os
from pathlib import Path

from support.deadlines import wait_for


def write_script(path: Path, commands: str) -> Path:
    """An executable shell script."""
    path.write_text(f"#!/bin/sh\n{commands}\n")
    path.chmod(0o755)
    return path


def path_with(folder: Path) -> dict[str, str]:
    """The environment of a daemon that finds the commands of this folder before the system's."""
    return {"PATH": f"{folder}:{os.environ['PATH']}"}


def is_alive(pid: int) -> bool:
    """Whether a process still does anything; a zombie does not."""
    try:
        state = Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()[0]
    except (FileNotFoundError, ProcessLookupError):
        return False
    return state not in "ZX"


def wait_for_pid(file: Path) -> int:
    """The number that a script has written into a file as a line."""
    wait_for(f"a process number in {file}",
             lambda: file.is_file() and file.read_bytes().endswith(b"\n"))
    return int(file.read_text())
