"""The scripts between the daemon and systemd: the lists, the states, and starting and stopping."""

from __future__ import annotations

import subprocess
import time

import pytest

from support.services import SCRIPTS, Services

NAMES = ("listservices", "servicestate", "startstopservice", "enableservice")
ALL = """veltrano-lights
veltrano-broken
veltrano-camera@
veltrano-dev-tty\\x2dusb0
veltrano-gone
veltrano-off
veltrano-spaced
veltrano-navigation-with-a-name-that-is-longer-than-any-terminal-would-be-wide-because-it-goes-on-and-on
"""
LIMIT_S = 0.5


@pytest.fixture
def services(tmp_path) -> Services:
    return Services(tmp_path)


def one_sentence(text: str) -> bool:
    return text.count("\n") == 1 and text.endswith(".\n")


# listservices


def test_a_group_is_printed_in_its_order_without_suffix_comments_and_blanks(services):
    services.group("# Daemons.\nzeta\n\n  alpha  \nbeta.service # the second\nt@\r\nzeta\nt@1\nlast")
    assert services.run("listservices", "veltrano-daemons") == (
        0, "zeta\nalpha\nbeta\nt@\nt@1\nlast\n", "")


@pytest.mark.parametrize("text", ["", "# only a comment\n", "\n\n", "\r\n"])
def test_a_group_without_services_prints_nothing(services, text):
    services.group(text)
    assert services.run("listservices", "veltrano-daemons") == (0, "", "")


@pytest.mark.parametrize("line", [
    "two words", "../escape", "-option", ".hidden", "a/b", "a*", "@1", "a@b@c", "ä", "a;b", "$(id)",
    "a.service.b", "x" * 248,
])
def test_what_can_be_no_unit_name_is_told_and_passed_over(services, line):
    services.group(f"good\n{line}\nfine\n")
    outcome = services.run("listservices", "veltrano-daemons")
    assert outcome.output == "good\nfine\n"
    assert "is no unit name" in outcome.complaint


@pytest.mark.parametrize("arguments", [
    (), ("",), ("veltrano-daemons", "more"), ("absent",), ("../veltrano-daemons",), ("Veltrano*",),
    ("veltrano-daemons\n",),
])
def test_an_unknown_group_is_refused_with_a_sentence(services, arguments):
    services.group("good\n")
    outcome = services.run("listservices", *arguments)
    assert (outcome.code != 0, outcome.output) == (True, "")
    assert one_sentence(outcome.complaint)


# servicestate


def test_every_state_line_has_five_words(services):
    services.group(ALL)
    services.prints("list-units", "list-units-252-plain")
    outcome = services.run("servicestate")
    assert outcome.code == 0
    # Words as the daemon sees them, to whom a no-break space is a blank.
    assert {len(line.split()) for line in outcome.output.splitlines()} == {5}


def test_listed_units_and_instances_are_printed_and_no_others(services):
    services.group("veltrano-camera@\nveltrano-lights\n")
    services.group("veltrano-broken\n", "veltrano-smartsoft-slave")
    services.prints("list-units", "list-units-252-plain")
    assert services.run("servicestate").output == (
        "veltrano-broken.service loaded failed failed A\n"
        "veltrano-camera@front.service loaded active running Camera\n"
        "veltrano-camera@rear\\x2dleft.service loaded failed failed Camera\n"
        "veltrano-camera@usb:1.service masked active running Camera\n"
        "veltrano-lights.service loaded active running Lamps\n")


def test_long_escaped_masked_and_absent_units_keep_name_and_state(services):
    services.group(ALL)
    services.prints("list-units", "list-units-252-plain")
    records = services.run("servicestate").records()
    assert records["veltrano-dev-tty\\x2dusb0.service"][:3] == ["loaded", "activating", "auto-restart"]
    assert records["veltrano-gone.service"][:3] == ["not-found", "inactive", "dead"]
    assert records["veltrano-off.service"][:3] == ["masked", "inactive", "dead"]
    assert records[ALL.splitlines()[-1] + ".service"] == ["loaded", "active", "running", "Navigation"]


def test_markers_in_front_of_names_are_left_out(services):
    services.group("veltrano-broken\nveltrano-camera@\nveltrano-cameras\nveltrano-lights\nveltrano-off\n")
    services.prints("list-units", "list-units-252-markers")
    assert services.run("servicestate").output == (
        "veltrano-broken.service loaded failed failed A\n"
        "veltrano-camera@front.service loaded active running Camera\n"
        "veltrano-cameras.service loaded activating auto-restart see\n"
        "veltrano-lights.service loaded active running Lamps\n"
        "veltrano-off.service masked inactive dead veltrano-off.service\n")


def test_a_column_of_jobs_leaves_the_states_where_they_are(services):
    services.group("veltrano-broken\nveltrano-cameras\nveltrano-lights\n")
    services.prints("list-units", "list-units-252-jobs")
    records = services.run("servicestate").records()
    assert [record[:3] for record in records.values()] == [
        ["loaded", "inactive", "dead"], ["loaded", "deactivating", "stop-sigterm"],
        ["loaded", "activating", "start-pre"]]


def test_units_without_a_description_get_a_word(services):
    services.group("x\n")
    services.prints("list-units", b"x.service loaded active running\n")
    assert services.run("servicestate").output == "x.service loaded active running -\n"


def test_lines_that_tell_no_state_are_passed_over(services):
    services.group("x\nt@\n")
    services.prints("list-units", b"\nx.service\nx.service loaded\nfoo.socket x.service\n"
                                  b"t@.service loaded active running T\nx.service loaded active running X\n")
    assert services.run("servicestate").output == "x.service loaded active running X\n"


def test_units_that_are_not_loaded_are_looked_up_among_the_files(services):
    services.group("veltrano-idle\nveltrano-off\nveltrano-static\nveltrano-bad\nveltrano-alias\nnowhere\n"
                   "veltrano-camera@\nveltrano-camera@rear\nveltrano-lights\n")
    services.prints("list-units", b"veltrano-lights.service loaded active running Lamps\n")
    services.prints("list-unit-files", "list-unit-files-252")
    assert services.run("servicestate").output == (
        "veltrano-lights.service loaded active running Lamps\n"
        "veltrano-idle.service loaded inactive dead -\n"
        "veltrano-off.service masked inactive dead -\n"
        "veltrano-static.service loaded inactive dead -\n"
        "veltrano-bad.service bad-setting inactive dead -\n"
        "nowhere.service not-found inactive dead -\n"
        "veltrano-camera@rear.service loaded inactive dead -\n")


def test_one_command_does_for_all_units_that_are_loaded(services):
    services.group("veltrano-lights\nveltrano-broken\nveltrano-camera@\n")
    services.prints("list-units", "list-units-252-plain")
    services.run("servicestate")
    assert services.calls() == [["systemctl", "list-units", "--all", "--full", "--plain", "--no-legend",
                                 "--no-pager", "--type=service"]]


def test_one_more_command_does_for_all_that_are_not(services):
    services.group("one\ntwo\nthree\n")
    services.run("servicestate")
    assert [call[1] for call in services.calls()] == ["list-units", "list-unit-files"]


def test_nothing_is_asked_when_nothing_is_listed(services):
    services.group("# none\n")
    assert services.run("servicestate") == (0, "", "")
    assert services.calls() == []


@pytest.mark.parametrize("verb", ["list-units", "list-unit-files"])
def test_a_silent_systemd_is_told_by_the_exit_code(services, verb):
    services.group("x\n")
    services.fails(verb)
    outcome = services.run("servicestate")
    assert (outcome.code, outcome.output) == (1, "")
    assert one_sentence(outcome.complaint.split("\n", 1)[1])


def test_copies_that_editors_leave_are_no_groups(services):
    services.group("x\n")
    services.group("y\n", "veltrano-daemons~")
    services.group("z\n", "veltrano-daemons.bak")
    services.prints("list-units", b"".join(b"%c.service loaded active running D\n" % c for c in b"xyz"))
    assert list(services.run("servicestate").records()) == ["x.service"]


# startstopservice


@pytest.mark.parametrize("word", ["start", "stop"])
@pytest.mark.parametrize("name, unit", [
    ("veltrano-lights", "veltrano-lights.service"),
    ("veltrano-camera@rear\\x2dleft", "veltrano-camera@rear\\x2dleft.service"),
    ("veltrano-dev-tty\\x2dusb0", "veltrano-dev-tty\\x2dusb0.service"),
])
def test_systemd_gets_the_order_and_nobody_waits(services, name, unit, word):
    services.group(ALL)
    assert services.run("startstopservice", name, word) == (0, "", "")
    assert services.calls() == [["systemctl", "--no-block", "--no-ask-password", word, "--", unit]]


@pytest.mark.parametrize("word", ["start", "stop"])
def test_a_template_stands_for_its_instances(services, word):
    services.group("odd\\x2dcamera@\n")
    assert services.run("startstopservice", "odd\\x2dcamera@", word).code == 0
    assert services.calls() == [["systemctl", "--no-block", "--no-ask-password", "--all", word, "--",
                                 "odd\\\\x2dcamera@*.service"]]


def test_systemds_refusal_is_told_by_the_exit_code(services):
    services.group("x\n")
    services.fails("start")
    assert services.run("startstopservice", "x", "start").code == 1


@pytest.mark.parametrize("script, words", [("startstopservice", ("start", "stop")),
                                           ("enableservice", ("enable", "disable"))])
class TestRefusals:
    @pytest.mark.parametrize("name", [
        "", "ssh", "veltrano-lights.service", "veltrano-lights.socket", "veltrano-light", "veltrano-lights2",
        "veltrano-lights@1", "veltrano-camera", "veltrano-camera@*", "veltrano-camera@a@b",
        "veltrano-camera@x.service", "veltrano-camera@../../x", "veltrano-camera@a b", "veltrano-camera@a\nssh",
        "veltrano-camera@" + "x" * 240, "veltrano-camera@ü", b"veltrano-camera@\xff", "*", "veltrano-*", " veltrano-lights",
        "veltrano-lights ", "veltrano-lights\n", "\n", "veltrano-lights\nveltrano-camera@", "--help",
        "-H", "../veltrano-lights", "/etc/passwd", "$(id)", "emergency.target", "two", "words",
    ])
    def test_names_that_are_not_listed_are_refused(self, services, script, words, name):
        services.group("veltrano-lights\nveltrano-camera@\ntwo words\n")
        for word in words:
            outcome = services.run(script, name, word)
            assert (outcome.code, outcome.output) == (3, "")
            assert one_sentence(outcome.complaint)
        assert services.calls() == []
        assert list(services.units.iterdir()) == []

    @pytest.mark.parametrize("arguments", [
        (), ("veltrano-lights",), ("veltrano-lights", ""), ("veltrano-lights", "restart"),
        ("veltrano-lights", "mask"), ("veltrano-lights", "START"), ("veltrano-lights", "start stop"),
        ("veltrano-lights", "stop", "now"),
    ])
    def test_other_words_are_refused(self, services, script, words, arguments):
        services.group("veltrano-lights\n")
        outcome = services.run(script, *arguments)
        assert (outcome.code, outcome.output) == (2, "")
        assert one_sentence(outcome.complaint)
        assert services.calls() == []

    def test_without_groups_everything_is_refused(self, services, script, words):
        services.groups.rmdir()
        assert services.run(script, "veltrano-lights", words[0]).code == 3
        assert services.calls() == []


# All of them


def test_each_script_ends_well_within_the_daemons_limit(services):
    lines = [f"unit-{number}" for number in range(300)]
    services.group("\n".join(lines))
    services.prints("list-units", "".join(
        f"{line}.service loaded active running Some words of text\n" for line in lines[::2]).encode())
    for script, *arguments in (("listservices", "veltrano-daemons"), ("servicestate",),
                               ("startstopservice", "unit-7", "start"), ("enableservice", "unit-7", "disable"),
                               ("enableservice", "unit-7", "enable")):
        begin = time.monotonic()
        assert services.run(script, *arguments).code == 0
        assert time.monotonic() - begin < LIMIT_S, script


def test_shellcheck_finds_nothing():
    demo = SCRIPTS.parents[1] / "demo" / "scripts"
    stand_ins = demo / "service-stand-ins"
    files = [folder / name for folder in (SCRIPTS, demo) for name in NAMES]
    files += [stand_ins / "systemctl", stand_ins / "busctl"]
    for file in files:
        subprocess.run(["shellcheck", "-x", file.name], cwd=file.parent, check=True)


def test_the_installed_groups_are_the_daemons(services):
    groups = SCRIPTS.parent / "etc" / "veltrano-services"
    assert sorted(file.name for file in groups.iterdir()) == [
        "veltrano-daemons", "veltrano-smartsoft-master", "veltrano-smartsoft-slave"]
    for file in groups.iterdir():
        outcome = services.run("listservices", file.name, TESSARAD_SERVICES=str(groups))
        assert (outcome.code, outcome.complaint) == (0, "")
