"""The time on trial: armed, confirmed, renewed, run out, and what happens when links don't come up."""

from __future__ import annotations

import re

import pytest

from support.site import wait_for

WIRED = ("manual", "192.168.0.10", "24", "192.168.0.1", "", "no", "", "", "", "no", "", "", "")
OTHER = ("manual", "192.168.0.11", "24", "192.168.0.1", "", "no", "", "", "", "no", "", "", "")
MASTER = ("master", "robot", "CCMP", "secret passphrase")
CLIENT = ("client", "dhcp", "office", "secret passphrase")
ROLLBACK = re.compile(r"^ROLLBACK ([0-9]+) s: .*$", re.MULTILINE)


def last_line(text):
    return text.splitlines()[-1]


def test_the_line_of_a_trial_has_its_fixed_form(site):
    _, text = site.eth(*WIRED)
    assert last_line(text) == (
        "ROLLBACK 90 s: the settings are on trial, confirm within 90 s by sending the same "
        "ones again, else the old ones come back.")
    assert len(ROLLBACK.findall(text)) == 1


def test_the_timer_is_set_before_any_file_changes_and_anew_at_the_end(site):
    before = site.files()
    site.hold("systemd-run *")
    process = site.start("configureeth", *WIRED, TESSARAD_ROLLBACK_S="41")
    wait_for("the timer", site.calls)
    assert site.files() == before
    site.release()
    assert b"ROLLBACK 41 s: " in process.communicate()[0]
    calls = [call.split()[0:2] for call in site.calls()]
    assert [call[0] for call in calls] == ["systemd-run", "nmcli", "nmcli", "systemd-run", "systemctl"]
    assert "--on-active=41" in site.calls()[0] and "--on-active=41" in site.calls()[3]
    assert len(site.timers()) == 1


def test_the_same_arguments_once_more_keep_the_settings(site):
    site.eth(*WIRED)
    tried = site.files()
    site.forget_calls()
    assert site.eth(*WIRED) == (0, "CONFIRMED: the new settings are kept.\n")
    assert site.files() == tried
    assert [call.split()[:2] for call in site.calls()] == [["systemctl", "stop"]]
    assert site.timers() == []
    assert not (site.state / "eth.trial").exists()


def test_a_timer_that_comes_too_late_changes_nothing(site):
    site.eth(*WIRED)
    command = site.timer_command(site.timers()[0])
    site.eth(*WIRED)
    tried = site.files()
    assert site.run("rollbacknetwork", *command[1:])[0] == 0
    assert site.files() == tried


def test_without_confirmation_the_old_settings_come_back_and_up(site):
    before = site.files()
    site.eth(*WIRED)
    site.forget_calls()
    assert last_line(site.fire_timers()) == "RESTORED: the old settings are in force."
    assert site.files() == before
    assert site.calls()[:2] == [
        f"nmcli connection load {site.eth0}",
        "nmcli --wait 60 connection up uuid 11111111-2222-3333-4444-555555555555"]
    assert ROLLBACK.search(site.eth(*WIRED)[1]), "a late confirmation begins a new trial"


def test_files_that_were_not_there_are_gone_again(site):
    for file in (site.wlan0, site.interfaces, site.hostapd):
        file.unlink()
    before = site.files()
    site.wlan(*MASTER)
    site.wlan(*CLIENT)
    site.fire_timers()
    assert site.files() == before


def test_other_arguments_on_trial_go_back_to_the_confirmed_ones(site):
    before = site.files()
    site.eth(*WIRED)
    first = site.timers()
    assert ROLLBACK.search(site.eth(*OTHER)[1])
    assert len(site.timers()) == 1 and site.timers() != first
    site.fire_timers()
    assert site.files() == before


def test_the_first_arguments_do_not_confirm_the_second(site):
    site.eth(*WIRED)
    site.eth(*OTHER)
    assert ROLLBACK.search(site.eth(*WIRED)[1])
    assert b"192.168.0.10/24" in site.eth0.read_bytes()


def test_the_old_timer_of_a_renewed_trial_does_nothing(site):
    site.eth(*WIRED)
    command = site.timer_command(site.timers()[0])
    site.eth(*OTHER)
    site.run("rollbacknetwork", *command[1:])
    assert b"192.168.0.11/24" in site.eth0.read_bytes()


def test_the_old_settings_sent_on_trial_end_it(site):
    site.wlan(*CLIENT)
    site.wlan(*CLIENT)
    confirmed = site.files()
    site.wlan(*MASTER)
    code, text = site.wlan(*CLIENT)
    assert (code, last_line(text)) == (
        0, "CONFIRMED: the settings are again those from before the trial.")
    assert site.files() == confirmed
    assert site.timers() == []


def test_settings_in_force_are_left_alone(site):
    site.eth(*WIRED)
    site.eth(*WIRED)
    site.forget_calls()
    code, text = site.eth(*WIRED)
    assert (code, last_line(text)) == (0, "UNCHANGED: these settings are in force already.")
    assert site.calls() == []


@pytest.mark.parametrize("script, arguments, failing", [
    pytest.param("eth", WIRED, "nmcli connection load*", id="load"),
    pytest.param("eth", WIRED, "nmcli *connection up*", id="up"),
    pytest.param("wlan", MASTER, "systemctl restart*", id="hostapd"),
    pytest.param("wlan", MASTER, "ifup*", id="ifup"),
])
def test_what_does_not_come_up_goes_back_at_once(site, script, arguments, failing):
    before = site.files()
    site.let_fail(failing)
    code, text = getattr(site, script)(*arguments)
    # The wired link that does not come up stands for a missing cable: the old one stays down as well.
    assert (code, last_line(text).split(":")[0]) == ((6, "FAILED") if script == "eth" else (5, "RESTORED"))
    assert "Error: the fake fails." in text
    assert not ROLLBACK.search(text)
    assert site.files() == before
    assert site.timers() == [] and site.leftovers() == []
    assert not (site.state / f"{script}.trial").exists()


def test_a_client_that_does_not_come_up_gives_the_access_point_back(site):
    site.wlan(*MASTER)
    site.wlan(*MASTER)
    before = site.files()
    site.forget_calls()
    site.let_fail("nmcli *connection up*")
    assert site.wlan(*CLIENT)[0] == 5
    assert site.files() == before
    assert site.calls()[-3:-1] == ["systemctl enable hostapd.service",
                                   "systemctl restart hostapd.service"]


def test_without_a_timer_nothing_is_tried(site):
    before = site.files()
    site.let_fail("systemd-run *")
    code, text = site.eth(*WIRED)
    assert (code, last_line(text)) == (3, "REFUSED: nothing was changed.")
    assert site.files() == before and site.leftovers() == []
    assert not (site.state / "eth.trial").exists()


@pytest.mark.parametrize("configuration, reason", [
    pytest.param("", "setting NetworkManager/eth0 is missing", id="no setting"),
    pytest.param("NetworkManager/eth0=/tmp\n", "is missing", id="no section"),
    pytest.param("[NetworkManager]\neth0=/nowhere/at/all\n", "There can be no file /nowhere/at/all",
                 id="no folder"),
    pytest.param("[NetworkManager]\neth0=/tmp\n", "There can be no file /tmp", id="a folder"),
    pytest.param(None, "can't be read", id="no configuration"),
])
def test_settings_that_lead_nowhere_are_told(site, configuration, reason):
    site.configuration.unlink()
    if configuration is not None:
        site.configuration.write_text(configuration)
    code, text = site.eth(*WIRED)
    assert code == 3
    assert reason in text


@pytest.mark.parametrize("line", [
    "eth0={}", "eth0 {}", "\t eth0={} \t", "eth0=/nowhere\neth0={}", "[x]\neth0=/no\n[NetworkManager]\neth0={}",
    "[x]\n[NetworkManager]\n;eth0=/no\n#@web\neth0={}\r",
])
def test_the_settings_are_read_as_the_daemon_reads_them(site, line):
    site.configuration.write_text("[NetworkManager]\n" + line.format(site.eth0))
    assert site.eth(*WIRED)[0] == 0


def test_two_runs_at_a_time_do_not_mix(site):
    site.hold("nmcli *connection up*")
    first = site.start("configureeth", *WIRED)
    wait_for("the first run", lambda: any(" up " in call for call in site.calls()))
    code, text = site.eth(*OTHER)
    assert (code, last_line(text)) == (4, "REFUSED: nothing was changed.")
    assert "Another change of this network is at work." in text
    assert site.wlan(*MASTER)[0] == 0, "the other network is free"
    site.release()
    assert first.communicate()[0].decode().splitlines()[-1].startswith("ROLLBACK ")
    assert b"192.168.0.10/24" in site.eth0.read_bytes()


def test_a_run_waits_for_one_that_ends_soon(site):
    site.hold("nmcli *connection up*")
    first = site.start("configureeth", *WIRED)
    wait_for("the first run", lambda: any(" up " in call for call in site.calls()))
    second = site.start("configureeth", *WIRED, TESSARAD_LOCK_WAIT_S="60")
    site.release()
    first.communicate()
    assert second.communicate()[0] == b"CONFIRMED: the new settings are kept.\n"


def test_a_killed_run_leaves_the_lock_to_the_next_one(site):
    before = site.files()
    site.hold("nmcli *connection up*")
    first = site.start("configureeth", *WIRED)
    wait_for("the first run", lambda: any(" up " in call for call in site.calls()))
    first.kill()
    first.wait()
    site.release()
    assert ROLLBACK.search(site.eth(*OTHER)[1])
    site.fire_timers()
    assert site.files() == before


def test_a_reader_that_has_gone_does_not_stop_a_run(site):
    before = site.files()
    site.hold("nmcli connection load*")
    site.let_fail("nmcli connection load*")
    process = site.start("configureeth", *WIRED)
    wait_for("the new files", lambda: any(" load " in call for call in site.calls()))
    process.stdout.close()
    assert site.files() != before
    site.release()
    assert process.wait(timeout=60) == 6
    assert site.files() == before
    assert site.timers() == []


def test_a_passphrase_is_in_no_output_and_in_no_argument(site):
    texts = [site.wlan(*MASTER)[1], site.wlan(*MASTER)[1], site.wlan(*CLIENT)[1]]
    site.let_fail("nmcli *up*")
    texts.append(site.wlan("client", "dhcp", "elsewhere", "secret passphrase")[1])
    assert "secret" not in "".join(texts) + "".join(site.calls())


def test_what_is_kept_is_for_the_owner_alone(site):
    site.wlan(*CLIENT)
    for file in site.state.rglob("*"):
        assert file.stat().st_mode & 0o077 == 0 or file.name.startswith("old."), file
    assert site.state.stat().st_mode & 0o777 == 0o700


def test_every_trial_can_be_ended_by_hand_or_at_the_start(site):
    before = site.files()
    site.eth(*WIRED)
    site.wlan(*MASTER)
    assert site.run("rollbacknetwork", "--all")[0] == 0
    assert site.files() == before
    assert site.timers() == []
