"""A run that SIGKILL ends at any of its steps, as the daemon does when the next write arrives."""

from __future__ import annotations

from typing import Callable, Iterator

import pytest

from support.site import SCRIPTS, Site

CLIENT = ("client", "dhcp", "office", "12345678")
MASTER = ("master", "robot", "CCMP", "12345678")
WIRED = ("manual", "192.168.0.10", "24", "192.168.0.1", "", "no", "", "", "", "no", "", "", "")
OTHER = ("auto", "", "", "0.0.0.0", "", "yes", "10.0.0.9", "8", "0.0.0.0", "no", "", "", "")


def every_step(new_site: Callable[[], Site], prepare: Callable[[Site], None],
               command: Callable[[Site], list[str]]) -> Iterator[Site]:
    """Sites whose command was killed at its first, second, third... step."""
    step = 0
    while True:
        step += 1
        site = new_site()
        prepare(site)
        if not site.run_and_crash(step, command(site)):
            break
        yield site
    assert step > 5, "the steps were counted"


def script(name: str, *arguments: str) -> Callable[[Site], list[str]]:
    return lambda site: [str(SCRIPTS / name), *arguments]


def result_of(site: Site, *runs: Callable[[Site], object]) -> dict[str, bytes | None]:
    for run in runs:
        run(site)
    return site.files()


def assert_whole(site: Site, *versions: dict[str, bytes | None]) -> None:
    for name, content in site.files().items():
        assert content in [version[name] for version in versions], name


def nothing(site: Site) -> None:
    pass


TRIALS = [
    pytest.param("configureeth", WIRED, id="eth"),
    pytest.param("configurewlan", MASTER, id="to an access point"),
    pytest.param("configurewlan", CLIENT, id="client"),
]


@pytest.mark.parametrize("name, arguments", TRIALS)
def test_a_killed_trial_is_rolled_back_by_its_timer(new_site, name, arguments):
    old = new_site().files()
    new = result_of(new_site(), lambda site: site.run(name, *arguments))
    changed = 0
    for site in every_step(new_site, nothing, script(name, *arguments)):
        assert_whole(site, old, new)
        changed += site.files() != old
        site.fire_timers()
        assert site.files() == old
        assert site.timers() == []
        assert not list(site.state.glob("*.trial"))
    assert changed > 0, "some steps lie behind the change"


@pytest.mark.parametrize("name, arguments", TRIALS)
def test_a_killed_trial_can_be_begun_again(new_site, name, arguments):
    old = new_site().files()
    new = result_of(new_site(), lambda site: site.run(name, *arguments))
    for site in every_step(new_site, nothing, script(name, *arguments)):
        code, text = site.run(name, *arguments)
        if text.splitlines()[-1].startswith("ROLLBACK"):
            code, text = site.run(name, *arguments)
        assert (code, text) == (0, "CONFIRMED: the new settings are kept.\n")
        assert site.files() == new
        assert site.leftovers() == []
        site.fire_timers()
        assert site.files() == new != old


def test_another_trial_killed_on_trial_goes_back_to_the_confirmed_files(new_site):
    old = new_site().files()
    first = result_of(new_site(), lambda site: site.eth(*WIRED))
    second = result_of(new_site(), lambda site: site.eth(*OTHER))
    for site in every_step(new_site, lambda site: site.eth(*WIRED), script("configureeth", *OTHER)):
        assert_whole(site, old, first, second)
        site.fire_timers()
        assert site.files() == old
        assert not list(site.state.glob("*.trial"))


def test_a_killed_confirmation_has_either_happened_or_not(new_site):
    old = new_site().files()
    new = result_of(new_site(), lambda site: site.eth(*WIRED))
    ends = set()
    for site in every_step(new_site, lambda site: site.eth(*WIRED), script("configureeth", *WIRED)):
        assert site.files() == new
        confirmed = not (site.state / "eth.trial").exists()
        site.fire_timers()
        assert site.files() == (new if confirmed else old)
        ends.add(confirmed)
    assert ends == {True, False}


def test_a_killed_rollback_can_be_done_again(new_site):
    old = new_site().files()
    new = result_of(new_site(), lambda site: site.wlan(*MASTER))
    for site in every_step(new_site, lambda site: site.wlan(*MASTER),
                           lambda site: site.timer_command(site.timers()[0])):
        assert_whole(site, old, new)
        assert site.run("rollbacknetwork", "--all")[0] == 0
        assert site.files() == old
        assert not list(site.state.glob("*.trial"))
