"""Reads of the configuration tree: what it holds, and who may see it."""

from __future__ import annotations

import os

import pytest

from support.configuration import CONFIG, leaves
from support.sessions import PASSWORDS, log_in

EMPTY = b"[\n]\n"


def test_a_directory_without_files_gives_an_empty_tree(configuration):
    assert configuration.get().body == EMPTY
    configuration.write("a", b"key=1\n")
    (configuration.folder / "a.txt").write_bytes(b"#@web\nkey=1\n")
    (configuration.folder / "folder.conf").mkdir()
    assert configuration.get().body == EMPTY


def test_without_a_directory_the_tree_is_empty(start_daemon):
    assert start_daemon().get(CONFIG).body == EMPTY


def test_the_reply_is_the_tree_of_all_marked_keys(configuration):
    a = configuration.write("a", b"[B]\n#@web\nunder b = 1\nhidden=2\n"
                                 b"[A]\n;@web selection x y\nchoice=y\n")
    b = configuration.write("b", "[G]\n[]\n#@web\ngr\u00f6\u00dfe=\n".encode())
    reply = configuration.get()
    assert reply.status_line == b"HTTP/1.1 200 OK"
    assert reply.content_type == "application/json; charset=utf-8"
    assert reply.body.decode() == f"""[
    {{
        "_children": [
            {{
                "_children": [
                    {{
                        "file": "{a}",
                        "group": "A",
                        "id": 2,
                        "name": "choice",
                        "params": [
                            "x",
                            "y"
                        ],
                        "type": "select",
                        "value": "y"
                    }}
                ],
                "name": "A"
            }},
            {{
                "_children": [
                    {{
                        "file": "{a}",
                        "group": "B",
                        "id": 1,
                        "name": "under",
                        "type": "input",
                        "value": "b = 1"
                    }}
                ],
                "name": "B"
            }}
        ],
        "name": "{a}"
    }},
    {{
        "_children": [
            {{
                "file": "{b}",
                "group": "",
                "id": 3,
                "name": "gr\u00f6\u00dfe",
                "type": "input",
                "value": ""
            }}
        ],
        "name": "{b}"
    }}
]
"""


def test_the_files_are_read_afresh_for_each_reply(configuration):
    path = configuration.write("a", b"#@web\nkey=1\n")
    assert [leaf["value"] for leaf in leaves(configuration.tree())] == ["1"]
    path.write_bytes(b"#@web\nkey=2\n#@web\nkey=3\n")
    assert [leaf["value"] for leaf in leaves(configuration.tree())] == ["2", "3"]
    path.unlink()
    assert configuration.get().body == EMPTY


def test_a_choice_of_files_is_what_its_directory_holds_just_now(configuration, programs):
    for name in ("b.lv", "A.lv", "c.txt"):
        (programs / name).touch()
    configuration.write("a", f"#@web fileselection {programs} *.lv\nkey=gone.lv\n"
                             f"#@web fileselection {programs}/missing\nother=\n".encode())

    def params():
        return [leaf["params"] for leaf in leaves(configuration.tree())]

    assert params() == [["A.lv", "b.lv"], []]
    (programs / "d.lv").touch()
    assert params() == [["A.lv", "b.lv", "d.lv"], []]


def test_a_file_that_may_not_be_read_is_left_out(start_configured):
    configuration = start_configured(obeys_permissions=True)
    configuration.write("a", b"#@web\nkey=1\n").chmod(0)
    configuration.write("b", b"#@web\nkey=2\n")
    os.mkfifo(configuration.path("c"))
    assert [(leaf["id"], leaf["value"]) for leaf in leaves(configuration.tree())] == [(1, "2")]


def test_a_tree_of_thousands_of_keys_is_complete(configuration):
    text = "".join(f"[G{number % 7}]\n#@web\nkey{number}={number}\n" for number in range(5000))
    configuration.write("a", text.encode())
    found = list(leaves(configuration.tree()))
    assert len(found) == 5000
    assert all(leaf["group"] == f"G{int(leaf['value']) % 7}" for leaf in found)
    assert sorted(leaf["id"] for leaf in found) == list(range(1, 5001))


@pytest.mark.parametrize("sid", ["", "unknown", "driver"])
def test_only_an_admin_sees_the_tree(start_configured, sid):
    configuration = start_configured(settings=PASSWORDS)
    log_in(configuration.daemon, "driver", "operator")
    log_in(configuration.daemon, "chief", "admin")
    configuration.write("a", b"#@web\nkey=1\n")
    configuration.daemon.expect_log(f"invalid -- {CONFIG}")
    refused = configuration.get(sid)
    assert (refused.status, refused.body) == (200, b"")
    assert len(configuration.tree("chief")) == 1


def test_each_file_is_told_from_level_one_on(start_configured):
    for verbosity in (0, 1):
        configuration = start_configured(verbosity=verbosity)
        path = configuration.write("a", b"key=1\n")
        configuration.get()
        configuration.daemon.stop()
        told = f"createConfigData for {path}"
        assert configuration.daemon.messages().count(told) == verbosity
