"""The configuration files that are shipped, for a controller and for the demo."""

from __future__ import annotations

import re
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[2]
KEY_CELLS = re.findall(r"^\| (`[^|]+`) \|", (ROOT / "docs/configuration.md").read_text(), re.M)
DOCUMENTED = {key for cell in KEY_CELLS for key in re.findall(r"`([A-Z]\w+/\w+)`", cell)}
SHIPPED = ROOT / "system/etc/veltrano/tessarad.conf"
DEMO = ROOT / "demo/etc/veltrano/tessarad.conf"


def keys_of(file: Path) -> set[str]:
    """The keys, also those that are shown as comments, with their sections."""
    section, keys = "", set()
    for line in file.read_text().splitlines():
        if heading := re.fullmatch(r"\[(\w+)\]", line):
            section = heading[1]
        elif key := re.match(r"#?(\w+)=", line):
            keys.add(f"{section}/{key[1]}")
    return keys


def test_the_controllers_file_holds_every_documented_key():
    assert DOCUMENTED
    assert DOCUMENTED - keys_of(SHIPPED) == set()


@pytest.mark.parametrize("file", [SHIPPED, DEMO], ids=["controller", "demo"])
def test_no_file_holds_a_key_that_is_not_documented(file):
    assert keys_of(file) - DOCUMENTED == set()


@pytest.mark.parametrize("file", sorted((ROOT / "system/etc/veltrano").glob("*.conf")), ids=lambda file: file.name)
def test_each_annotated_file_tells_which_daemon_it_belongs_to(file):
    text = file.read_text()
    assert "#@restart command begin" in text
    assert re.search(r"^#@name \S+$", text, re.M)


@pytest.mark.parametrize("file", sorted((ROOT / "system/etc/veltrano").glob("*.conf")), ids=lambda file: file.name)
def test_each_mark_for_the_browser_stands_above_its_key(file):
    lines = file.read_text().splitlines()
    for mark, below in zip(lines, lines[1:]):
        if mark.startswith("#@web"):
            assert re.match(r"\w+[= ]", below), f"{mark!r} stands above {below!r}"
