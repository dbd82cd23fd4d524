"""The log: its form on the console and in the file, its levels, and what is written when."""

from __future__ import annotations

import datetime
import re

import pytest

from support.deadlines import wait_for

TIME = rb"\d\d:\d\d:\d\d\.\d\d\d \| "


def log_bytes(daemon):
    return (daemon.folder / "tessarad_log.txt").read_bytes()


def console(daemon):
    """Standard output from the line of the listener on."""
    return daemon.stdout().partition(b"Listening for requests at: ")[2].partition(b"\n")[2]


# The form


def test_each_line_break_stands_in_front_of_a_message(start_daemon):
    daemon = start_daemon(verbosity=1)
    assert re.fullmatch(TIME + rb"tessarad started", log_bytes(daemon))
    daemon.stop()
    assert re.fullmatch(TIME + rb"tessarad started\n" + TIME + rb"CTRL_SHUTDOWN_EVENT\n" + TIME
                        + rb"tessarad stopped\n", log_bytes(daemon))


def test_the_console_gets_times_and_messages_on_different_streams(start_daemon):
    daemon = start_daemon(verbosity=1)
    daemon.stop()
    assert b"\ntessarad startedListening for requests at: " in daemon.stdout()
    assert console(daemon) == b"CTRL_SHUTDOWN_EVENTtessarad stopped\n"
    assert re.fullmatch(rb'"[^\n]*"\nQMap\([^\n]*\)\n' + TIME + rb"\n" + TIME + rb"\n" + TIME,
                        daemon.stderr())


@pytest.mark.parametrize("verbosity", [1, 3])
def test_as_a_daemon_the_console_is_silent_and_the_file_is_not(start_daemon, verbosity):
    daemon = start_daemon(verbosity=verbosity, arguments=["-daemon"])
    daemon.expect_log("invalid -- /data/nowhere")
    daemon.get("/data/nowhere")
    daemon.stop()
    assert b"tessarad started" not in daemon.stdout()
    assert console(daemon) == b""
    assert re.fullmatch(rb'"[^\n]*"\nQMap\([^\n]*\)\n', daemon.stderr())
    messages = daemon.messages()
    assert messages[0] == "tessarad started" and messages[-1] == "tessarad stopped\n"
    assert "invalid -- /data/nowhere" in messages


def test_the_time_is_local(start_daemon):
    daemon = start_daemon(verbosity=1, environment={"TZ": "HERE-05:30"})
    now = datetime.datetime.now(datetime.timezone.utc) + datetime.timedelta(hours=5, minutes=30)
    logged = datetime.datetime.strptime(daemon.log()[:8], "%H:%M:%S")
    distance = (now.replace(tzinfo=None) - logged).total_seconds() % 86400
    assert min(distance, 86400 - distance) < 120


def test_text_is_written_as_latin_1_and_the_rest_replaced(start_daemon):
    daemon = start_daemon(verbosity=2)
    daemon.expect_log("Error: DataHandler::setData with path /data/x")
    daemon.put("/data/x", "Gr\u00f6\u00dfe \u20ac \u4e2d".encode())
    daemon.stop()
    message = b"DataHandler::setData with path /data/x and data Gr\xf6\xdfe ? ?"
    assert message + b"\n" in log_bytes(daemon)
    assert message in console(daemon)


def test_a_dot_is_one_on_the_console_and_two_in_the_file(start_connected, fake_robot):
    fake_robot.show("controllerInfo.infoChanged", {"data": "Lg=="})
    daemon = start_connected(fake_robot, verbosity=3)
    wait_for("the record", lambda: daemon.get("/data/controllerinfo").body == b".")
    daemon.stop()
    path = rb"DataHandler::data with path /data/controllerinfo"
    assert re.search(path + rb"\.\.\n" + TIME, log_bytes(daemon))
    assert re.search(TIME + rb"\.\n" + TIME, daemon.stderr())
    assert path + b"." not in daemon.stdout()


# The file


def test_each_start_deletes_the_old_file(new_daemon):
    daemon = new_daemon(verbosity=1)
    (daemon.folder / "tessarad_log.txt").write_text("from an earlier run")
    daemon.start()
    assert daemon.messages() == ["tessarad started"]
    assert "from an earlier run" not in daemon.log()


def test_without_a_message_there_is_no_file(new_daemon):
    daemon = new_daemon()
    (daemon.folder / "tessarad_log.txt").write_text("from an earlier run")
    daemon.start()
    daemon.get("/data/bumper")
    daemon.request("DELETE", "/data/bumper")
    assert daemon.stop() == 0
    assert not (daemon.folder / "tessarad_log.txt").exists()


def test_a_file_that_cannot_be_opened_costs_nothing_else(new_daemon):
    daemon = new_daemon(verbosity=1)
    (daemon.folder / "tessarad_log.txt").mkdir()
    daemon.start()
    assert daemon.get("/data/bumper").status == 200
    assert daemon.stop() == 0
    assert console(daemon) == b"CTRL_SHUTDOWN_EVENTtessarad stopped\n"


def test_the_file_is_complete_while_the_daemon_runs(start_daemon):
    daemon = start_daemon(verbosity=2)
    daemon.get("/data/bumper")
    daemon.wait_for_message("DataHandler::data with path /data/bumper")
    assert daemon.log().endswith(" | DataHandler::data with path /data/bumper")


# The levels


READ = [
    (3, "GET /data/bumper?a=b HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n"),
    (2, "/data/bumper"),
    (2, "a : b"),
    (2, "DataHandler::data with path /data/bumper"),
    (3, '{\n    "value": false\n}\n'),
]
WRITE = [
    (2, "a : b"),
    (2, 'DataHandler::setData with path /data/login and data {"role": "guest"}'),
    (0, "Logged in as admin"),
]
UNKNOWN_READ = [
    (3, "GET /data/ HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n"),
    (2, "/data/"),
    (2, "DataHandler::data with path /data/"),
    (0, "invalid -- /data/"),
    (3, ""),
]


def messages_of(daemon, count, request):
    """The messages that one request leaves."""
    before = len(daemon.messages())
    request()
    wait_for(f"{count} messages", lambda: len(daemon.messages()) >= before + count)
    daemon.stop()
    end = [text for text in daemon.messages() if text.startswith(("CTRL_", "tessarad stopped"))]
    return daemon.messages()[before:len(daemon.messages()) - len(end)]


@pytest.mark.parametrize("verbosity", [0, 1, 2, 3])
def test_a_read_is_logged_from_level_two_on(start_daemon, verbosity):
    daemon = start_daemon(verbosity=verbosity)
    expected = [text for level, text in READ if level <= verbosity]
    assert messages_of(daemon, len(expected), lambda: daemon.get("/data/bumper?a=b")) == expected


@pytest.mark.parametrize("verbosity", [0, 1, 2, 3])
def test_an_unknown_read_is_logged_at_every_level(start_daemon, verbosity):
    daemon = start_daemon(verbosity=verbosity)
    daemon.expect_log("invalid -- /data/")
    expected = [text for level, text in UNKNOWN_READ if level <= verbosity]
    assert messages_of(daemon, len(expected), lambda: daemon.get("/data/")) == expected


@pytest.mark.parametrize("verbosity", [0, 1, 2, 3])
def test_a_login_is_logged_at_every_level(start_daemon, verbosity):
    daemon = start_daemon(verbosity=verbosity)
    expected = [text for level, text in WRITE if level <= verbosity]
    body = b'{"role": "guest"}'
    found = messages_of(daemon, len(expected), lambda: daemon.put("/data/login?a=b", body))
    assert [text for text in found if text != "/data/login"] == expected


def test_a_delete_is_printed_at_level_zero(start_daemon):
    daemon = start_daemon()
    daemon.request("DELETE", "/data/bumper?a=%20b", headers=("X-Own: 1",))
    daemon.stop()
    assert console(daemon) == (b"DELETE /data/bumper?a=%20b HTTP/1.1\r\nHost: 127.0.0.1\r\n"
                               b"X-Own: 1\r\n\r\n\n")


# What the texts hold


def test_bodies_are_logged_in_full_passwords_too(start_daemon):
    daemon = start_daemon(verbosity=2)
    body = '{"role": "admin", "password": "secret", "padding": "%s"}' % ("x" * 100_000)
    daemon.put("/data/login", body.encode())
    daemon.stop()
    assert f"DataHandler::setData with path /data/login and data {body}" in daemon.messages()


def test_a_body_is_logged_up_to_its_first_nul(start_daemon):
    daemon = start_daemon(verbosity=2)
    daemon.expect_log("Error: DataHandler::setData with path /data/x")
    daemon.put("/data/x", b"before\0behind")
    daemon.stop()
    assert "DataHandler::setData with path /data/x and data before" in daemon.messages()


def test_percent_signs_in_paths_bodies_and_queries_stay_as_they_are(start_daemon):
    daemon = start_daemon(verbosity=2)
    daemon.expect_log("Error: DataHandler::setData with path /data/%1F%2Fx")
    daemon.put("/data/%1F%2Fx?k%31=%32%31", b"%1 %2 %3 %L1")
    daemon.stop()
    assert "DataHandler::setData with path /data/%1F%2Fx and data %1 %2 %3 %L1" in daemon.messages()
    assert "k%31 : %32%31" in daemon.messages()


def test_messages_of_one_client_come_in_the_order_of_its_requests(start_daemon):
    daemon = start_daemon()
    paths = [f"/data/{number:03}" for number in range(200)]
    daemon.expect_log(*(f"invalid -- {path}" for path in paths))
    with daemon.connect() as connection:
        for path in paths:
            connection.request("GET", path)
    daemon.stop()
    assert daemon.messages() == [f"invalid -- {path}" for path in paths]


def test_a_flood_of_messages_is_all_written_before_the_stop(start_daemon):
    daemon = start_daemon(arguments=["-daemon"])
    daemon.expect_log("invalid -- /data/x")
    with daemon.connect() as connection:
        for _ in range(2000):
            connection.request("GET", "/data/x")
    daemon.stop()
    assert daemon.messages() == ["invalid -- /data/x"] * 2000
