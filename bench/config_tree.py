#!/usr/bin/python3
"""What HTTP adds to the tree of many configuration files.

usage: config_tree.py BIN_DIR [ROUNDS]

50 files of 200 keys for the browser each are read, shown as a tree and sent; beside that the same
tree is built in a loop without HTTP, by turns. The goal: a reply takes at most 3 times as long.
"""

from __future__ import annotations

import shutil
import statistics
import subprocess
import sys
import tempfile
import time
import urllib.request
from pathlib import Path

from harness.servers import Server, daemon
from support.daemon import BINARIES

FILES = 50
KEYS = 200
GOAL = 3
REPLIES_PER_ROUND = 5
# The bench preset's configuration directory.
DIRECTORY = BINARIES.parent / "etc/veltrano"


def write_files() -> None:
    shutil.rmtree(DIRECTORY, ignore_errors=True)
    DIRECTORY.mkdir(parents=True)
    for number in range(FILES):
        lines = [f"[Section{number}]\n"]
        for key in range(KEYS):
            lines.append("#@web selection 1 2 3\n" if key % 2 else "# what it is\n#@web\n")
            lines.append(f"key{key}={key % 3 + 1}\n")
        (DIRECTORY / f"file{number}.conf").write_text("".join(lines))


def reply_ms(server: Server) -> float:
    begin = time.monotonic()
    with urllib.request.urlopen(server.url("/data/config")) as reply:
        size = len(reply.read())
    assert size > FILES * KEYS * 100, f"only {size} bytes"
    return (time.monotonic() - begin) * 1000


def loop_ms() -> float:
    output = subprocess.run([str(BINARIES / "config-tree-loop"), str(DIRECTORY),
                             str(REPLIES_PER_ROUND)], check=True, capture_output=True, text=True)
    return float(output.stdout)


def measure(rounds: int) -> tuple[list[float], list[float]]:
    """The ratios to the loop, and the times in ms of a reply, of each round."""
    ratios, times = [], []
    with tempfile.TemporaryDirectory() as name, daemon(Path(name), "127.0.0.1:1") as server:
        reply_ms(server)
        for _ in range(rounds):
            times.append(statistics.median(reply_ms(server) for _ in range(REPLIES_PER_ROUND)))
            ratios.append(times[-1] / loop_ms())
    return ratios, times


def main() -> int:
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 7
    # Beside an installed daemon the files would replace the robot's own settings.
    if not (BINARIES.parent / "CMakeCache.txt").exists():
        sys.exit(f"{BINARIES} is not in a build's folder")
    write_files()
    try:
        ratios, times = measure(rounds)
    finally:
        # Whatever is measured next would show these thousands of settings.
        shutil.rmtree(DIRECTORY)
    ratio = statistics.median(ratios)
    print(f"GET /data/config, {FILES} files of {KEYS} keys: {ratio:.2f} of the time without HTTP "
          f"({min(ratios):.2f} to {max(ratios):.2f}), {statistics.median(times):.0f} ms; goal {GOAL}")
    return 0 if ratio <= GOAL else 1


if __name__ == "__main__":
    sys.exit(main())
