"""Servers as processes, and wrk to load them."""

from __future__ import annotations

import re
import subprocess
from pathlib import Path

from support.daemon import BINARIES
from support.deadlines import wait_for
from support.ports import free_port

LISTENING = b"Listening for requests at: "


class Server:
    """A process that says when it listens, ended with the block."""

    def __init__(self, arguments: list[str], folder: Path, port: int) -> None:
        self.port = port
        output = folder / f"{arguments[0]}.out"
        with open(output, "wb") as stdout:
            self.process = subprocess.Popen([str(BINARIES / arguments[0]), *arguments[1:]],
                                            cwd=folder, stdout=stdout, stderr=subprocess.DEVNULL)
        wait_for(f"{arguments[0]} to listen", lambda: LISTENING in output.read_bytes())

    def __enter__(self) -> Server:
        return self

    def __exit__(self, *_: object) -> None:
        self.process.kill()
        self.process.wait()

    def url(self, path: str) -> str:
        return f"http://127.0.0.1:{self.port}{path}"

    def cpu_seconds(self) -> float:
        """The time that the process has had of all cores so far."""
        fields = Path(f"/proc/{self.process.pid}/stat").read_text().rpartition(")")[2].split()
        return (int(fields[11]) + int(fields[12])) / 100

    def resident_bytes(self) -> int:
        status = Path(f"/proc/{self.process.pid}/status").read_text()
        return 1024 * int(re.search(r"VmRSS:\s+(\d+) kB", status).group(1))


def daemon(folder: Path, robot: str, program: str = "tessarad", settings: str = "") -> Server:
    """A daemon that writes nothing but what it must; without passwords everybody may do all."""
    port = free_port()
    (folder / "tessarad.conf").write_text(
        f"[Network]\nwin_httpserver=http://127.0.0.1:{port}\nveltrano={robot}\n{settings}")
    return Server([program, "-conf=tessarad.conf", f"-veltrano={robot}"], folder, port)


def bare_listener(folder: Path, kind: str, content: bytes) -> Server:
    """The HTTP library alone, answering with this content."""
    port = free_port()
    (folder / "content").write_bytes(content)
    return Server(["bare-listener", f"http://127.0.0.1:{port}", kind, "content"], folder, port)


def requests_per_second(url: str, connections: int, seconds: int, script: Path | None = None) -> float:
    command = ["wrk", "-t", "1", "-c", str(connections), "-d", f"{seconds}s"]
    command += ["-s", str(script)] if script else []
    output = subprocess.run([*command, url], check=True, capture_output=True, text=True).stdout
    if "Non-2xx" in output or "Socket errors" in output:
        raise SystemExit(f"{url}: failed requests\n{output}")
    return float(re.search(r"Requests/sec:\s+([\d.]+)", output).group(1))
