"""Fixtures of the tests of what an installation puts on a controller."""

from __future__ import annotations

from pathlib import Path
from typing import Callable

import pytest

from support.site import Site


@pytest.fixture
def site(tmp_path: Path) -> Site:
    return Site(tmp_path / "site")


@pytest.fixture
def new_site(tmp_path: Path) -> Callable[[], Site]:
    """Makes as many sites as a test needs, all alike."""
    count = 0

    def new() -> Site:
        nonlocal count
        count += 1
        return Site(tmp_path / f"site{count}")

    return new
