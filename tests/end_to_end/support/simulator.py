"""The simulated robot as a process of its own, with its control door."""

from __future__ import annotations

import json
import re
import socket
import subprocess
from pathlib import Path
from typing import Any, Callable

from support.daemon import BINARIES, quiet_environment
from support.deadlines import deadline, wait_for

Params = dict[str, Any]

ADDRESSES = re.compile(r"veltrano-sim: listening on (\S+)\n"
                       r"veltrano-sim: control door on (\S+):(\d+)\n")


def charger(params: Params, state: Params) -> Params:
    return {f"charger{params['chargerNumber']}": state}


def without_number(params: Params) -> Params:
    return {key: value for key, value in params.items() if key != "chargerNumber"}


# How the control door takes what an event tells.
STATE: dict[str, Callable[[Params], Params]] = {
    "analogInputArray.valuesChanged": lambda params: {"analogInputs": params["values"]},
    "digitalInputArray.valuesChanged": lambda params: {"digitalInputs": params["values"]},
    "distanceSensorArray.distancesChanged": lambda params: {"distances": params["values"]},
    "bumper.changed": lambda params: {"bumper": params["value"]},
    "odometry.readings": lambda params: {"odometry": params},
    "controllerInfo.infoChanged": lambda params: {"controllerInfo": {"base64": params["data"]}},
    "powerManagement.readings": lambda params: {"powerManagement": params},
    "charger.infoChanged": lambda params: charger(params, without_number(params)),
    "charger.versionChanged": lambda params: charger(params, {"version": without_number(params)}),
    "festoolCharger.infoChanged": lambda params: {"festoolCharger": {"base64": params["data"]}},
}


class Simulator:
    """One simulated robot that a test looks at and changes through the control door."""

    def __init__(self, folder: Path) -> None:
        self._folder = folder
        self._changes: list[Params] = []
        self.address = "127.0.0.1:0"
        self.start()

    def start(self) -> None:
        """Listens, after a stop on the same port as before."""
        out = self._folder / "simulator.out"
        with open(out, "wb") as stdout, open(self._folder / "simulator.err", "ab") as stderr:
            self._process = subprocess.Popen(
                [str(BINARIES / "veltrano-sim"), f"--listen={self.address}",
                 "--control=127.0.0.1:0"],
                stdin=subprocess.DEVNULL, stdout=stdout, stderr=stderr, env=quiet_environment({}))
        listening = self._wait_for_addresses(out)
        self.address = listening[1]
        self._door = socket.create_connection((listening[2], int(listening[3])),
                                              timeout=deadline(10))
        self._answers = self._door.makefile("rb")
        for change in self._changes:
            self.call("state.set", change)

    def _wait_for_addresses(self, out: Path) -> re.Match[str]:
        try:
            return wait_for("the simulated robot", lambda: ADDRESSES.fullmatch(out.read_text()))
        except AssertionError:
            self._process.kill()
            raise

    def _close_door(self) -> None:
        self._answers.close()
        self._door.close()

    def stop(self) -> None:
        """Ends the process in order."""
        self.call("sim.quit")
        self._close_door()
        assert self._process.wait(deadline(10)) == 0

    def crash(self) -> None:
        """Ends the process on the spot."""
        self._close_door()
        self._process.kill()
        self._process.wait()

    def close(self) -> None:
        """Ends the process at the end of a test, which must have gone without an error text."""
        if self._process.poll() is None:
            self.stop()
        errors = (self._folder / "simulator.err").read_text("latin-1")
        assert errors == "", errors

    def call(self, method: str, params: Params | None = None) -> Params:
        """The result of one method of the control door."""
        request = {"jsonrpc": "2.0", "id": 1, "method": method, "params": params or {}}
        self._door.sendall(json.dumps(request).encode() + b"\n")
        answer = json.loads(self._answers.readline())
        assert "result" in answer, f"{method}: {answer}"
        return answer["result"]

    def show(self, event: str, params: Params) -> None:
        """Holds the state that an event of the protocol would tell."""
        change = STATE[event](params)
        self.call("state.set", change)
        self._changes.append(change)

    def commands(self, method: str) -> list[Params]:
        """The params of all commands of a method, in order of arrival."""
        return [params for _, params in self.timed_commands(method)]

    def timed_commands(self, method: str) -> list[tuple[float, Params]]:
        """The same with the times of arrival, those of time.monotonic()."""
        commands = self.call("commands.list")["commands"]
        return [(command["timeMs"] / 1000, command["params"])
                for command in commands if command["method"] == method]
