"""Roles and logins: what a session may do, and what a login answers."""

from __future__ import annotations

import json
import threading

import pytest

from support.sessions import PASSWORDS


def login(daemon, sid, body, method="PUT"):
    """The message of a login's reply, which must be the one that there always is."""
    target = "/data/login" if sid is None else f"/data/login?sid={sid}"
    reply = daemon.request(method, target, body if isinstance(body, bytes) else credentials(body))
    assert reply.status_line == b"HTTP/1.1 200 OK"
    assert reply.content_type == "application/json; charset=utf-8"
    answer = json.loads(reply.body)
    assert sorted(answer) == ["message", "success"]
    assert answer["success"] == answer["message"].startswith("Logged in as ")
    return answer["message"]


def credentials(body):
    return json.dumps({"role": body[0], "password": body[1]}).encode()


def role(daemon, sid=None):
    reply = daemon.get("/data/userrole" if sid is None else f"/data/userrole?sid={sid}")
    names = [name for name in ("guest", "operator", "admin")
             if reply.body == b'{\n    "role": "%s"\n}\n' % name.encode()]
    assert names, reply
    return names[0]


@pytest.fixture
def daemon(start_daemon):
    """A daemon with both passwords."""
    return start_daemon(settings=PASSWORDS)


# The default role


@pytest.mark.parametrize("settings, default", [
    pytest.param({}, "admin", id="no password"),
    pytest.param({"Login/operator": "", "Login/administrator": ""}, "admin", id="empty passwords"),
    pytest.param({"Login/operator": "driver"}, "admin", id="an operator's password alone"),
    pytest.param({"Login/administrator": "chief"}, "operator", id="an admin's password alone"),
    pytest.param({"Login/administrator": "chief", "Login/operator": ""}, "operator",
                 id="an empty operator's password"),
    pytest.param(PASSWORDS, "guest", id="both passwords"),
    pytest.param({"Login/Operator": "driver", "login/administrator": "chief"}, "admin",
                 id="other keys"),
    pytest.param({"Login/administrator": " "}, "admin", id="a blank that is trimmed away"),
])
def test_the_default_role_is_the_highest_that_needs_no_password(start_daemon, settings, default):
    daemon = start_daemon(settings=settings)
    assert [role(daemon), role(daemon, ""), role(daemon, "unknown")] == [default] * 3


@pytest.mark.parametrize("body", [("admin", ""), ("operator", "x"), ("guest", ""), ("", "")])
def test_without_passwords_every_login_names_admin(start_daemon, body):
    daemon = start_daemon()
    assert login(daemon, "a", body) == "Logged in as admin"
    assert role(daemon, "a") == "admin"


def test_without_an_operators_password_there_is_only_one_login(start_daemon):
    daemon = start_daemon(settings={"Login/administrator": "chief"})
    assert login(daemon, "a", ("admin", "chief")) == "Logged in as admin"
    assert role(daemon, "a") == "admin"
    assert login(daemon, "a", ("operator", "")) == "Logged in as operator"
    assert role(daemon, "a") == "operator"


# Logging in


@pytest.mark.parametrize("name, password", [("operator", "driver"), ("admin", "chief")])
@pytest.mark.parametrize("method", ["PUT", "POST"])
def test_the_right_password_gives_its_role(daemon, name, password, method):
    assert login(daemon, "a", (name, password), method) == f"Logged in as {name}"
    assert role(daemon, "a") == name
    assert role(daemon, "b") == role(daemon) == "guest"


@pytest.mark.parametrize("body", [
    pytest.param(("admin", "driver"), id="another role's password"),
    pytest.param(("admin", "Chief"), id="another case"),
    pytest.param(("admin", "chief "), id="a blank behind it"),
    pytest.param(("admin", ""), id="an empty password"),
    pytest.param(("operator", "chief"), id="the higher role's password"),
    pytest.param(b'{"role": "admin"}', id="no password"),
    pytest.param(b'{"role": "admin", "password": null}', id="a null"),
    pytest.param(b'{"role": "admin", "password": ["chief"]}', id="an array"),
    pytest.param(b'{"role": "admin", "Password": "chief"}', id="another field"),
])
def test_a_wrong_password_gives_the_default_role_and_success(daemon, body):
    assert login(daemon, "a", body) == "Logged in as guest"
    assert role(daemon, "a") == "guest"


def test_a_wrong_password_does_not_log_out(daemon):
    login(daemon, "a", ("operator", "driver"))
    assert login(daemon, "a", ("admin", "wrong")) == "Logged in as guest"
    assert role(daemon, "a") == "operator"
    assert login(daemon, "a", ("operator", "wrong")) == "Logged in as guest"
    assert role(daemon, "a") == "operator"


def test_a_session_changes_its_role_with_each_right_password(daemon):
    for name, password in [("operator", "driver"), ("admin", "chief"), ("operator", "driver")]:
        assert login(daemon, "a", (name, password)) == f"Logged in as {name}"
        assert role(daemon, "a") == name


@pytest.mark.parametrize("body", [
    pytest.param(("guest", ""), id="guest"),
    pytest.param(("Admin", "chief"), id="a capital letter"),
    pytest.param(("OPERATOR", "driver"), id="capital letters"),
    pytest.param((" admin", "chief"), id="a blank"),
    pytest.param(("root", "chief"), id="an unknown role"),
    pytest.param(b"{}", id="an empty object"),
    pytest.param(b"[]", id="an array"),
    pytest.param(b'["admin", "chief"]', id="an array of the right words"),
    pytest.param(b'{"role": 2, "password": "chief"}', id="a number"),
])
def test_whatever_is_no_higher_role_logs_out(daemon, body):
    login(daemon, "a", ("admin", "chief"))
    assert login(daemon, "a", body) == "Logged in as guest"
    assert role(daemon, "a") == "guest"


@pytest.mark.parametrize("body, reason", [
    pytest.param(b"no json", "illegal value", id="a word"),
    pytest.param(b"", "illegal value", id="nothing"),
    pytest.param(b'"admin"', "illegal value", id="a string"),
    pytest.param(b'{"role": "admin"', "unterminated string", id="half an object"),
    pytest.param(b'{} x', "garbage at the end of the document", id="more than an object"),
])
def test_a_body_that_is_no_json_has_no_success_and_changes_nothing(daemon, body, reason):
    message = f"Error: AccessManager::setData - Invalid JSON: {reason}"
    daemon.expect_log(message)
    login(daemon, "a", ("operator", "driver"))
    assert login(daemon, "a", body) == message
    assert role(daemon, "a") == "operator"
    daemon.stop()
    assert daemon.messages() == ["Logged in as operator", message]


def test_the_reply_is_rendered_like_all_json(daemon):
    assert daemon.put("/data/login", b"{}").body == \
        b'{\n    "message": "Logged in as guest",\n    "success": true\n}\n'
    daemon.expect_log("Error: AccessManager::setData - Invalid JSON: illegal value")
    assert daemon.put("/data/login", b"").body == \
        b'{\n    "message": "Error: AccessManager::setData - Invalid JSON: illegal value",\n' \
        b'    "success": false\n}\n'


def test_each_login_is_logged(daemon):
    login(daemon, "a", ("operator", "driver"))
    login(daemon, "a", ("admin", "wrong"))
    login(daemon, "a", ("admin", "chief"))
    daemon.stop()
    assert daemon.messages() == ["Logged in as operator", "Logged in as guest",
                                 "Logged in as admin"]


def test_a_password_may_hold_any_character(start_daemon):
    password = 'p=\u00e4 "x" %1 #;\U0001f916\\'
    daemon = start_daemon(settings=PASSWORDS | {"Login/administrator": password})
    assert login(daemon, "a", ("admin", password)) == "Logged in as admin"


# Sessions


def test_sessions_hold_different_roles_at_the_same_time(daemon):
    login(daemon, "a", ("operator", "driver"))
    login(daemon, "b", ("admin", "chief"))
    assert [role(daemon, "a"), role(daemon, "b"), role(daemon, "c")] == ["operator", "admin",
                                                                         "guest"]
    login(daemon, "b", ("guest", ""))
    assert [role(daemon, "a"), role(daemon, "b")] == ["operator", "guest"]


def test_clients_without_a_session_share_one(daemon):
    login(daemon, None, ("admin", "chief"))
    assert [role(daemon), role(daemon, ""), role(daemon, "a")] == ["admin", "admin", "guest"]
    login(daemon, "", ("guest", ""))
    assert role(daemon) == "guest"


@pytest.mark.parametrize("sid, other", [
    pytest.param("a%20b", "a+b", id="a blank is not decoded"),
    pytest.param("%61", "a", id="a letter is not decoded"),
    pytest.param("A", "a", id="case counts"),
    pytest.param("%00", "", id="a NUL is not decoded"),
    pytest.param("x" * 10_000, "x" * 9_999, id="10,000 characters"),
])
def test_a_session_is_known_by_its_exact_text(daemon, sid, other):
    login(daemon, sid, ("admin", "chief"))
    assert [role(daemon, sid), role(daemon, other)] == ["admin", "guest"]


def test_the_item_is_spelled_sid(daemon):
    login(daemon, "a", ("admin", "chief"))
    assert daemon.get("/data/userrole?SID=a").body == b'{\n    "role": "guest"\n}\n'
    assert daemon.get("/data/userrole?x=1&sid=a&y=2").body == b'{\n    "role": "admin"\n}\n'


def test_sessions_do_not_outlive_the_daemon(start_daemon):
    first = start_daemon(settings=PASSWORDS)
    login(first, "a", ("admin", "chief"))
    first.stop()
    assert role(start_daemon(settings=PASSWORDS), "a") == "guest"


def test_many_clients_log_in_and_out_at_once(daemon):
    outcomes = []

    def live(number):
        with daemon.connect(60) as connection:
            for _ in range(25):
                for name, password in [("operator", "driver"), ("admin", "chief"), ("guest", "")]:
                    connection.request("PUT", f"/data/login?sid=s{number}",
                                       credentials((name, password)))
                    reply = connection.request("GET", f"/data/userrole?sid=s{number}")
                    outcomes.append(json.loads(reply.body)["role"] == name)

    clients = [threading.Thread(target=live, args=(number,)) for number in range(16)]
    for client in clients:
        client.start()
    for client in clients:
        client.join()
    assert outcomes == [True] * (16 * 25 * 3)
