"""Writes of the configuration tree: what becomes of the files, what is answered, and who may."""

from __future__ import annotations

import json
import os
import stat

import pytest

from support.configuration import CONFIG, NO_DEBUG, daemons, leaves
from support.sessions import PASSWORDS, log_in

MOTORS = b"""; The motors' own file.
#@restart command begin
#@name motors
#@cmd systemctl restart motors

first = 1
[Limits]
#@web
speed = 0.5
  indented=1

\t#@web selection low high
gain=low\x20\x20
[Other]
gain=low
#@web
path=/a/b"""


@pytest.fixture
def motors(configuration):
    """A configuration whose file "motors" has keys of all sorts."""
    configuration.write("motors", MOTORS)
    return configuration


def changed_leaves(configuration, values):
    """The tree as it was read, with new values for some keys."""
    tree = configuration.tree()
    for leaf in leaves(tree):
        leaf["value"] = values.get(f"{leaf['group']}/{leaf['name']}", leaf["value"])
    return tree


def test_the_tree_as_it_was_read_changes_nothing(start_configured):
    configuration = start_configured(verbosity=2)
    text = MOTORS.replace(b"low\x20\x20", b"low")
    configuration.write("motors", text)
    reply = configuration.put(configuration.tree())
    assert (reply.status, reply.body) == (200, b"")
    assert configuration.files() == {"motors.conf": text}
    assert configuration.temporary("motors").read_bytes() == text
    configuration.daemon.stop()
    assert not [line for line in configuration.daemon.messages() if "changed from" in line]


@pytest.mark.parametrize("method", ["PUT", "POST"])
def test_changed_values_go_into_the_file_and_the_daemon_is_named(motors, method):
    tree = changed_leaves(motors, {"Limits/speed": "= 0.7", "Other/path": "/c d"})
    next(leaf for leaf in leaves(tree) if leaf["name"] == "gain")["value"] = "high"
    reply = motors.daemon.request(method, CONFIG, json.dumps(tree).encode())
    assert (reply.status, reply.body) == (200, daemons("motors"))
    assert reply.content_type == "application/json; charset=utf-8"
    text = (MOTORS.replace(b"speed = 0.5", b"speed = 0.7").replace(b"gain=low\x20\x20", b"gain=high")
            .replace(b"/a/b", b"/c d\n"))
    assert motors.files() == {"motors.conf": text, "motors.conf.bak": MOTORS}
    assert motors.temporary("motors").read_bytes() == text
    again = {leaf["name"]: leaf["value"] for leaf in leaves(motors.tree())}
    assert again == {"speed": "= 0.7", "gain": "high", "path": "/c d"}


def test_a_value_that_is_the_same_but_for_trailing_blanks_is_a_change(motors):
    assert motors.put(motors.tree()).body == daemons("motors")
    assert motors.read("motors") == MOTORS.replace(b"low\x20\x20", b"low")


def test_the_last_line_feed_goes_unless_the_last_line_has_changed(configuration):
    configuration.write("a", b"x=1\ny=1\n")
    configuration.change("a", "/x", "2")
    assert configuration.read("a") == b"x=2\ny=1"
    configuration.change("a", "/y", "2")
    assert configuration.read("a") == b"x=2\ny=2\n"


def test_only_the_newest_old_text_is_kept(motors):
    motors.change("motors", "Limits/speed", "= 1")
    second = motors.read("motors")
    motors.change("motors", "Limits/speed", "= 2")
    assert motors.files()["motors.conf.bak"] == second
    assert len(motors.files()) == 2


def test_each_daemon_of_a_changed_file_is_named_in_the_order_of_the_files(configuration):
    for letter, name in zip("dcba", ("one", "two", "one", "")):
        owner = f"#@restart command begin\n#@name {name}\n\n" if name else ""
        configuration.write(letter, f"{owner}key=1\n".encode())
    configuration.write("e", b"#@restart command begin\n#@name same\n\nkey=1\n")
    tree = [configuration.leaf(letter, "/key", "2") for letter in "dcba"]
    tree.append(configuration.leaf("e", "/key", "1"))
    assert configuration.put(tree).body == daemons("one", "two", "one")


def test_a_leaf_is_all_that_a_write_needs(configuration, tmp_path):
    """Neither a mark for the browser nor the directory limits what is written."""
    outside = tmp_path / configuration.path("outside").name
    outside.write_bytes(b"[G]\nkey=1\n")
    leaf = configuration.leaf("a", "G/key", "2") | {"file": str(outside)}
    assert configuration.put([{"_children": [{"_children": [leaf]}]}]).status == 200
    assert outside.read_bytes() == b"[G]\nkey=2\n"


@pytest.mark.parametrize("change", [
    {"name": "other"}, {"name": "KEY"}, {"group": "g"}, {"group": ""}, {"name": None},
    {"file": None}, {"file": ""}, {"file": "missing.conf"}, {"file": "/"},
])
def test_what_the_files_do_not_hold_changes_nothing(configuration, change):
    configuration.write("a", b"[G]\nkey=1\n")
    reply = configuration.put([configuration.leaf("a", "G/key", "2") | change])
    assert (reply.status, reply.body) == (200, b"")
    assert configuration.files() == {"a.conf": b"[G]\nkey=1\n"}


@pytest.mark.parametrize("body", [b"[]", b"{}", b"[[]]", b"[1, null, true, \"x\"]",
                                  b'[{"_children": 5}]', b'{"value": "2"}'])
def test_json_without_leaves_is_accepted_and_changes_nothing(motors, body):
    reply = motors.daemon.put(CONFIG, body)
    assert (reply.status, reply.body) == (200, b"")
    assert motors.files() == {"motors.conf": MOTORS}


@pytest.mark.parametrize("body", [b"", b"[", b"no %1 json", b"[]]"])
def test_a_body_that_is_no_json_is_refused_with_a_word(motors, body):
    text = f"Error writeConfigData: {body.decode()}"
    motors.daemon.expect_log(text)
    reply = motors.daemon.put(CONFIG, body)
    assert (reply.status, reply.body) == (400, b"")
    assert motors.files() == {"motors.conf": MOTORS}
    motors.daemon.stop()
    assert motors.daemon.messages() == [text]


def test_a_change_is_told_step_by_step(start_configured):
    configuration = start_configured(verbosity=2)
    path = configuration.write("a", b"[G]\nkey=%1 \xc3\xa4\n")
    configuration.change("a", "G/key", "%2")
    configuration.change("a", "G/key", "3")
    configuration.daemon.stop()
    messages = configuration.daemon.messages()
    told = [line for line in messages if str(path) in line and "writeConfigData" not in line
            and "DataHandler" not in line]
    temporary, backup = configuration.temporary("a"), configuration.backup("a")
    swapped = [f"Renamed {path} -> {backup}", f"Copied {temporary} -> {path}",
               f"Keys match between old and new version of {path}"]
    assert told == [f"{path} : G/key changed from %1 \xe4 -> %2", *swapped,
                    f"{path} : G/key changed from %2 -> 3", f"Removed old backup {backup}",
                    *swapped]


def test_owner_and_mode_of_the_file_stay(configuration):
    path = configuration.write("a", b"key=1\n")
    path.chmod(0o640)
    if os.geteuid() == 0:
        os.chown(path, 12, 34)
    owner = (path.stat().st_uid, path.stat().st_gid)
    configuration.change("a", "/key", "2")
    after = path.stat()
    assert (after.st_uid, after.st_gid, stat.S_IMODE(after.st_mode)) == (*owner, 0o640)
    assert stat.S_IMODE(configuration.temporary("a").stat().st_mode) == 0o600


def test_what_is_written_holds_for_the_daemon_from_its_next_start_on(start_daemon):
    """Its own configuration file is one like any other."""
    daemon = start_daemon(settings=PASSWORDS)
    log_in(daemon, "chief", "admin")
    leaf = {"file": str(daemon.folder / "given.conf"), "group": "Login", "name": "operator",
            "value": "new"}
    assert daemon.put(f"{CONFIG}?sid=chief", json.dumps([leaf]).encode()).status == 200
    assert b"\noperator=new\n" in (daemon.folder / "given.conf").read_bytes()
    log_in(daemon, "driver", "operator")


# Roles


@pytest.mark.parametrize("path", [CONFIG, "/data/restartdaemons"])
@pytest.mark.parametrize("sid", ["", "driver"])
def test_guests_and_operators_write_nothing(start_configured, path, sid):
    configuration = start_configured(settings=PASSWORDS)
    configuration.write("a", b"key=1\n")
    log_in(configuration.daemon, "driver", "operator")
    configuration.daemon.expect_log(f"Error: DataHandler::setData with path {path}")
    body = json.dumps([configuration.leaf("a", "/key", "2")]).encode()
    reply = configuration.daemon.put(f"{path}?sid={sid}", body)
    assert (reply.status, reply.body) == (400, b"")
    assert configuration.files() == {"a.conf": b"key=1\n"}


def test_an_admin_writes(start_configured):
    configuration = start_configured(settings=PASSWORDS)
    configuration.write("a", b"key=1\n")
    log_in(configuration.daemon, "chief", "admin")
    assert configuration.put([configuration.leaf("a", "/key", "2")], "chief").status == 200
    assert configuration.read("a") == b"key=2\n"


# Restarts


@pytest.mark.parametrize("body", [b'{"daemons": ["motors", "camera"]}', b'{"daemons": []}',
                                  b'{"daemons": "motors"}', b"{}", b"[]", b"", b"no json"])
def test_no_daemon_is_restarted(start_daemon, tmp_path, body):
    script = tmp_path / "reload"
    script.write_text(f"#!/bin/sh\ntouch {tmp_path}/was-run\n")
    script.chmod(0o755)
    daemon = start_daemon(settings={"Scripts/reloadconfig": str(script)}, environment=NO_DEBUG)
    reply = daemon.put("/data/restartdaemons", body)
    assert (reply.status, reply.body) == (400, b"")
    daemon.stop()
    assert daemon.messages() == []
    assert not (tmp_path / "was-run").exists()


@pytest.mark.parametrize("body, names", [(b'{"daemons": ["motors", "b c"]}', ["motors", "b c"]),
                                         (b'{"daemons": []}', []), (b"no json", [])])
def test_a_restart_is_shown_on_the_debug_stream(start_daemon, tmp_path, body, names):
    shown = tmp_path / "stderr"
    with open(shown, "wb") as stderr:
        daemon = start_daemon(stderr=stderr.fileno())
    before = len(shown.read_bytes())
    daemon.put("/data/restartdaemons", body)
    quoted = body.decode().replace('"', '\\"')
    lines = [f'"{quoted}"', *(f'Restart "{name}"' for name in names)]
    assert shown.read_bytes()[before:].decode().splitlines() == lines
