"""Scans to show, and how clients see them."""

from __future__ import annotations

import json
from typing import Any

SCAN = "/data/scan0"

EMPTY: dict[str, Any] = {
    "seq": 0, "stamp": 0, "angle_min": 0, "angle_max": 0, "angle_increment": 0,
    "time_increment": 0, "scan_time": 0, "range_min": 0, "range_max": 0, "ranges": [],
    "intensities": [],
}


def rendered(scan: dict[str, Any]) -> bytes:
    """The reply that shows a scan, of numbers that are the same in 32 bits."""
    shown = {**scan, "intensities": repeated(scan["ranges"], len(scan["intensities"]))}
    text = json.dumps(shown, indent=4, sort_keys=True)
    # Where Python writes an empty array in one piece, the daemon writes it in two lines.
    return text.replace("[]", "[\n    ]").encode() + b"\n"


def repeated(ranges: list[float], count: int) -> list[float]:
    """The first so many ranges, and 0 where there are none left."""
    return [*ranges, *[0] * count][:count]
