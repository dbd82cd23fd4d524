"""Downloads of user programs: which name leads to which file, and what cannot be read."""

from __future__ import annotations

import os
import random

import pytest

from support.programs import DOWNLOAD, assert_missing, assert_program, download, settings
from support.sessions import PASSWORDS


@pytest.fixture
def daemon(start_daemon, programs):
    return start_daemon(settings=settings(programs), resources=programs)


@pytest.mark.parametrize("encoded, name", [
    ("a.lv", "a.lv"), ("a", "a"), ("a.b.c", "a.b.c"), (".hidden", ".hidden"), ("a.", "a."),
    ("a%20b.lv", "a b.lv"), ("%20", " "), ("%20%20a%20", "  a "),
    ("%C3%A4%c3%B6.lv", "\u00e4\u00f6.lv"), ("%E2%82%AC", "\u20ac"), ("a%25b", "a%b"),
    ("a%2525b", "a%25b"), ("%61%2E%6cv", "a.lv"), ("a%3Fb", "a?b"), ("a%23b", "a#b"),
    ("a+b", "a+b"), ("a%2Bb", "a+b"), ("a&b=c", "a&b=c"), ("folder/a", "folder/a"),
    ("folder%2Fa", "folder/a"), ("./a", "a"), ("a.png", "a.png"), ("a.html", "a.html"),
    ("index.html", "index.html"),
    ("a?sid=x", "a"), ("a?b.lv", "a"),
    # The prefix goes wherever it stands.
    ("a/download/program/b", "ab"), ("/download/program/a", "a"),
    ("folder/download/program//download/program/a", "foldera"),
])
def test_a_percent_encoded_name_finds_its_program(daemon, programs, encoded, name):
    (programs / name).parent.mkdir(exist_ok=True)
    (programs / name).write_bytes(b"content of " + name.encode())
    assert_program(daemon.get(DOWNLOAD + encoded), b"content of " + name.encode())
    assert daemon.messages() == []


@pytest.mark.parametrize("name", [
    pytest.param(b"\xff\xfe.lv", id="no UTF-8"),
    pytest.param(b"a\nb\tc", id="control characters"),
    pytest.param(b"n" * 255, id="the longest name"),
])
def test_a_name_may_hold_any_bytes(daemon, programs, name):
    (programs / os.fsdecode(name)).write_bytes(b"found")
    encoded = "".join(f"%{byte:02x}" for byte in name)
    assert_program(daemon.get(DOWNLOAD + encoded), b"found")


@pytest.mark.parametrize("encoded", ["../outside", "%2e%2e/outside", "..%2Foutside",
                                     "%2E%2E%2foutside", "folder/../../outside"])
def test_a_name_may_lead_out_of_the_folder(daemon, programs, encoded):
    (programs / "folder").mkdir()
    (programs.parent / "outside").write_bytes(b"outside")
    assert_program(daemon.get(DOWNLOAD + encoded), b"outside")


def make_nothing(path):
    del path


def make_folder(path):
    path.mkdir()


def make_fifo(path):
    os.mkfifo(path)


def make_dangling_link(path):
    path.symlink_to("nowhere")


@pytest.mark.parametrize("make", [make_nothing, make_folder, make_fifo, make_dangling_link])
def test_what_is_no_readable_program_is_an_internal_error(daemon, programs, make):
    make(programs / "a.lv")
    for _ in range(3):
        assert_missing(daemon.get(DOWNLOAD + "a.lv"))
    assert daemon.messages() == []


@pytest.mark.parametrize("encoded", ["", "?a", "A.LV", "a.lv/", "a.l", "a.lv%20", "a.lv%2F",
                                     pytest.param("x" * 300, id="a long name")])
def test_a_name_that_does_not_fit_is_an_internal_error(daemon, programs, encoded):
    (programs / "a.lv").write_bytes(b"there")
    assert_missing(daemon.get(DOWNLOAD + encoded))


@pytest.mark.parametrize("encoded", ["a%", "a%2", "a%zz", "%%41", "%u0041"])
def test_broken_percent_signs_are_a_bad_request(daemon, programs, encoded):
    (programs / "a").write_bytes(b"there")
    (programs / encoded).write_bytes(b"never")
    for _ in range(3):
        reply = daemon.get(DOWNLOAD + encoded)
        assert (reply.status, reply.body) == (400, b"")
    assert_program(daemon.get(DOWNLOAD + "a"), b"there")


def test_a_program_without_read_permission_is_an_internal_error(start_daemon, programs):
    (programs / "a.lv").write_bytes(b"secret")
    (programs / "a.lv").chmod(0)
    daemon = start_daemon(settings=settings(programs), obeys_permissions=True)
    assert_missing(daemon.get(DOWNLOAD + "a.lv"))


@pytest.mark.parametrize("path", ["/download/program", "/download/programs/a",
                                  "/Download/program/a", "/download/program%2Fa",
                                  "/x/download/program/a", "/downloads"])
def test_any_other_path_is_a_file_of_the_interface(daemon, programs, path):
    file = programs / path[1:]
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_bytes(b"a page")
    reply = daemon.get(path)
    assert (reply.status, reply.content_type, reply.body) == (
        200, "text/html; charset=utf-8", b"a page")


def test_a_guest_may_download(start_daemon, programs):
    (programs / "a.lv").write_bytes(b"open")
    daemon = start_daemon(settings=settings(programs) | PASSWORDS)
    assert_program(daemon.get(DOWNLOAD + "a.lv"), b"open")


@pytest.mark.parametrize("given", [{}, {"Lumview/programpath": ""}], ids=["unset", "empty"])
def test_without_a_folder_names_begin_at_the_root(start_daemon, programs, given):
    (programs / "a.lv").write_bytes(b"from the root")
    daemon = start_daemon(settings=given)
    assert_program(download(daemon, str(programs / "a.lv")[1:]), b"from the root")
    assert_missing(download(daemon, "a.lv"))


@pytest.mark.parametrize("size", [0, 1, 4095, 4096, 4097, 10_000_019])
def test_a_program_of_any_size_arrives_whole(daemon, programs, size):
    content = random.Random(size).randbytes(size)
    (programs / "a.lv").write_bytes(content)
    assert_program(download(daemon, "a.lv"), content)


def test_downloads_go_on_over_one_connection(daemon, programs):
    (programs / "a.lv").write_bytes(b"program")
    with daemon.connect() as connection:
        for _ in range(20):
            assert_program(connection.request("GET", DOWNLOAD + "a.lv"), b"program")
            assert_missing(connection.request("GET", DOWNLOAD + "b.lv"))
