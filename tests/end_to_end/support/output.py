"""What a daemon has written, taken apart: its log, and what may never stand in it unannounced."""

from __future__ import annotations

import re

TIME = re.compile(r"\d\d:\d\d:\d\d\.\d\d\d \| ")

# The time stamps of log lines, which go to the error stream, and the dots of a progress row.
STAMPS = re.compile(r"(\n?\d\d:\d\d:\d\d\.\d\d\d \| |\.)*")


def log_messages(log: str) -> list[str]:
    """The messages of a log in order, without their times; the breaks between them are gone."""
    starts = [match for match in re.finditer(r"^" + TIME.pattern, log, re.MULTILINE)]
    ends = [match.start() for match in starts[1:]] + [len(log) + 1]
    return [log[match.end():end - 1] for match, end in zip(starts, ends)]


def failure_marks(text: str) -> list[str]:
    """What marks a failure, or a path that nobody knows, once for each time that it occurs."""
    return re.findall(r"Error|invalid -- ", text)


def failures(text: str) -> list[str]:
    """The lines that tell of a failure or of a path that nobody knows."""
    return [line for line in text.split("\n") if failure_marks(line)]


def stray_errors(stderr: str) -> str:
    """What stands on the error stream beyond the two lines of a start and the time stamps.

    Sanitizer reports and Qt's warnings are such strays; the library prints none of its own.
    """
    start = re.match(r'("[^\n]*"\n(QMap\([^\n]*\)\n)?)?', stderr)
    rest = stderr[start.end():] if start else stderr
    stamps = STAMPS.match(rest)
    return rest[stamps.end():] if stamps else rest
