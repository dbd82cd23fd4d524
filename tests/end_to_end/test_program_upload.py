"""Uploads of user programs: what is stored, what the reply and the log tell, and who may."""

from __future__ import annotations

import random
import stat
from concurrent.futures import ThreadPoolExecutor

import pytest

from support.deadlines import wait_for
from support.programs import (DOWNLOAD, UPLOAD, assert_missing, assert_program, body_of, download,
                              message_of, settings, upload)
from support.sessions import PASSWORDS, log_in


@pytest.fixture
def daemon(start_daemon, programs):
    return start_daemon(settings=settings(programs))


def files(folder):
    return {path.name: path.read_bytes() for path in folder.iterdir()}


@pytest.mark.parametrize("method", ["PUT", "POST"])
def test_the_reply_is_an_object_of_message_and_success(daemon, programs, method):
    reply = daemon.request(method, UPLOAD, body_of("a.lv", b"hello"))
    assert reply.status_line == b"HTTP/1.1 200 OK"
    assert reply.content_type == "application/json; charset=utf-8"
    assert reply.body == (
        '{\n    "message": "Wrote 5 bytes to file %s/a.lv",\n    "success": true\n}\n'
        % programs).encode()
    assert files(programs) == {"a.lv": b"hello"}


@pytest.mark.parametrize("size, told", [
    (0, "0 bytes"), (1, "1 bytes"), (1023, "1023 bytes"), (1024, "1kB"), (2047, "1kB"),
    (2048, "2kB"), (20_000_000, "19531kB"),
])
def test_a_program_of_any_size_goes_there_and_back(daemon, programs, size, told):
    content = random.Random(size).randbytes(size)
    assert upload(daemon, "a.lv", content) == f"Wrote {told} to file {programs}/a.lv"
    assert_program(download(daemon, "a.lv"), content)
    assert [path.name for path in programs.iterdir()] == ["a.lv"]


@pytest.mark.parametrize("data", [
    "aGVsbG8=", ",aGVsbG8=", "data:text/plain;base64,aGVsbG8=", "x,aGVsbG8=", "aGVsbG8",
    " aGVs\nbG8= \r\n", "aG-Vs_b!G8=", "data:,aGVs,bG8=", "\u00e4\u20ac,aGVsbG8=", "aGVs\0bG8=",
])
def test_what_is_no_base64_is_skipped_in_the_data(daemon, programs, data):
    daemon.put(UPLOAD, body_of("a.lv", b"12345", data=data))
    assert files(programs) == {"a.lv": b"hello"}


@pytest.mark.parametrize("name", [
    "a b.lv", " a ", "\u00e4\u00f6\u00fc\u00df.lv", "\u65e5\u672c.lv", "\U0001f916", "a.b.c",
    ".hidden", "a.", "a%20b", "%1%2", "a+b", 'a"b\\c', "#?&;", "x" * 200, "-rf", "a.lv.bak",
])
def test_a_name_of_any_kind_goes_there_and_back(daemon, programs, name):
    assert upload(daemon, name, b"content") == f"Wrote 7 bytes to file {programs}/{name}"
    assert files(programs) == {name: b"content"}
    assert_program(download(daemon, name), b"content")


def test_a_name_may_lead_out_of_the_folder(daemon, programs):
    upload(daemon, "../outside.lv", b"outside")
    assert (programs.parent / "outside.lv").read_bytes() == b"outside"
    assert_program(daemon.get(DOWNLOAD + "..%2Foutside.lv"), b"outside")
    assert files(programs) == {}


@pytest.mark.parametrize("given", [{}, {"Lumview/programpath": ""}], ids=["unset", "empty"])
def test_without_a_folder_names_begin_at_the_root(start_daemon, programs, given):
    daemon = start_daemon(settings=given)
    name = str(programs / "a.lv")[1:]
    assert upload(daemon, name, b"content") == f"Wrote 7 bytes to file {programs}/a.lv"
    assert files(programs) == {"a.lv": b"content"}


@pytest.mark.parametrize("size, told", [(4, 4), (6, 6), (0, 0), (-1, -1), ("5", 0), (None, 0),
                                        (5.5, 0), (1e10, 0), ([5], 0)])
def test_another_size_than_that_of_the_data_writes_nothing(daemon, programs, size, told):
    (programs / "a.lv").write_bytes(b"old")
    reply = daemon.put(UPLOAD, body_of("a.lv", b"hello", size=size))
    message = f"decoded file size 5 != expected file size {told}"
    assert message_of(reply, success=False) == message
    assert files(programs) == {"a.lv": b"old"}
    daemon.stop()
    assert daemon.messages() == [message]


@pytest.mark.parametrize("body, reason", [
    pytest.param(b"", "illegal value", id="nothing"),
    pytest.param(b"{", "unterminated object", id="half an object"),
    pytest.param(b'{"name": "%1', "unterminated string", id="half a text"),
    pytest.param(b"\xff", "illegal value", id="not UTF-8"),
])
def test_a_body_that_is_no_json_is_told(daemon, programs, body, reason):
    message = f"Error: /data/uploadProgram/ - Invalid JSON: {reason}"
    daemon.expect_log(message)
    assert message_of(daemon.put(UPLOAD, body), success=False) == message
    assert files(programs) == {}
    daemon.stop()
    assert daemon.messages() == [message]


@pytest.mark.parametrize("body", [b"[]", b"{}", b'{"name": 5, "size": null, "data": []}'])
def test_fields_that_are_missing_read_as_nothing(daemon, programs, body):
    message = f"Error writing file {programs}/ with size 0"
    daemon.expect_log(message)
    assert message_of(daemon.put(UPLOAD, body), success=False) == message
    assert files(programs) == {}


@pytest.mark.parametrize("name", [
    pytest.param("missing/a.lv", id="in a missing folder"),
    pytest.param("folder", id="of a folder"),
    pytest.param("a/b", id="below a file"),
    pytest.param("x" * 300, id="too long"),
    pytest.param("..", id="of the folder above"),
])
def test_a_name_that_cannot_be_written_is_told(daemon, programs, name):
    (programs / "folder").mkdir()
    (programs / "a").write_bytes(b"file")
    message = f"Error writing file {programs}/{name} with size 5"
    daemon.expect_log(message)
    assert message_of(daemon.put(UPLOAD, body_of(name, b"hello")), success=False) == message
    assert sorted(path.name for path in programs.iterdir()) == ["a", "folder"]
    daemon.stop()
    assert daemon.messages() == [message]


def test_success_is_logged_from_level_one_on(start_daemon, programs):
    for verbosity in (0, 1):
        daemon = start_daemon(settings=settings(programs), verbosity=verbosity)
        message = upload(daemon, "a.lv", b"hello")
        daemon.stop()
        assert daemon.messages().count(message) == verbosity


@pytest.mark.parametrize("query", ["", "?sid=unknown", "?SID=me"])
def test_a_guest_stores_nothing(start_daemon, programs, query):
    (programs / "a.lv").write_bytes(b"old")
    daemon = start_daemon(settings=settings(programs) | PASSWORDS)
    log_in(daemon, "me", "operator")
    daemon.expect_log(f"Error: DataHandler::setData with path {UPLOAD}")
    for body in (body_of("a.lv", b"new"), body_of("b.lv", b"new"), b"no json"):
        reply = daemon.put(UPLOAD + query, body)
        assert (reply.status, reply.body) == (400, b"")
    assert files(programs) == {"a.lv": b"old"}


@pytest.mark.parametrize("role", ["operator", "admin"])
def test_operator_and_admin_may_upload(start_daemon, programs, role):
    daemon = start_daemon(settings=settings(programs) | PASSWORDS)
    log_in(daemon, "me", role)
    message_of(daemon.put(UPLOAD + "?sid=me", body_of("a.lv", b"new")), success=True)
    assert files(programs) == {"a.lv": b"new"}


@pytest.mark.parametrize("path", [UPLOAD + "/", UPLOAD.lower(), UPLOAD + "s"])
def test_only_the_path_as_it_is_written_uploads(daemon, programs, path):
    daemon.expect_log(f" {path}")
    assert daemon.put(path, body_of("a.lv", b"new")).status == 400
    assert files(programs) == {}


def test_ten_uploads_side_by_side_all_arrive(daemon, programs):
    contents = {f"program {number}.lv": random.Random(number).randbytes(300_000 + number)
                for number in range(10)}
    with ThreadPoolExecutor(10) as clients:
        for turn in range(3):
            messages = clients.map(lambda item: upload(daemon, *item), contents.items())
            assert sorted(messages) == [f"Wrote 292kB to file {programs}/{name}"
                                        for name in sorted(contents)]
            assert files(programs) == contents
            contents = {name: content[::-1] + bytes(turn) for name, content in contents.items()}


def test_a_program_is_replaced_as_a_whole_and_keeps_its_rights(daemon, programs):
    (programs / "a.lv").write_bytes(b"a longer program")
    (programs / "a.lv").chmod(0o751)
    upload(daemon, "a.lv", b"short")
    assert files(programs) == {"a.lv": b"short"}
    assert stat.S_IMODE((programs / "a.lv").stat().st_mode) == 0o751


def test_behind_a_link_it_is_the_programs_file_that_changes(daemon, programs):
    (programs.parent / "real.lv").write_bytes(b"old")
    (programs / "a.lv").symlink_to("../real.lv")
    upload(daemon, "a.lv", b"new")
    assert (programs / "a.lv").is_symlink()
    assert (programs.parent / "real.lv").read_bytes() == b"new"


def test_a_program_may_be_written_where_no_file_may_be_made(start_daemon, programs):
    (programs / "a.lv").write_bytes(b"old and longer")
    daemon = start_daemon(settings=settings(programs), obeys_permissions=True)
    programs.chmod(0o555)
    upload(daemon, "a.lv", b"new")
    daemon.expect_log(f"Error writing file {programs}/b.lv with size 3")
    message_of(daemon.put(UPLOAD, body_of("b.lv", b"new")), success=False)
    programs.chmod(0o755)
    assert files(programs) == {"a.lv": b"new"}


def test_a_program_that_may_not_be_written_stays(start_daemon, programs):
    (programs / "a.lv").write_bytes(b"old")
    (programs / "a.lv").chmod(0o444)
    daemon = start_daemon(settings=settings(programs), obeys_permissions=True)
    message = f"Error writing file {programs}/a.lv with size 3"
    daemon.expect_log(message)
    assert message_of(daemon.put(UPLOAD, body_of("a.lv", b"new")), success=False) == message
    assert files(programs) == {"a.lv": b"old"}


def test_who_downloads_meanwhile_gets_the_old_program_or_the_new_one(daemon, programs):
    versions = [bytes([number]) * (200_000 + 50_000 * number) for number in range(4)]
    upload(daemon, "a.lv", versions[0])
    received = set()

    def read():
        with daemon.connect(60) as connection:
            for _ in range(60):
                received.add(connection.request("GET", DOWNLOAD + "a.lv").body)

    def write(number):
        for turn in range(20):
            upload(daemon, "a.lv", versions[(number + turn) % len(versions)])

    with ThreadPoolExecutor(6) as clients:
        for task in [*(clients.submit(read) for _ in range(4)),
                     *(clients.submit(write, number) for number in range(2))]:
            task.result()
    assert received <= set(versions)
    assert len(received) > 1
    assert [path.name for path in programs.iterdir()] == ["a.lv"]


def break_off(daemon, body):
    """Sends all but the last byte, which would be a blank: what has come is JSON already."""
    with daemon.connect() as connection:
        head = f"PUT {UPLOAD} HTTP/1.1\r\nHost: x\r\nContent-Length: {len(body) + 1}\r\n\r\n"
        connection.send(head.encode() + body)


def test_an_upload_that_breaks_off_leaves_the_old_program(daemon, programs):
    upload(daemon, "a.lv", b"old")
    before = len(daemon.open_files())
    for _ in range(20):
        break_off(daemon, body_of("a.lv", b"new" * 10_000))
        break_off(daemon, body_of("b.lv", b"new" * 10_000))
    wait_for("connections to be closed", lambda: len(daemon.open_files()) <= before)
    upload(daemon, "c.lv", b"after")
    assert files(programs) == {"a.lv": b"old", "c.lv": b"after"}
    assert_program(download(daemon, "a.lv"), b"old")
    assert_missing(download(daemon, "b.lv"))
