#!/usr/bin/python3
"""Whether the daemon's memory stays flat under many requests.

usage: memory.py BIN_DIR [REQUESTS]

After a warm-up, 32 connections ask for all kinds of paths, files and images and uploads among them,
until REQUESTS have been answered. Prints the resident memory as it goes. The goal: at the end it is
within 5 MB of what it was after the warm-up.
"""

from __future__ import annotations

import subprocess
import sys
import tempfile
from pathlib import Path

from harness.servers import Server, daemon
from support.simulator import Simulator

CONNECTIONS = 32
GOAL_MB = 5

# Each connection walks through the list; a reply of any status counts.
SCRIPT = """
local requests = {}
local function add(method, path, body)
    requests[#requests + 1] = wrk.format(method, path, nil, body)
end
init = function()
    for _, path in ipairs({"bumper", "odometry", "distancesensorarray", "analoginputarray",
                           "digitalinputarray", "powermanagement", "charger0", "charger1",
                           "festoolcharger", "controllerinfo", "userrole", "scan0", "nothing"}) do
        add("GET", "/data/" .. path)
    end
    add("GET", "/cam0")
    add("GET", "/page.html")
    add("GET", "/missing.html")
    add("GET", "/download/program/a%20b.txt")
    add("GET", "/download/program/missing")
    add("PUT", "/data/relayarray", "[1,0]")
    add("PUT", "/data/omnidrive", "[0,0,0.1]")
    add("PUT", "/data/omnidrive", "[0,0")
    add("POST", "/data/login?sid=a", '{"role":"operator","password":""}')
    add("POST", "/data/login?sid=a", "nonsense")
    add("DELETE", "/data/bumper")
end
local turn = 0
request = function()
    turn = turn + 1
    return requests[turn % #requests + 1]
end
done = function(summary)
    print("answered " .. summary.requests)
end
"""


def load(server: Server, script: Path, seconds: int) -> int:
    """Loads the daemon for a while; how many requests it has answered."""
    output = subprocess.run(["wrk", "-t", "1", "-c", str(CONNECTIONS), "-d", f"{seconds}s", "-s",
                             str(script), server.url("/")],
                            check=True, capture_output=True, text=True).stdout
    return int(output.rpartition("answered ")[2])


def main() -> int:
    wanted = int(sys.argv[2]) if len(sys.argv) > 2 else 200_000
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        (folder / "page.html").write_text("<p>hello</p>" * 200)
        (folder / "programs").mkdir()
        (folder / "programs" / "a b.txt").write_text("print hello\n" * 300)
        script = folder / "mixed.lua"
        script.write_text(SCRIPT)
        robot = Simulator(folder)
        settings = f"[General]\nresourcepath={folder}\n[Lumview]\nprogrampath={folder / 'programs'}\n"
        with daemon(folder, robot.address, settings=settings) as server:
            warm_up = load(server, script, 5)
            at_first = server.resident_bytes()
            print(f"{at_first / 1e6:.1f} MB after {warm_up} requests", flush=True)
            answered = 0
            while answered < wanted:
                answered += load(server, script, 3)
                print(f"{server.resident_bytes() / 1e6:.1f} MB after {answered} more", flush=True)
            growth = (server.resident_bytes() - at_first) / 1e6
        robot.close()
    print(f"grown by {growth:.1f} MB; goal within {GOAL_MB} MB")
    return 0 if abs(growth) <= GOAL_MB else 1


if __name__ == "__main__":
    sys.exit(main())
