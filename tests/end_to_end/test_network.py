"""Reads of the network settings: what is shown of the system's files, and to whom."""

from __future__ import annotations

import json
import time
from concurrent.futures import ThreadPoolExecutor

import pytest

from support.commands import is_alive, path_with, wait_for_pid, write_script
from support.configuration import NO_DEBUG
from support.daemon import ROOT
from support.deadlines import deadline
from support.sessions import PASSWORDS, log_in

DATA = ROOT / "tests/data/network"
WIRED = {"NetworkManager/eth0": str(DATA / "wired-static.nmcli-1.42.nmconnection")}
ACCESS_POINT = {
    "NetworkManager/legacyiface": str(DATA / "interfaces-access-point"),
    "NetworkManager/hostapd": str(DATA / "hostapd-access-point.conf"),
    "NetworkManager/wlan0": str(DATA / "wireless-auto.nmcli-1.42.nmconnection"),
}
CLIENT = ACCESS_POINT | {"NetworkManager/legacyiface": str(DATA / "interfaces-client")}
INFO = {"/data/ethinfo": "eth0", "/data/wlaninfo": "wlan"}
NOTHING_PRINTED = b'{\n    "message": ""\n}\n'


@pytest.fixture
def start_quiet(start_daemon):
    """Starts daemons whose debug stream is silent."""

    def start(environment=None, **options):
        return start_daemon(environment=NO_DEBUG | (environment or {}), **options)

    return start


def expected(name):
    return (DATA / f"{name}.tree.json").read_bytes()


@pytest.mark.parametrize("path, settings, tree", [
    ("/data/ethconfig", {}, "wired-defaults"),
    ("/data/ethconfig", WIRED, "wired-static"),
    ("/data/wlanconfig", {}, "wireless-defaults"),
    ("/data/wlanconfig", ACCESS_POINT, "wireless-access-point"),
    ("/data/wlanconfig", CLIENT, "wireless-client"),
])
def test_the_tree_is_that_of_the_systems_files(start_quiet, path, settings, tree):
    daemon = start_quiet(settings=settings)
    reply = daemon.get(path)
    assert reply.status_line == b"HTTP/1.1 200 OK"
    assert reply.content_type == "application/json; charset=utf-8"
    assert reply.body == expected(tree)


def test_the_files_are_read_afresh_for_each_reply(start_quiet, tmp_path):
    file = tmp_path / "keyfile"
    daemon = start_quiet(settings={"NetworkManager/wlan0": str(file)})
    assert daemon.get("/data/wlanconfig").body == expected("wireless-defaults")
    file.write_bytes((DATA / "wireless-auto.nmcli-1.42.nmconnection").read_bytes())
    assert daemon.get("/data/wlanconfig").body == expected("wireless-client")
    file.unlink()
    assert daemon.get("/data/wlanconfig").body == expected("wireless-defaults")


def test_files_that_may_not_be_read_count_as_missing(start_quiet, tmp_path):
    files = {key: tmp_path / key.replace("/", "-") for key in [*ACCESS_POINT, *WIRED]}
    for key, file in files.items():
        file.write_bytes((ACCESS_POINT | WIRED)[key].encode())
        file.chmod(0)
    settings = {key: str(file) for key, file in files.items()}
    daemon = start_quiet(settings=settings, obeys_permissions=True)
    assert daemon.get("/data/ethconfig").body == expected("wired-defaults")
    assert daemon.get("/data/wlanconfig").body == expected("wireless-defaults")


# The state that NetworkManager tells


@pytest.mark.parametrize("path", INFO)
def test_the_information_is_what_nmcli_prints(start_quiet, tmp_path, path):
    write_script(tmp_path / "nmcli", 'echo "$#: $*"; echo; echo "  a  "; echo no >&2; exit 3')
    reply = start_quiet(path_with(tmp_path)).get(path)
    connection = INFO[path]
    lines = [f"3: connection show {connection}", "  a  "]
    told = {"connection": connection, "message": [{"text": line} for line in lines]}
    assert reply.status == 200
    assert reply.body == (json.dumps(told, indent=4) + "\n").encode()


@pytest.mark.parametrize("path", INFO)
def test_without_nmcli_there_is_no_information(start_quiet, tmp_path, path):
    daemon = start_quiet({"PATH": str(tmp_path)})
    assert json.loads(daemon.get(path).body) == {"connection": INFO[path], "message": []}


def test_a_slow_nmcli_is_ended_and_its_errors_are_shown(start_quiet, tmp_path):
    write_script(tmp_path / "nmcli", f"echo out; echo slow >&2; echo $$ > {tmp_path}/pid\n"
                                     "exec sleep 1000")
    daemon = start_quiet(path_with(tmp_path))
    begin = time.monotonic()
    told = json.loads(daemon.get("/data/ethinfo").body)
    assert 0.5 <= time.monotonic() - begin < deadline(3)
    assert told == {"connection": "eth0", "message": [{"text": "slow"}]}
    assert not is_alive(wait_for_pid(tmp_path / "pid"))


def test_others_are_answered_while_nmcli_is_slow(start_quiet, tmp_path):
    write_script(tmp_path / "nmcli", "exec sleep 1000")
    daemon = start_quiet(path_with(tmp_path))
    with ThreadPoolExecutor(10) as clients:
        slow = [clients.submit(daemon.get, "/data/ethinfo") for _ in range(10)]
        while not all(task.done() for task in slow):
            begin = time.monotonic()
            assert daemon.get("/data/bumper").status == 200
            assert time.monotonic() - begin < deadline(0.3)
        assert all(task.result().status == 200 for task in slow)
    assert daemon.is_running()


# Roles


@pytest.mark.parametrize("path", ["/data/ethconfig", "/data/ethconfigresult",
                                  "/data/wlanconfigresult", "/data/wlanhwfound", *INFO])
def test_anyone_reads_what_holds_no_passphrase(start_quiet, tmp_path, path):
    write_script(tmp_path / "nmcli", "exit 0")
    daemon = start_quiet(path_with(tmp_path), settings=PASSWORDS)
    assert json.loads(daemon.get(path).body)


def test_the_passphrase_is_shown_to_operators_and_admins_alone(start_quiet):
    daemon = start_quiet(settings=PASSWORDS | ACCESS_POINT)
    daemon.expect_log("invalid -- /data/wlanconfig")
    for sid in ("", "unknown"):
        reply = daemon.get(f"/data/wlanconfig?sid={sid}")
        assert (reply.status, reply.body) == (200, b"")
    for role in ("operator", "admin"):
        log_in(daemon, role, role)
        assert daemon.get(f"/data/wlanconfig?sid={role}").body == expected("wireless-access-point")


@pytest.mark.parametrize("network", ["eth", "wlan"])
@pytest.mark.parametrize("sid", ["", "driver"])
def test_guests_and_operators_change_no_network(start_quiet, tmp_path, network, sid):
    script = write_script(tmp_path / "script", f"touch {tmp_path}/was-run")
    path = f"/data/{network}config"
    daemon = start_quiet(settings=PASSWORDS | {f"Scripts/configure{network}": str(script)})
    log_in(daemon, "driver", "operator")
    daemon.expect_log(f"Error: DataHandler::setData with path {path}")
    reply = daemon.put(f"{path}?sid={sid}", b"[]")
    assert (reply.status, reply.body) == (400, b"")
    daemon.stop()
    assert not (tmp_path / "was-run").exists()
    assert daemon.messages()[-1] == f"Error: DataHandler::setData with path {path}"


# Small things


def test_before_the_first_write_nothing_was_printed(start_quiet):
    daemon = start_quiet()
    assert daemon.get("/data/ethconfigresult").body == NOTHING_PRINTED
    assert daemon.get("/data/wlanconfigresult").body == NOTHING_PRINTED


@pytest.mark.parametrize("path", ["/data/ethconfig/", "/data/ETHCONFIG", "/data/wlanconfigs",
                                  "/data/wlanhwfound/", "/data/ethinfo2"])
def test_only_the_paths_as_they_are_written_are_known(start_quiet, path):
    daemon = start_quiet()
    daemon.expect_log(f"invalid -- {path}", f"Error: DataHandler::setData with path {path}")
    assert daemon.get(path).body == b""
    assert daemon.put(path, b"[]").status == 400


def test_the_hardware_is_found_while_its_file_exists(start_quiet, tmp_path):
    file = tmp_path / "wlan0"
    daemon = start_quiet(settings={"Scripts/wlan0available": str(file)})
    missing, found = (b'{\n    "found": %s\n}\n' % word for word in (b"false", b"true"))
    assert daemon.get("/data/wlanhwfound").body == missing
    file.mkdir()
    assert daemon.get("/data/wlanhwfound").body == found
    file.rmdir()
    assert daemon.get("/data/wlanhwfound").body == missing


def test_without_a_setting_no_hardware_is_found(start_quiet):
    for settings in ({}, {"Scripts/wlan0available": ""}):
        daemon = start_quiet(settings=settings)
        assert daemon.get("/data/wlanhwfound").body == b'{\n    "found": false\n}\n'
