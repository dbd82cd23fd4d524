"""The daemon as a process in a folder and on a port of its own."""

from __future__ import annotations

import os
import signal
import subprocess
from dataclasses import dataclass, field
from pathlib import Path
from typing import IO, Mapping, Sequence

from support.deadlines import deadline, wait_for
from support.http import Connection, Reply
from support.output import failure_marks, failures, log_messages, stray_errors
from support.ports import free_port

ROOT = Path(__file__).resolve().parents[3]
BINARIES = Path(os.environ.get("TESSARAD_BIN_DIR", ROOT / "build/asan/bin"))
LISTENING = b"Listening for requests at: "
START_ATTEMPTS = 5


@dataclass(frozen=True)
class Options:
    """How a daemon is started. A listener of None is a free port of the loopback interface."""

    robot: str
    resources: Path | None = None
    verbosity: int = 0
    settings: Mapping[str, str] = field(default_factory=dict)
    listener: str | None = None
    # The configuration file's name, seen from the daemon's folder, and the argument that names it:
    # None for its absolute path, an empty text for no argument.
    file_name: str = "given.conf"
    file_argument: str | None = None
    # The file's whole text in place of the settings above; @PORT@ stands for the port.
    file: bytes | None = None
    arguments: Sequence[str] = ()
    # True starts it without root's right to open what its owner may not open.
    obeys_permissions: bool = False
    closed_streams: Sequence[int] = ()
    # A command that changes something for the process and then becomes the daemon.
    launcher: Sequence[str] = ()
    # Descriptors in place of the files that keep what the daemon prints.
    stdout: int | None = None
    stderr: int | None = None
    environment: Mapping[str, str] = field(default_factory=dict)

    def configuration(self, port: int) -> bytes:
        """The configuration file's text."""
        if self.file is not None:
            return self.file.replace(b"@PORT@", str(port).encode())
        listener = f"http://127.0.0.1:{port}" if self.listener is None else self.listener
        settings = {"Network/win_httpserver": listener, "Network/veltrano": self.robot}
        sections: dict[str, list[str]] = {}
        for path, value in (settings | dict(self.settings)).items():
            section, _, key = path.partition("/")
            sections.setdefault(section, []).append(f"{key}={value}\n")
        text = "".join(f"[{name}]\n{''.join(lines)}" for name, lines in sections.items())
        return text.encode()

    def command_line(self, configuration: Path) -> list[str]:
        verbose = ["-" + "v" * self.verbosity] if self.verbosity else []
        named = f"-conf={configuration}" if self.file_argument is None else self.file_argument
        resources = [f"-resourcepath={self.resources}"] if self.resources else []
        # Without an address of its own a daemon would call on whatever robot this machine has.
        robot = [f"-veltrano={self.robot}"] if self.file is not None else []
        return [*verbose, *([named] if named else []), *resources, *robot, *self.arguments]


def quiet_environment(more: Mapping[str, str]) -> dict[str, str]:
    """This process's environment without what changes the messages of Qt."""
    inherited = {key: value for key, value in os.environ.items() if not key.startswith("QT_")}
    return inherited | dict(more)


class Daemon:
    """One run of the daemon. The fixture start_daemon creates, stops and judges it."""

    def __init__(self, folder: Path, options: Options) -> None:
        self.folder = folder
        self.options = options
        self.port = 0
        self.expected_exit_code = 0
        self._announced: list[str] = []
        self._tolerated: list[str] = []
        self._process: subprocess.Popen[bytes] | None = None

    # Start and stop

    def start(self) -> None:
        """Launches the daemon on a free port and waits until it listens."""
        for _ in range(START_ATTEMPTS):
            self.choose_port()
            self.launch()
            self.wait_for_output(LISTENING + b"|Unkown error\n")
            if LISTENING in self.stdout():
                return
            # Somebody took the port between its choice and its use.
            self.stop()
        raise AssertionError("no free port found")

    def choose_port(self) -> None:
        """Takes another port from the next launch on."""
        self.port = free_port()

    def launch(self) -> None:
        """Starts the process and returns at once."""
        configuration = self.folder / self.options.file_name
        configuration.parent.mkdir(parents=True, exist_ok=True)
        configuration.write_bytes(self.options.configuration(self.port))
        self.launch_with(self.options.command_line(configuration))

    def launch_with(self, arguments: Sequence[str | bytes]) -> None:
        """Starts the process with exactly these arguments and returns at once."""
        with open(self.folder / "stdout", "wb") as out, open(self.folder / "stderr", "wb") as err:
            self._execute(arguments, self.options.stdout or out, self.options.stderr or err)

    def _execute(self, arguments: Sequence[str | bytes], stdout: IO[bytes] | int,
                 stderr: IO[bytes] | int) -> None:
        command: list[str | bytes] = [str(BINARIES / "tessarad"), *arguments]
        if self.options.obeys_permissions and os.geteuid() == 0:
            command = ["setpriv", "--bounding-set=-dac_override,-dac_read_search", *command]
        command = [*self.options.launcher, *command]
        if self.options.closed_streams:
            closings = " ".join(f"{stream}>&-" for stream in self.options.closed_streams)
            command = ["/bin/sh", "-c", f'exec "$@" {closings}', "sh", *command]
        self._process = subprocess.Popen(
            command, cwd=self.folder, stdin=subprocess.DEVNULL, stdout=stdout, stderr=stderr,
            env=quiet_environment(self.options.environment))

    @property
    def pid(self) -> int:
        assert self._process is not None
        return self._process.pid

    def is_running(self) -> bool:
        return self._process is not None and self._process.poll() is None

    def send_signal(self, number: signal.Signals) -> None:
        assert self._process is not None
        self._process.send_signal(number)

    def wait_for_end(self, seconds: float = 15.0) -> int:
        """The exit code, negative for a signal that ended the process."""
        assert self._process is not None
        try:
            return self._process.wait(deadline(seconds))
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
            raise AssertionError(f"the daemon still runs after {deadline(seconds):.0f} s") from None

    def stop(self, number: signal.Signals = signal.SIGTERM) -> int:
        """Asks the daemon to stop and gives its exit code."""
        if self.is_running():
            self.send_signal(number)
        return self.wait_for_end()

    def kill(self) -> None:
        """Ends whatever still runs; for tests that have failed already."""
        if self._process is not None and self.is_running():
            self._process.kill()
            self._process.wait()

    # Requests

    def connect(self, seconds: float = 10.0) -> Connection:
        return Connection(self.port, seconds)

    def request(self, method: str, target: str | bytes, body: bytes | None = None,
                headers: tuple[str, ...] = (), seconds: float = 10.0) -> Reply:
        """Sends one request over a connection of its own."""
        with self.connect(seconds) as connection:
            return connection.request(method, target, body, headers)

    def get(self, target: str | bytes) -> Reply:
        return self.request("GET", target)

    def put(self, target: str | bytes, body: bytes) -> Reply:
        return self.request("PUT", target, body)

    def wait_for_reply(self, target: str, body: bytes) -> None:
        """Waits until a GET gives exactly this body; shows both when it never does."""
        try:
            wait_for(f"{target} to answer {body[:2000]!r}", lambda: self.get(target).body == body)
        except AssertionError as error:
            raise AssertionError(f"{error}: {self.get(target).body[:2000]!r}") from None

    def wait_for_text(self, target: str, text: bytes) -> None:
        """Waits until the body of a GET holds this text."""
        wait_for(f"{text!r} in {target}", lambda: text in self.get(target).body)

    # Output

    def stdout(self) -> bytes:
        return (self.folder / "stdout").read_bytes()

    def stderr(self) -> bytes:
        return (self.folder / "stderr").read_bytes()

    def log(self) -> str:
        """The log file's text, empty without a file."""
        file = self.folder / "tessarad_log.txt"
        return file.read_bytes().decode("latin-1") if file.is_file() else ""

    def messages(self) -> list[str]:
        """The log's messages, without their times."""
        return log_messages(self.log())

    def wait_for_output(self, *texts: bytes) -> None:
        """Waits until each text stands on standard output; "a|b" waits for one of two."""
        for text in texts:
            wait_for(f"{text!r} on standard output of {self.folder}",
                     lambda t=text: any(part in self.stdout() for part in t.split(b"|"))
                     or not self.is_running())
        output = self.stdout()
        assert all(any(part in output for part in text.split(b"|")) for text in texts), \
            f"ended with {self.wait_for_end()}: {output!r} {self.stderr()!r}"

    def wait_for_message(self, message: str, count: int = 1) -> None:
        """Waits until the log holds a message count times."""
        wait_for(f"{count} x {message!r} in the log of {self.folder}",
                 lambda: self.messages().count(message) >= count)

    def open_files(self) -> list[str]:
        """What the process's descriptors stand for."""
        names = []
        for entry in os.scandir(f"/proc/{self.pid}/fd"):
            try:
                names.append(os.readlink(entry.path))
            except FileNotFoundError:
                continue
        return names

    # Judgement

    def expect_log(self, *texts: str) -> None:
        """Announces lines that hold these texts; each must come, and no other line of failure."""
        self._announced.extend(texts)

    def may_log(self, *texts: str) -> None:
        """Announces lines that may come or not, where a test's inputs differ in this."""
        self._tolerated.extend(texts)

    def complaints(self) -> list[str]:
        """Stops the daemon if need be, and tells what it did that no test has announced."""
        found = []
        exit_code = self.stop()
        if exit_code != self.expected_exit_code:
            found.append(f"exit code {exit_code}")
        if stray := stray_errors(self.stderr().decode("latin-1")):
            found.append(f"unexpected text on the error stream: {stray[:4000]}")
        lines = failures(self.log())
        # The console repeats the log without breaks between messages, so only the counts compare.
        if len(failure_marks(self.stdout().decode("latin-1"))) > len(failure_marks(self.log())):
            found.append(f"failures on standard output alone: {self.stdout()[:4000]!r}")
        for line in lines:
            if not any(text in line for text in [*self._announced, *self._tolerated]):
                found.append(f"unannounced line: {line[:1000]}")
        for text in self._announced:
            if not any(text in line for line in lines):
                found.append(f"announced, but it never came: {text}")
        return [f"{self.folder.name}: {complaint}" for complaint in found]
