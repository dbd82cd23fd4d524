"""What the tests of the robot link ask of a robot, whether simulated or fake."""

from __future__ import annotations

from typing import Any, Protocol


class Robot(Protocol):
    """Told by its address to a daemon; started when it is made."""

    address: str

    def start(self) -> None:
        """Listens, after a stop on the same port as before."""

    def stop(self) -> None:
        """Drops all clients and refuses new ones."""

    def show(self, event: str, params: dict[str, Any]) -> None:
        """Shows its clients, present and to come, what an event of the protocol tells."""

    def commands(self, method: str) -> list[dict[str, Any]]:
        """The params of all commands of a method, in order of arrival."""

    def timed_commands(self, method: str) -> list[tuple[float, dict[str, Any]]]:
        """The same with the times of arrival, those of time.monotonic()."""
