"""Replies to the byte, for each method and each outcome."""

from __future__ import annotations

import http.client
import json

import pytest

EMPTY_JSON = {"Content-Length": "0", "Content-Type": "application/json; charset=utf-8"}
BOTH_WRITES = pytest.mark.parametrize("method", ["PUT", "POST"])


def assert_reply(reply, status_line, headers, body):
    assert reply.status_line == status_line
    assert sorted(reply.headers) == sorted(headers.items())
    assert reply.body == body


def test_a_read_is_answered_as_json(start_daemon):
    reply = start_daemon().get("/data/bumper")
    body = b'{\n    "value": false\n}\n'
    assert_reply(reply, b"HTTP/1.1 200 OK", EMPTY_JSON | {"Content-Length": str(len(body))}, body)


@pytest.mark.parametrize("path", [
    "/data", "/data/", "/data/nothing", "/data/Bumper", "/data/bumper/", "/data//bumper",
    "/data/bumpe", "/data/bumper2", "/database.png", "/data.html", "/data/%62umper",
    "/data/servicestatus",
])
def test_an_unknown_read_is_answered_with_nothing(start_daemon, path):
    daemon = start_daemon()
    daemon.expect_log(f"invalid -- {path}")
    assert_reply(daemon.get(path), b"HTTP/1.1 200 OK", EMPTY_JSON, b"")
    daemon.stop()
    assert daemon.messages() == [f"invalid -- {path}"]


@pytest.mark.parametrize("path", ["/data/bumper?", "/data/bumper?a", "/data/bumper?a=b&c=d",
                                  "/data/bumper?sid=%20&&=&=x", "http://elsewhere/data/bumper"])
def test_a_query_does_not_change_the_path(start_daemon, path):
    assert start_daemon().get(path).body == b'{\n    "value": false\n}\n'


@BOTH_WRITES
def test_an_accepted_write_without_a_result_is_answered_with_nothing(start_daemon, method):
    reply = start_daemon().request(method, "/data/relayarray", b"[0,1]")
    assert_reply(reply, b"HTTP/1.1 200 OK", EMPTY_JSON, b"")


@BOTH_WRITES
def test_an_accepted_write_is_answered_with_its_result(start_daemon, method):
    reply = start_daemon().request(method, "/data/login", b"{}")
    body = b'{\n    "message": "Logged in as admin",\n    "success": true\n}\n'
    assert_reply(reply, b"HTTP/1.1 200 OK", EMPTY_JSON | {"Content-Length": str(len(body))}, body)


@BOTH_WRITES
@pytest.mark.parametrize("path", ["/data/nothing", "/data", "/data/login/", "/data/Login", "/",
                                  "/index.html", "/login", "/data/bumper", "/data/%6Cogin"])
def test_a_write_to_an_unknown_path_is_refused_wherever_it_leads(start_daemon, method, path):
    daemon = start_daemon()
    daemon.expect_log(f"Error: DataHandler::setData with path {path}")
    assert_reply(daemon.request(method, path, b"[1]"), b"HTTP/1.1 400 Bad Request", EMPTY_JSON, b"")
    daemon.stop()
    assert daemon.messages() == [f"Error: DataHandler::setData with path {path}"]


@pytest.mark.parametrize("target, body", [
    ("/data/login?sid=%20x", None),
    ("/", None),
    ("/data/config", b"with a body"),
    ("/nowhere/%41?a=b&a=c", None),
])
def test_a_delete_gives_the_request_back(start_daemon, target, body):
    daemon = start_daemon()
    headers = ("X-Own: a b",)
    reply = daemon.request("DELETE", target, body, headers)
    assert reply.status_line == b"HTTP/1.1 200 OK"
    assert reply.content_type == "text/plain; charset=utf-8"
    lines = reply.body.decode().split("\r\n")
    assert lines[0] == f"DELETE {target} HTTP/1.1"
    assert {"Host: 127.0.0.1", "X-Own: a b"} <= set(lines[1:])
    assert [name for name, _ in reply.headers] == ["Content-Length", "Content-Type"]


def test_a_delete_deletes_nothing(start_daemon, tmp_path):
    (tmp_path / "kept.txt").write_text("kept")
    daemon = start_daemon(resources=tmp_path)
    daemon.request("DELETE", "/kept.txt")
    assert daemon.get("/kept.txt").body == b"kept"


@pytest.mark.parametrize("method", ["HEAD", "PATCH", "CONNECT", "PROPFIND", "UNHEARD"])
@pytest.mark.parametrize("target", ["/data/bumper", "/", "/nothing"])
def test_other_methods_are_not_allowed(start_daemon, method, target):
    reply = start_daemon().request(method, target)
    assert_reply(reply, b"HTTP/1.1 405 Method Not Allowed",
                 {"Allow": "DELETE, GET, POST, PUT", "Content-Length": "0"}, b"")


def test_options_tells_the_methods(start_daemon):
    reply = start_daemon().request("OPTIONS", "/data/bumper")
    assert_reply(reply, b"HTTP/1.1 200 OK",
                 {"Allow": "DELETE, GET, POST, PUT", "Content-Length": "0"}, b"")


def test_an_invalid_uri_is_a_bad_request(start_daemon):
    reply = start_daemon().get(b"/data/\xff")
    assert reply.status_line == b"HTTP/1.1 400 Bad Request"
    assert reply.body == b"provided uri is invalid: /data/\xff"


def test_one_connection_serves_many_requests(start_daemon):
    daemon = start_daemon()
    daemon.expect_log("Error: DataHandler::setData with path /x")
    with daemon.connect() as connection:
        for _ in range(50):
            assert connection.request("GET", "/data/bumper").status == 200
            assert connection.request("PUT", "/x", b"y").status == 400
            assert connection.request("DELETE", "/x").status == 200
            assert connection.request("GET", "/missing").status == 500
            assert connection.request("HEAD", "/").status == 405


def test_a_client_of_another_hand_understands_the_replies(start_daemon, tmp_path):
    (tmp_path / "page.html").write_bytes(b"p" * 10_000)
    daemon = start_daemon(resources=tmp_path)
    client = http.client.HTTPConnection("127.0.0.1", daemon.port)
    client.request("POST", "/data/login?sid=a", json.dumps({"role": "admin"}))
    reply = client.getresponse()
    assert (reply.status, json.loads(reply.read())["success"]) == (200, True)
    client.request("GET", "/page.html")
    assert client.getresponse().read() == b"p" * 10_000
    client.request("GET", "/data/odometry")
    assert json.loads(client.getresponse().read()) == [0] * 7
    client.close()
