#!/usr/bin/python3
"""What the list of services costs beside its commands, and what slow commands cost the others.

usage: services.py BIN_DIR [ROUNDS]

The list runs four commands; beside each read the same four are run one after the other without the
daemon, by turns. The goal: a reply takes at most 10 ms more than they do. Then 40 clients ask for a
status whose command takes longer than its limit of half a second, while one more asks for the bumper;
its longest wait is printed. There is no goal for that: every worker of the port is waiting then.
"""

from __future__ import annotations

import os
import statistics
import subprocess
import sys
import tempfile
import threading
import time
import urllib.request
from pathlib import Path

from harness.servers import Server, daemon

GOAL_MS = 10
CLIENTS = 40
GROUPS = ("veltrano-daemons", "veltrano-smartsoft-master", "veltrano-smartsoft-slave")
SCRIPTS = {
    "listservices": "sleep 0.02; printf 'motors\\nsensor@\\nlights\\n'",
    "servicestate": "sleep 0.02; for i in 1 2 3 4 5 6 7 8 9; do"
                    " echo \"sensor@$i.service loaded active running Sensor\"; done",
    "systemctl": "exec sleep 1000",
}


def read_ms(server: Server, path: str) -> float:
    begin = time.monotonic()
    with urllib.request.urlopen(server.url(path), timeout=120) as reply:
        reply.read()
    return (time.monotonic() - begin) * 1000


def commands_ms(folder: Path) -> float:
    begin = time.monotonic()
    commands = [[folder / "servicestate"], *([folder / "listservices", group] for group in GROUPS)]
    for command in commands:
        subprocess.run(command, check=True, capture_output=True)
    return (time.monotonic() - begin) * 1000


def longest_wait_ms(server: Server) -> float:
    clients = [threading.Thread(target=read_ms, args=(server, "/data/servicestatus/x"))
               for _ in range(CLIENTS)]
    for client in clients:
        client.start()
    longest = 0.0
    while any(client.is_alive() for client in clients):
        longest = max(longest, read_ms(server, "/data/bumper"))
    return longest


def main() -> int:
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 25
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        for script, text in SCRIPTS.items():
            (folder / script).write_text(f"#!/bin/sh\n{text}\n")
            (folder / script).chmod(0o700)
        settings = (f"[Scripts]\nlistservices={folder / 'listservices'}\n"
                    f"servicestate={folder / 'servicestate'}\n")
        os.environ["PATH"] = f"{folder}:{os.environ['PATH']}"
        with daemon(folder, "127.0.0.1:1", settings=settings) as server:
            read_ms(server, "/data/services")
            more = [read_ms(server, "/data/services") - commands_ms(folder) for _ in range(rounds)]
            alone = statistics.median(read_ms(server, "/data/bumper") for _ in range(rounds))
            beside = longest_wait_ms(server)
    extra = statistics.median(more)
    print(f"GET /data/services takes {extra:.1f} ms more than its four commands "
          f"({min(more):.1f} to {max(more):.1f}); goal {GOAL_MS} ms")
    print(f"GET /data/bumper takes {alone:.1f} ms, and at most {beside:.0f} ms while {CLIENTS} clients "
          "ask for a status that never comes")
    return 0 if extra <= GOAL_MS else 1


if __name__ == "__main__":
    sys.exit(main())
