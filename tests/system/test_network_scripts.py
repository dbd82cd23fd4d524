"""The scripts as texts: what the static checks say of them."""

from __future__ import annotations

import subprocess
from pathlib import Path

import pytest

from support.site import SCRIPTS

DEMO = SCRIPTS.parents[1] / "demo" / "scripts"
NAMES = ("configureeth", "configurewlan", "rollbacknetwork", "prepare-network")
ENTRIES = [folder / name for folder in (SCRIPTS, DEMO) for name in NAMES if (folder / name).exists()]
ENTRIES += [file for folder in (DEMO / "stand-ins", Path(__file__).parent / "support")
            for file in sorted(folder.iterdir())
            if file.is_file() and file.read_bytes().startswith(b"#!/bin/sh\n")]


@pytest.mark.parametrize("script", ENTRIES, ids=lambda script: script.name)
def test_shellcheck_finds_nothing_in_a_script_and_its_parts(script):
    run = subprocess.run(["shellcheck", "--check-sourced", "--shell=sh", str(script)], check=False,
                         stdout=subprocess.PIPE, text=True, timeout=120)
    assert run.stdout == ""
    assert script.stat().st_mode & 0o111 == 0o111


def test_every_part_is_used():
    parts = (SCRIPTS / "network" / "all.sh").read_text()
    assert {file.name for file in (SCRIPTS / "network").iterdir()} - {"all.sh"} == {
        line.split("/")[-1].rstrip('"') for line in parts.splitlines() if line.startswith(". ")}
