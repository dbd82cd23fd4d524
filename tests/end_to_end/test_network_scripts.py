"""Writes of the network settings: the script that gets them, and a daemon that does not mind it."""

from __future__ import annotations

import json
import os
import signal
import socket
import time

import pytest

from support.commands import is_alive, wait_for_pid, write_script
from support.configuration import NO_DEBUG
from support.daemon import ROOT
from support.deadlines import deadline, wait_for

DATA = ROOT / "tests/data/network"
PRINT_ARGUMENTS = 'for argument; do printf "<%s>" "$argument"; done'


class Network:
    """One of the two networks of a daemon, and its script."""

    def __init__(self, name, folder):
        self.name = name
        self.path = f"/data/{name}config"
        self.setting = f"Scripts/configure{name}"
        self.script = folder / f"configure-{name}"
        self.pid_file = folder / f"{name}.pid"
        self.daemon = None

    def set_script(self, commands):
        # A new file each time: one that still runs can't be written.
        self.script.unlink(missing_ok=True)
        write_script(self.script, commands)

    def put(self, body=b"[]"):
        begin = time.monotonic()
        reply = self.daemon.put(self.path, body)
        assert (reply.status, reply.body) == (200, b"")
        assert time.monotonic() - begin < deadline(1)

    def message(self):
        reply = self.daemon.get(f"{self.path}result")
        assert (reply.status, reply.content_type) == (200, "application/json; charset=utf-8")
        answer = json.loads(reply.body)
        assert list(answer) == ["message"]
        return answer["message"]

    def wait_for_message(self, text):
        wait_for(f"{text[:200]!r} as the message of {self.name}", lambda: self.message() == text)

    def run(self, commands, text, body=b"[]"):
        """Runs a script and waits for what it prints."""
        self.set_script(commands)
        self.put(body)
        self.wait_for_message(text)

    def start_long_run(self, commands=""):
        """Starts a script that does not end by itself and gives its process's number."""
        self.pid_file.unlink(missing_ok=True)
        self.set_script(f"{commands}\necho $$ > {self.pid_file}\nexec sleep 1000")
        self.put()
        return wait_for_pid(self.pid_file)


def start_networks(start_daemon, folder, logging_rules):
    """Both networks of one new daemon."""
    both = [Network(name, folder) for name in ("eth", "wlan")]
    daemon = start_daemon(settings={network.setting: str(network.script) for network in both},
                          environment={"QT_LOGGING_RULES": logging_rules})
    for network in both:
        network.daemon = daemon
    return both


@pytest.fixture
def networks(start_daemon, tmp_path):
    return start_networks(start_daemon, tmp_path, "*.debug=false")


@pytest.fixture(params=["eth", "wlan"])
def network(request, networks):
    """Every test that takes it runs with each network."""
    return next(network for network in networks if network.name == request.param)


def assert_answers_at_once(daemon):
    for _ in range(20):
        begin = time.monotonic()
        assert daemon.get("/data/bumper").status == 200
        assert time.monotonic() - begin < deadline(0.3)


# What the script gets


@pytest.mark.parametrize("name, body, arguments", [
    ("eth", (DATA / "wired-static.tree.json").read_bytes(),
     ["manual", "192.168.10.1", "24", "192.168.10.254", "192.168.10.254;8.8.8.8;",
      "yes", "10.0.0.5", "16", "0.0.0.0", "yes", "172.16.3.9", "12", "0.0.0.0"]),
    ("eth", b"{}", ["", "", "", "0.0.0.0", "", "", "", "", "0.0.0.0", "", "", "", "0.0.0.0"]),
    ("wlan", (DATA / "wireless-access-point.tree.json").read_bytes(),
     ["master", "Robot 7", "CCMP", "open sesame"]),
    ("wlan", (DATA / "wireless-client.tree.json").read_bytes(),
     ["client", "dhcp", "Halle 7", "open sesame"]),
    ("wlan", b"{}", ["client", "static", "", "", "0.0.0.0", "", "", ""]),
    ("wlan", json.dumps([{"name": "dns", "value": "1.1.1.1"},
                         {"name": "psk", "value": "$(x) '`\\\"\n\u00e4"}]).encode(),
     ["client", "static", "", "", "0.0.0.0", "1.1.1.1;", "", "$(x) '`\\\"\n\u00e4"]),
])
def test_the_script_gets_the_values_as_arguments(networks, name, body, arguments):
    network = next(network for network in networks if network.name == name)
    network.run(PRINT_ARGUMENTS, "".join(f"<{argument}>" for argument in arguments), body)


def test_a_tree_that_was_read_can_be_written_back(network):
    tree = network.daemon.get(network.path).body
    first = {"eth": "<manual><><24><0.0.0.0><><no><><24><0.0.0.0><no><><24><0.0.0.0>",
             "wlan": "<client><static><><><0.0.0.0><><><>"}
    network.run(PRINT_ARGUMENTS, first[network.name], tree)


@pytest.mark.parametrize("body", [b"", b"[", b"no json", b"[]]"])
def test_a_body_that_is_no_json_starts_nothing(network, tmp_path, body):
    network.run("echo old", "old\n")
    network.set_script(f"touch {tmp_path}/was-run")
    reply = network.daemon.put(network.path, body)
    assert (reply.status, reply.body) == (400, b"")
    network.run("echo new", "new\n")
    assert not (tmp_path / "was-run").exists()


# What is kept of it


@pytest.mark.parametrize("end", ["exit 1", "kill -9 $$", "kill -SEGV $$", "kill -TERM $$",
                                 "exec sh -c 'ulimit -c 0; kill -ABRT $$'"])
def test_the_output_is_kept_however_the_script_ends(network, end):
    network.run(f"echo out; echo error >&2; {end}", "out\n")


def test_the_old_output_stays_until_the_script_has_ended(network, tmp_path):
    network.run("echo old", "old\n")
    network.set_script(f"echo new; touch {tmp_path}/printed\n"
                       f"until [ -e {tmp_path}/go ]; do sleep 0.01; done; echo end")
    network.put()
    wait_for("the script's output", (tmp_path / "printed").exists)
    assert network.message() == "old\n"
    (tmp_path / "go").touch()
    network.wait_for_message("new\nend\n")


@pytest.mark.parametrize("kind", ["missing", "not executable", "a folder", "no program"])
def test_a_script_that_cannot_be_started_leaves_no_output(network, kind):
    network.run("echo old", "old\n")
    network.script.unlink()
    if kind == "a folder":
        network.script.mkdir()
    elif kind != "missing":
        network.script.write_bytes(b"#!/no/such/interpreter\n")
        network.script.chmod(0o755 if kind == "no program" else 0o644)
    network.put()
    network.wait_for_message("")


def test_without_a_setting_there_is_no_output(start_daemon, tmp_path):
    daemon = start_daemon(environment=NO_DEBUG)
    for name in ("eth", "wlan"):
        network = Network(name, tmp_path)
        network.daemon = daemon
        network.put()
        assert network.message() == ""


def test_output_that_is_no_utf_8_is_shown_as_far_as_possible(network):
    network.run(r"printf 'a\377\000\303\244'", "a\ufffd\0\u00e4")


# Scripts that misbehave


def test_the_daemon_answers_while_a_script_sleeps(network):
    pid = network.start_long_run("echo begun")
    assert_answers_at_once(network.daemon)
    assert network.message() == ""
    os.kill(pid, signal.SIGKILL)
    # A write before the daemon has heard of the end would be a second one during the run.
    network.wait_for_message("begun\n")
    network.run("echo after", "after\n")


@pytest.mark.parametrize("which", [0, 1], ids=["eth", "wlan"])
def test_a_second_write_ends_both_runs_and_both_texts_are_lost(start_daemon, tmp_path, which):
    """The library warns of the second process, which is deleted while it runs."""
    network = start_networks(start_daemon, tmp_path, "*.debug=false;*.warning=false")[which]
    network.run("echo old", "old\n")
    first = network.start_long_run("echo first")
    network.pid_file.unlink()
    network.set_script("exec sleep 1000")
    network.put()
    wait_for("the end of the first script", lambda: not is_alive(first))
    network.wait_for_message("")
    wait_for("the end of all scripts", lambda: not children(network.daemon.pid))
    network.run("echo after", "after\n")


def children(pid):
    """The processes that are children of this one and still do anything."""
    found = []
    for entry in os.scandir("/proc"):
        if entry.name.isdigit() and is_alive(int(entry.name)):
            try:
                with open(f"/proc/{entry.name}/stat", encoding="latin-1") as stat:
                    parent = int(stat.read().rpartition(")")[2].split()[1])
            except (FileNotFoundError, ProcessLookupError):
                continue
            if parent == pid:
                found.append(int(entry.name))
    return found


def test_both_networks_scripts_run_side_by_side(networks):
    eth, wlan = networks
    pid = eth.start_long_run()
    wlan.run("echo wireless", "wireless\n")
    assert is_alive(pid)
    assert eth.message() == ""


def test_a_flood_of_output_is_kept_and_the_daemon_goes_on(networks, tmp_path):
    network = networks[0]
    size = 50_000_000
    network.set_script(f"head -c {size} /dev/zero | tr '\\0' x; touch {tmp_path}/done")
    network.put()
    while not (tmp_path / "done").exists():
        assert_answers_at_once(network.daemon)

    def result():
        body = network.daemon.request("GET", f"{network.path}result", seconds=60).body
        return body if len(body) > 100 else b""

    body = wait_for("the flood", result)
    assert body == b'{\n    "message": "%s"\n}\n' % (b"x" * size)
    network.run("echo after", "after\n")


def test_a_script_that_asks_for_input_gets_none(network):
    network.run("cat; read answer; echo \"<$answer>\"", "<>\n")


def test_what_a_script_leaves_running_is_not_waited_for(network):
    network.run(f"sleep 1000 & echo $! > {network.pid_file}; echo out", "out\n")
    pid = wait_for_pid(network.pid_file)
    assert is_alive(pid)
    os.kill(pid, signal.SIGKILL)


def test_thirty_scripts_that_fork_leave_no_zombies(network):
    for turn in range(30):
        network.run(f"(echo child)& wait; echo {turn}", f"child\n{turn}\n")
    for entry in os.scandir(f"/proc/{network.daemon.pid}/task"):
        with open(f"{entry.path}/children", encoding="ascii") as file:
            assert file.read().split() == []


# The daemon's end and its sockets


def test_a_script_dies_with_the_daemon(network):
    pid = network.start_long_run()
    network.daemon.stop()
    assert not is_alive(pid)


def test_a_script_that_outlives_the_daemon_keeps_no_port(network):
    with network.daemon.connect() as client:
        client.request("GET", "/data/bumper")
        network.run(f"setsid sleep 1000 & echo $! > {network.pid_file}\n"
                    "ls -l /proc/self/fd | grep -c socket:", "0\n")
        pid = wait_for_pid(network.pid_file)
        network.daemon.stop()
        try:
            assert is_alive(pid)
            assert client.read_to_end() == b""
            with socket.socket() as listener:
                listener.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
                listener.bind(("127.0.0.1", network.daemon.port))
                listener.listen()
        finally:
            os.kill(pid, signal.SIGKILL)


def test_a_killed_daemon_leaves_its_port_free_too(network):
    pid = network.start_long_run()
    network.daemon.expected_exit_code = -signal.SIGKILL
    network.daemon.stop(signal.SIGKILL)
    try:
        assert is_alive(pid)
        with socket.socket() as listener:
            listener.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
            listener.bind(("127.0.0.1", network.daemon.port))
            listener.listen()
    finally:
        os.kill(pid, signal.SIGKILL)
