"""A controller's services for a test: group files, a unit directory, and recorders in the place of systemd's
commands. The scripts that run on it are the real ones."""

from __future__ import annotations

import os
import subprocess
from pathlib import Path
from typing import NamedTuple

SCRIPTS = Path(__file__).parents[3] / "system" / "scripts"
DATA = Path(__file__).parents[2] / "data" / "systemd"

# Writes its arguments down, prints what the test has prepared for the verb, and can be the real program
# on a root directory of the test's own.
RECORDER = """#!/bin/sh
printf '%s\\n' "$(basename "$0")" "$@" "" >>"$RECORDINGS/calls"
for verb in list-units list-unit-files start stop mask unmask enable call; do
    case " $* " in *" $verb "*) break ;; esac
done
case $verb in
    mask | unmask | enable)
        if [ -n "${REAL_ROOT-}" ]; then
            exec /usr/bin/systemctl --root="$REAL_ROOT" "$@"
        fi
        ;;
esac
[ ! -e "$RECORDINGS/$verb" ] || cat "$RECORDINGS/$verb"
[ ! -e "$RECORDINGS/$verb.fails" ] || { echo "Failed to connect to bus" >&2; exit 1; }
"""


class Outcome(NamedTuple):
    code: int
    output: str
    complaint: str

    def records(self) -> dict[str, list[str]]:
        """The lines of servicestate by their first words."""
        return {line.split()[0]: line.split()[1:] for line in self.output.splitlines()}


class Services:
    def __init__(self, folder: Path) -> None:
        self.groups = folder / "groups"
        self.root = folder / "root"
        self.units = self.root / "etc" / "systemd" / "system"
        self.installed = self.root / "lib" / "systemd" / "system"
        self.recordings = folder / "recordings"
        for path in (self.groups, self.units, self.installed, self.recordings / "bin"):
            path.mkdir(parents=True)
        for name in ("systemctl", "busctl"):
            command = self.recordings / "bin" / name
            command.write_text(RECORDER)
            command.chmod(0o755)

    def group(self, text: str, name: str = "veltrano-daemons") -> None:
        (self.groups / name).write_bytes(text.encode())

    def prints(self, verb: str, recorded: str | bytes) -> None:
        data = recorded if isinstance(recorded, bytes) else (DATA / recorded).read_bytes()
        (self.recordings / verb).write_bytes(data)

    def fails(self, verb: str) -> None:
        (self.recordings / f"{verb}.fails").touch()

    def unit(self, name: str, install: str = "WantedBy=multi-user.target\n") -> Path:
        file = self.installed / f"{name}.service"
        file.write_text(f"[Service]\nExecStart=/bin/true\n[Install]\n{install}")
        return file

    def run(self, script: str, *arguments: str | bytes, **environment: str) -> Outcome:
        process = subprocess.run(
            [str(SCRIPTS / script), *arguments], stdin=subprocess.DEVNULL, capture_output=True,
            timeout=60, cwd="/", check=False,
            env=os.environ | {"PATH": f"{self.recordings / 'bin'}:{os.environ['PATH']}",
                              "RECORDINGS": str(self.recordings), "TESSARAD_SERVICES": str(self.groups),
                              "TESSARAD_UNIT_DIR": str(self.units)} | environment)
        return Outcome(process.returncode, process.stdout.decode(), process.stderr.decode())

    def run_for_real(self, script: str, *arguments: str) -> Outcome:
        """With the real systemctl on the test's root directory, where it changes files."""
        return self.run(script, *arguments, REAL_ROOT=str(self.root))

    def calls(self) -> list[list[str]]:
        """The commands that have run, each with its arguments."""
        file = self.recordings / "calls"
        text = file.read_text() if file.exists() else ""
        return [call.split("\n") for call in text.split("\n\n") if call]
