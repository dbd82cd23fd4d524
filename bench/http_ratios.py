#!/usr/bin/python3
"""What the daemon costs beside its HTTP library: requests per second as ratios of a bare listener.

usage: http_ratios.py BIN_DIR [ROUNDS [SECONDS]]

Both servers run all the time, unconnected to any robot; wrk loads one and then the other, 32
keep-alive connections, so that a change of the machine's speed meets both. Prints the median of the
rounds' ratios for each request, and its smallest and largest.
"""

import re
import socket
import statistics
import subprocess
import sys
import tempfile
import urllib.request
from dataclasses import dataclass
from pathlib import Path

CONNECTIONS = 32
PUT_SCRIPT = """
wrk.method = "PUT"
wrk.body = "[true,0            ]"
"""


@dataclass(frozen=True)
class Case:
    title: str
    path: str
    is_put: bool
    goal: float


CASES = (
    Case("GET /data/bumper", "/data/bumper", False, 0.93),
    Case("GET /data/odometry", "/data/odometry", False, 0.85),
    Case("PUT /data/relayarray, 20 bytes", "/data/relayarray", True, 0.75),
)


def free_port() -> int:
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class Server:
    """A process that says when it listens, ended with the block."""

    def __init__(self, arguments: list[str], folder: Path) -> None:
        self.process = subprocess.Popen(arguments, cwd=folder, stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL, text=True)
        for line in self.process.stdout:
            if "Listening for requests at: " in line:
                return
        raise SystemExit(f"{arguments[0]} has ended")

    def __enter__(self) -> "Server":
        return self

    def __exit__(self, *_: object) -> None:
        self.process.kill()
        self.process.wait()


def requests_per_second(url: str, seconds: int, script: Path | None) -> float:
    command = ["wrk", "-t", "1", "-c", str(CONNECTIONS), "-d", f"{seconds}s"]
    command += ["-s", str(script)] if script else []
    output = subprocess.run([*command, url], check=True, capture_output=True, text=True).stdout
    if "Non-2xx" in output or "Socket errors" in output:
        raise SystemExit(f"{url}: failed requests\n{output}")
    return float(re.search(r"Requests/sec:\s+([\d.]+)", output).group(1))


def fetch(url: str) -> str:
    with urllib.request.urlopen(url) as reply:
        return reply.read().decode()


def compare(case: Case, binaries: Path, folder: Path, daemon_port: int, rounds: int,
            seconds: int) -> None:
    script = folder / "put.lua"
    script.write_text(PUT_SCRIPT)
    bare_port = free_port()
    text = "" if case.is_put else fetch(f"http://127.0.0.1:{daemon_port}{case.path}")
    bare = [str(binaries / "bare-listener"), f"http://127.0.0.1:{bare_port}", text]
    with Server(bare, folder):
        ratios, rates = [], []
        for _ in range(rounds):
            rate, bare_rate = (
                requests_per_second(f"http://127.0.0.1:{port}{case.path}", seconds,
                                    script if case.is_put else None)
                for port in (daemon_port, bare_port))
            ratios.append(rate / bare_rate)
            rates.append(rate)
    print(f"{case.title:32} {statistics.median(ratios):.3f} of the bare listener "
          f"({min(ratios):.3f} to {max(ratios):.3f}), {statistics.median(rates):.0f} a second; "
          f"goal {case.goal:.2f}", flush=True)


def main() -> None:
    binaries = Path(sys.argv[1]).resolve()
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 7
    seconds = int(sys.argv[3]) if len(sys.argv) > 3 else 3
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        port = free_port()
        (folder / "tessarad.conf").write_text(
            f"[Network]\nwin_httpserver=http://127.0.0.1:{port}\nveltrano=127.0.0.1:1\n")
        with Server([str(binaries / "tessarad")], folder):
            for case in CASES:
                compare(case, binaries, folder, port, rounds, seconds)


if __name__ == "__main__":
    main()
