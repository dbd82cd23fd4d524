"""Waiting with deadlines, which stretch where a sanitizer slows the programs down."""

from __future__ import annotations

import os
import time
from typing import Callable, TypeVar

Found = TypeVar("Found")

SANITIZER = os.environ.get("TESSARAD_SANITIZER", "")
STRETCH = {"": 2.0, "address": 6.0, "thread": 15.0}[SANITIZER]


def deadline(seconds: float) -> float:
    """The time that something may take which takes seconds on an idle machine, at the very most."""
    return seconds * STRETCH


def wait_for(what: str, condition: Callable[[], Found], seconds: float = 10.0) -> Found:
    """The condition's first true value; an AssertionError that names what was waited for, else."""
    end = time.monotonic() + deadline(seconds)
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"waited {deadline(seconds):.0f} s in vain for {what}")
        time.sleep(0.005)
