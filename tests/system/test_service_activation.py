"""What enableservice leaves in the unit directory, done by the real systemctl on a root directory of the
tests' own, and what it asks systemd for."""

from __future__ import annotations

import os
from pathlib import Path

import pytest

from support.services import Services

RELOAD = ["busctl", "--expect-reply=no", "call", "org.freedesktop.systemd1", "/org/freedesktop/systemd1",
          "org.freedesktop.systemd1.Manager", "Reload"]


@pytest.fixture
def services(tmp_path) -> Services:
    site = Services(tmp_path)
    site.group("robot\ncamera@\n")
    site.unit("robot")
    site.unit("camera@")
    return site


def mark(services: Services, name: str = "robot") -> Path:
    return services.units / f"{name}.service"


def is_masked(services: Services, name: str = "robot") -> bool:
    """As the daemon looks at it, and systemd."""
    link = mark(services, name)
    return link.is_symlink() and os.readlink(link) == "/dev/null"


def starts_at_boot(services: Services, unit: str = "robot") -> bool:
    wanted = services.units / "multi-user.target.wants" / f"{unit}.service"
    template = unit.split("@")[0] + "@" if "@" in unit else unit
    return wanted.is_symlink() and not is_masked(services, unit) and not is_masked(services, template)


def verbs(services: Services) -> list[str]:
    return [" ".join(call[:1] + call[3:]) for call in services.calls()]


def test_deactivation_masks_and_activation_unmasks_and_enables(services):
    assert services.run_for_real("enableservice", "robot", "disable").code == 0
    assert is_masked(services)
    assert services.run_for_real("enableservice", "robot", "enable").code == 0
    assert not mark(services).is_symlink()
    assert starts_at_boot(services)


def test_a_deactivated_service_does_not_start_at_boot_though_it_was_enabled(services):
    services.run_for_real("enableservice", "robot", "enable")
    assert starts_at_boot(services)
    services.run_for_real("enableservice", "robot", "disable")
    assert not starts_at_boot(services)


@pytest.mark.parametrize("word", ["enable", "disable"])
@pytest.mark.parametrize("name", ["robot", "camera@", "camera@left"])
def test_asking_twice_changes_nothing_more(services, word, name):
    assert services.run_for_real("enableservice", name, word).code == 0
    first = sorted(services.units.rglob("*"))
    assert services.run_for_real("enableservice", name, word).code == 0
    assert sorted(services.units.rglob("*")) == first


def test_a_masked_template_holds_all_its_instances_back_and_gives_them_free_again(services):
    services.run_for_real("enableservice", "camera@left", "enable")
    services.run_for_real("enableservice", "camera@", "disable")
    assert is_masked(services, "camera@")
    assert not starts_at_boot(services, "camera@left")
    assert services.run_for_real("enableservice", "camera@", "enable").code == 0
    assert not mark(services, "camera@").is_symlink()
    assert starts_at_boot(services, "camera@left")


def test_an_instance_is_masked_alone(services):
    services.run_for_real("enableservice", "camera@left", "enable")
    services.run_for_real("enableservice", "camera@right", "enable")
    services.run_for_real("enableservice", "camera@left", "disable")
    assert not starts_at_boot(services, "camera@left")
    assert starts_at_boot(services, "camera@right")


def test_a_service_that_only_others_start_can_be_activated(services):
    services.unit("robot", install="")
    services.run_for_real("enableservice", "robot", "disable")
    assert services.run_for_real("enableservice", "robot", "enable").code == 0
    assert not mark(services).is_symlink()


def test_a_unit_file_in_the_marks_place_is_not_destroyed(services):
    mark(services).write_text(services.unit("robot").read_text())
    before = mark(services).read_bytes()
    outcome = services.run_for_real("enableservice", "robot", "disable")
    assert (outcome.code, mark(services).read_bytes()) == (4, before)
    assert outcome.complaint.count("\n") == 1 and "own file" in outcome.complaint
    assert services.calls() == []


def test_a_unit_file_in_the_marks_place_can_be_activated(services):
    mark(services).write_text(services.unit("robot").read_text())
    assert services.run_for_real("enableservice", "robot", "enable").code == 0
    assert starts_at_boot(services)


@pytest.mark.parametrize("word", ["enable", "disable"])
def test_a_link_to_a_unit_file_is_not_destroyed(services, word, tmp_path):
    elsewhere = tmp_path / "elsewhere.service"
    elsewhere.write_text("[Service]\nExecStart=/bin/true\n")
    mark(services).symlink_to(elsewhere)
    outcome = services.run_for_real("enableservice", "robot", word)
    assert (outcome.code, os.readlink(mark(services))) == (4, str(elsewhere))
    assert outcome.complaint.count("\n") == 1 and "is a link to a file" in outcome.complaint
    assert services.calls() == []


def test_a_broken_link_is_not_destroyed(services):
    mark(services).symlink_to("/nowhere/at/all")
    assert services.run_for_real("enableservice", "robot", "enable").code == 4
    assert os.readlink(mark(services)) == "/nowhere/at/all"


def test_a_listed_service_without_a_file_loses_its_mark_and_is_told(services):
    services.group("absent\n")
    assert services.run_for_real("enableservice", "absent", "disable").code == 0
    outcome = services.run_for_real("enableservice", "absent", "enable")
    assert (outcome.code, mark(services, "absent").is_symlink()) == (1, False)
    assert "systemd refuses to enable absent.service." in outcome.complaint


def test_systemd_is_asked_to_reload_once_and_not_waited_for(services):
    services.run("enableservice", "robot", "disable")
    assert services.calls() == [
        ["systemctl", "--no-reload", "--no-ask-password", "mask", "--", "robot.service"], RELOAD]


def test_activation_asks_for_two_changes_and_one_reload(services):
    services.run("enableservice", "robot", "enable")
    assert verbs(services)[:2] == ["systemctl unmask -- robot.service", "systemctl enable -- robot.service"]
    assert services.calls()[2:] == [RELOAD]


def test_a_template_is_not_enabled_by_itself(services):
    services.run("enableservice", "camera@", "enable")
    assert verbs(services)[:1] == ["systemctl unmask -- camera@.service"]
    assert services.calls()[1:] == [RELOAD]


@pytest.mark.parametrize("verb, word", [("mask", "disable"), ("unmask", "enable"), ("enable", "enable"),
                                        ("call", "disable")])
def test_a_refusal_is_told_and_systemd_reloads_all_the_same(services, verb, word):
    services.fails(verb)
    outcome = services.run("enableservice", "robot", word)
    assert (outcome.code, outcome.output) == (1, "")
    assert outcome.complaint.endswith("robot.service.\n")
    assert services.calls()[-1] == RELOAD
