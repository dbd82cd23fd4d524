"""The address that the daemon listens at, and what it does where it cannot."""

from __future__ import annotations

import signal
import socket
import time
from concurrent.futures import ThreadPoolExecutor

import pytest

from support.deadlines import deadline, wait_for


def start_without_listener(new_daemon, fake_robot, listener, complaint):
    """Starts a daemon whose last words on standard output are the complaint."""
    daemon = new_daemon(robot=fake_robot.address, listener=listener, resources="web")
    daemon.launch()
    daemon.wait_for_output(complaint)
    settings = f"Network/win_httpserver = {listener}\n".encode()
    assert daemon.stdout().partition(settings)[2] in (complaint, complaint + b"Connected")
    return daemon


@pytest.fixture
def taken_port():
    """A port on which somebody else listens."""
    with socket.create_server(("127.0.0.1", 0)) as listener:
        yield listener.getsockname()[1]


@pytest.mark.parametrize("listener, complaint", [
    pytest.param("not a uri", b"provided uri is invalid: not a uri\n", id="no URI"),
    pytest.param("127.0.0.1:8080", b"provided uri is invalid: 127.0.0.1:8080\n", id="no scheme"),
    pytest.param("http://a b:1", b"provided uri is invalid: http://a b:1\n", id="a blank"),
    pytest.param("", b"Unkown error\n", id="empty"),
    pytest.param("ftp://127.0.0.1:1", b"Unkown error\n", id="another scheme"),
    pytest.param("http://192.0.2.1:8080", b"Unkown error\n", id="another machine's address"),
])
def test_an_unusable_address_is_told_and_the_daemon_runs_on(new_daemon, fake_robot, listener,
                                                            complaint):
    daemon = start_without_listener(new_daemon, fake_robot, listener, complaint)
    daemon.wait_for_message("Connected")
    assert daemon.stop(signal.SIGTERM) == 0
    assert daemon.stdout().endswith(complaint + b"Connected")


def test_a_taken_port_is_told_and_the_daemon_runs_on(new_daemon, fake_robot, taken_port):
    listener = f"http://127.0.0.1:{taken_port}"
    daemon = start_without_listener(new_daemon, fake_robot, listener, b"Unkown error\n")
    daemon.wait_for_message("Connected")
    assert daemon.stop(signal.SIGTERM) == 0


def test_a_second_daemon_leaves_the_first_ones_port_alone(start_daemon, new_daemon, fake_robot):
    first = start_daemon()
    listener = f"http://127.0.0.1:{first.port}"
    second = start_without_listener(new_daemon, fake_robot, listener, b"Unkown error\n")
    assert second.stop() == 0
    assert first.get("/data/bumper").status == 200


@pytest.mark.parametrize("signal_number", [signal.SIGINT, signal.SIGHUP, signal.SIGQUIT])
def test_without_a_listener_each_stop_request_works(new_daemon, fake_robot, signal_number):
    daemon = start_without_listener(new_daemon, fake_robot, "", b"Unkown error\n")
    daemon.wait_for_message("Connected")
    assert daemon.stop(signal_number) == 0


def test_the_address_is_printed_as_a_uri(start_daemon):
    daemon = start_daemon()
    assert daemon.stdout().endswith(
        f"\nListening for requests at: http://127.0.0.1:{daemon.port}/\n".encode())


def test_the_last_setting_of_the_address_counts(start_daemon):
    daemon = start_daemon(file=b"[Network]\nwin_httpserver=not a uri\n"
                               b"win_httpserver=http://127.0.0.1:@PORT@\n")
    assert daemon.get("/data/bumper").status == 200


def test_a_name_of_this_machine_will_do(start_daemon):
    daemon = start_daemon(file=b"[Network]\nwin_httpserver=http://localhost:@PORT@\n")
    assert f"at: http://localhost:{daemon.port}/\n".encode() in daemon.stdout()
    assert daemon.get("/data/bumper").status == 200


def test_paths_count_from_the_addresss_own_path(start_daemon):
    daemon = start_daemon(file=b"[Network]\nwin_httpserver=http://127.0.0.1:@PORT@/robot\n")
    assert daemon.get("/robot/data/userrole").body == b'{\n    "role": "admin"\n}\n'


def test_only_the_given_interface_is_served(start_daemon):
    daemon = start_daemon()
    with pytest.raises(ConnectionRefusedError):
        socket.create_connection(("127.0.0.2", daemon.port), timeout=5)


def test_the_port_is_free_again_after_the_stop(start_daemon, new_daemon):
    first = start_daemon()
    # A connection that the daemon closes first leaves its end of it waiting in the system.
    with first.connect() as connection:
        connection.request("GET", "/data/bumper")
        assert first.stop() == 0
    second = new_daemon(listener=f"http://127.0.0.1:{first.port}")
    second.port = first.port
    second.launch()
    second.wait_for_output(b"Listening for requests at: ")
    assert wait_for("an answer", lambda: second.get("/data/bumper").status) == 200

def first_replies(daemon, clients):
    """What so many clients are answered that have asked since before the daemon listened."""
    end = time.monotonic() + deadline(10.0)

    def ask():
        while time.monotonic() < end:
            try:
                return daemon.get("/data/bumper").status
            except (ConnectionRefusedError, ConnectionResetError):
                pass
        raise AssertionError("never answered")

    with ThreadPoolExecutor(clients) as pool:
        daemon.launch()
        return [reply.result() for reply in [pool.submit(ask) for _ in range(clients)]]


def test_the_first_requests_after_the_port_has_opened_are_answered_as_any_other(new_daemon):
    daemon = new_daemon()
    for _ in range(20):
        daemon.choose_port()
        assert first_replies(daemon, clients=3) == [200] * 3
        assert daemon.stop() == 0
