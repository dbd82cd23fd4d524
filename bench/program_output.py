#!/usr/bin/python3
"""What a program that prints much costs those who watch it, and the daemon's memory.

usage: program_output.py BIN_DIR [SECONDS]

A program prints 10,000 lines a second, every tenth of them a variable, while its output and its
variables are read; by turns the same is read while no program runs. The goals: half of the replies
come within 2 ms and 99 of 100 within 25 ms, whether or not the program prints, and the daemon's
resident memory stays within 5 MB over a minute.
"""

from __future__ import annotations

import http.client
import json
import statistics
import sys
import tempfile
import time
from pathlib import Path

from harness.servers import Server, daemon

PATHS = ("/data/lumviewout", "/data/globalvars")
MEDIAN_GOAL_MS = 2
LATE_GOAL_MS = 25
GROWTH_GOAL_MB = 5
WARM_UP_SECONDS = 5

INTERPRETER = """#!/usr/bin/python3 -u
import sys, time
burst = "".join("## value%d;;%d ##\\\\n" % (i, i) if i % 10 == 0 else "line %d of the output\\\\n" % i
                for i in range(100))
begin, bursts = time.monotonic(), 0
while True:
    sys.stdout.write(burst)
    sys.stdout.flush()
    bursts += 1
    time.sleep(max(0, begin + bursts / 100 - time.monotonic()))
"""


class Reader:
    """Reads the two paths over one connection and keeps how long each reply took."""

    def __init__(self, server: Server) -> None:
        self.connection = http.client.HTTPConnection("127.0.0.1", server.port)
        self.times_ms: list[float] = []

    def read_for(self, seconds: float) -> None:
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            for path in PATHS:
                begin = time.monotonic()
                self.connection.request("GET", path)
                json.loads(self.connection.getresponse().read())
                self.times_ms.append((time.monotonic() - begin) * 1000)
            time.sleep(0.01)

    def late_ms(self) -> float:
        return statistics.quantiles(self.times_ms, n=100)[98]

    def told(self) -> str:
        return f"median {statistics.median(self.times_ms):.2f} ms, 99 % within {self.late_ms():.1f} ms"

    def is_in_time(self) -> bool:
        return (statistics.median(self.times_ms) <= MEDIAN_GOAL_MS
                and self.late_ms() <= LATE_GOAL_MS)


def toggle(server: Server) -> None:
    connection = http.client.HTTPConnection("127.0.0.1", server.port)
    connection.request("PUT", "/data/startStopProgram", '{"name": "a", "suffix": "lv"}')
    assert connection.getresponse().status == 200


def main() -> int:
    seconds = int(sys.argv[2]) if len(sys.argv) > 2 else 60
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        (folder / "programs").mkdir()
        (folder / "programs" / "a.lv").write_text("x")
        interpreter = folder / "interpreter"
        interpreter.write_text(INTERPRETER.replace("\\\\n", "\\n"))
        interpreter.chmod(0o700)
        settings = (f"[Lumview]\npath={interpreter}\nprogrampath={folder / 'programs'}\n"
                    "outputMaxSize=100\n")
        with daemon(folder, "127.0.0.1:1", settings=settings) as server:
            quiet, printing = Reader(server), Reader(server)
            toggle(server)
            printing.read_for(WARM_UP_SECONDS)
            toggle(server)
            printing.times_ms.clear()
            quiet.read_for(WARM_UP_SECONDS)
            toggle(server)
            at_first = server.resident_bytes()
            printing.read_for(seconds)
            growth_mb = (server.resident_bytes() - at_first) / 1e6
    print(f"no program: {quiet.told()}")
    print(f"10,000 lines a second: {printing.told()}; "
          f"goal median {MEDIAN_GOAL_MS} ms, 99 % within {LATE_GOAL_MS} ms, for both")
    print(f"memory grown by {growth_mb:.1f} MB in {seconds} s; goal {GROWTH_GOAL_MB} MB")
    is_reached = quiet.is_in_time() and printing.is_in_time() and abs(growth_mb) <= GROWTH_GOAL_MB
    return 0 if is_reached else 1


if __name__ == "__main__":
    sys.exit(main())
