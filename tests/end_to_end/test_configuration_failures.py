"""Replacements of a configuration file that fail, and what remains then.

All of them are answered alike: the log and the files alone tell.
"""

from __future__ import annotations

import json
import os
import stat
import struct
import subprocess
import uuid
from pathlib import Path

import pytest

from support.configuration import CONFIG, NO_DEBUG, daemons
from support.daemon import quiet_environment

OWNED = b"#@restart command begin\n#@name motors\n\n[G]\nkey=1\n"
CHANGED = OWNED.replace(b"1", b"2")


def change(configuration):
    return configuration.change("a", "G/key", "2")


def assert_refused(configuration, files, *messages):
    """The write of the key changes nothing of these files and is told by these messages."""
    configuration.daemon.expect_log(*messages)
    assert change(configuration) == b""
    assert configuration.files() == files
    configuration.daemon.stop()
    assert configuration.daemon.messages() == list(messages)


@pytest.fixture
def restricted(start_configured):
    """A configuration of a daemon that has no more rights than others."""
    configuration = start_configured(obeys_permissions=True)
    yield configuration
    configuration.folder.chmod(0o755)


def test_a_file_that_is_missing_or_no_file_fails_without_a_word(configuration):
    assert_refused(configuration, {})


def test_a_folder_in_the_files_place_fails_without_a_word(configuration):
    configuration.path("a").mkdir()
    assert change(configuration) == b""
    assert configuration.path("a").is_dir()


def test_a_pipe_in_the_files_place_does_not_stop_the_daemon(configuration):
    os.mkfifo(configuration.path("a"))
    assert change(configuration) == b""


def test_a_file_that_may_not_be_read_fails_without_a_word(restricted):
    restricted.write("a", OWNED).chmod(0o200)
    assert_refused(restricted, {"a.conf": OWNED})


def test_a_folder_in_the_temporary_files_place_fails_without_a_word(configuration):
    configuration.write("a", OWNED)
    configuration.temporary("a").mkdir()
    assert_refused(configuration, {"a.conf": OWNED})


def test_a_temporary_file_that_cannot_be_written_whole_is_told(start_configured):
    """As on a full disk; here it is a limit of the size of files."""
    configuration = start_configured(
        launcher=["prlimit", "--fsize=50000", "env", "--ignore-signal=XFSZ"])
    configuration.write("a", OWNED)
    configuration.daemon.expect_log(f"Error writing {configuration.temporary('a')}")
    assert configuration.change("a", "G/key", "2" * 100_000) == b""
    assert configuration.files() == {"a.conf": OWNED}
    assert change(configuration) == daemons("motors")


def test_a_link_in_the_temporary_files_place_is_not_followed(configuration, tmp_path):
    configuration.write("a", OWNED)
    (tmp_path / "precious").write_bytes(b"precious")
    configuration.temporary("a").symlink_to(tmp_path / "precious")
    assert change(configuration) == daemons("motors")
    assert (tmp_path / "precious").read_bytes() == b"precious"


def test_a_file_that_is_its_own_temporary_file_is_refused(configuration):
    path = configuration.temporary("a")
    path.write_bytes(OWNED)
    told = f"Error {path} is where its own new text would be written first"
    configuration.daemon.expect_log(told)
    reply = configuration.put([configuration.leaf("a", "G/key", "2") | {"file": str(path)}])
    assert (reply.status, reply.body) == (200, b"")
    assert path.read_bytes() == OWNED


@pytest.mark.parametrize("value", ["1\nadded=2", "1\n[H]", "1\n[H]\nkey=1"])
def test_a_value_that_would_change_the_keys_is_refused(start_configured, value):
    configuration = start_configured(environment=NO_DEBUG)
    path = configuration.write("a", OWNED + b"other=1\n")
    assert configuration.change("a", "G/key", value) == b""
    assert configuration.files() == {"a.conf": OWNED + b"other=1\n"}
    configuration.daemon.stop()
    temporary = configuration.temporary("a")
    assert configuration.daemon.messages() == [f"Keys of {temporary} and {path} are not identical!"]
    assert temporary.exists()


def test_a_value_with_a_line_feed_that_brings_no_key_in_is_written(configuration):
    configuration.write("a", OWNED + b"other=1\n")
    assert configuration.change("a", "G/key", "2\n# note\n") == daemons("motors")
    assert configuration.read("a") == OWNED.replace(b"1", b"2\n# note\n") + b"other=1"


def test_a_folder_in_the_backups_place_stops_the_replacement(configuration):
    configuration.write("a", OWNED)
    configuration.backup("a").mkdir()
    configuration.daemon.expect_log(f"Error removing old backup {configuration.backup('a')}")
    assert change(configuration) == b""
    assert configuration.read("a") == OWNED
    assert configuration.backup("a").is_dir()


def test_an_old_backup_that_may_not_be_removed_stops_the_replacement(restricted):
    restricted.write("a", OWNED)
    restricted.backup("a").write_bytes(b"old")
    restricted.folder.chmod(0o555)
    assert_refused(restricted, {"a.conf": OWNED, "a.conf.bak": b"old"},
                   f"Error removing old backup {restricted.backup('a')}")


def test_a_file_that_may_not_be_renamed_stays(restricted):
    path = restricted.write("a", OWNED)
    restricted.folder.chmod(0o555)
    assert_refused(restricted, {"a.conf": OWNED},
                   f"Error renaming {path} -> {restricted.backup('a')}")


# Covers the folder with a file system that holds three blocks of 4 kB, two of which the file takes.
SMALL_DISK = """
mkdir "$0" && mount -t tmpfs -o size=12k tmpfs "$0" && head -c 5000 /dev/zero | tr '\\0' '#' > "$1" &&
printf '\\n\\n#@restart command begin\\n#@name motors\\n\\n[G]\\nkey=1\\n' >> "$1" && shift && exec "$@"
"""
NEW_NAMESPACE = ["unshare", "--map-root-user", "--mount"]


def can_mount(folder):
    command = ["sh", "-c", 'mount -t tmpfs tmpfs "$0"', str(folder)]
    return subprocess.run([*NEW_NAMESPACE, *command], check=False, capture_output=True,
                          env=quiet_environment({})).returncode == 0


def test_a_copy_that_fails_leaves_the_backup_alone_and_is_taken_for_a_success(start_daemon,
                                                                              tmp_path):
    if not can_mount(tmp_path):
        pytest.skip("this user may not mount a small file system")
    name = uuid.uuid4().hex
    folder, temporary = tmp_path / "small", Path("/tmp") / name
    path = folder / f"{name}.conf"
    daemon = start_daemon(
        launcher=[*NEW_NAMESPACE, "sh", "-c", SMALL_DISK, str(folder), str(path)])
    inside = Path(f"/proc/{daemon.pid}/root{folder}")
    old = (inside / path.name).read_bytes()
    daemon.expect_log(f"Error copying {temporary} -> {path}")
    leaf = {"file": str(path), "group": "G", "name": "key", "value": "2"}
    try:
        reply = daemon.put(CONFIG, json.dumps([leaf]).encode())
        assert temporary.read_bytes() == old.replace(b"=1", b"=2")
    finally:
        temporary.unlink(missing_ok=True)
    assert (reply.status, reply.body) == (200, daemons("motors"))
    assert {file.name: file.read_bytes() for file in inside.iterdir()} == {f"{path.name}.bak": old}


def give_access(path, user):
    """Lets a user read a file that neither its owner's nor its group's rights open to him."""
    nobody = 0xffffffff
    entries = [(0x01, 6, nobody), (0x02, 4, user), (0x04, 0, nobody), (0x10, 4, nobody),
               (0x20, 0, nobody)]
    data = b"".join(struct.pack("<HHI", *entry) for entry in entries)
    os.setxattr(path, "system.posix_acl_access", struct.pack("<I", 2) + data)


@pytest.mark.skipif(os.geteuid() != 0, reason="only root may give files away")
def test_a_new_file_whose_keys_are_not_the_old_ones_gives_way_to_the_old_file(restricted):
    """An access list is lost on the way, so the daemon may not read the new file any more."""
    path = restricted.write("a", OWNED)
    os.chown(path, 12, 34)
    try:
        give_access(path, 0)
    except OSError as error:
        pytest.skip(f"the file system has no access lists: {error}")
    assert_refused(restricted, {"a.conf": OWNED}, f"Error {path} has invalid keys")
    assert path.stat().st_uid == 12
    assert stat.S_IMODE(path.stat().st_mode) == 0o640


def test_a_file_that_fails_does_not_stop_the_others(restricted):
    restricted.write("a", OWNED).chmod(0o200)
    restricted.write("b", OWNED)
    restricted.write("c", OWNED)
    restricted.backup("c").mkdir()
    restricted.write("d", OWNED)
    restricted.daemon.expect_log(f"Error removing old backup {restricted.backup('c')}")
    reply = restricted.put([restricted.leaf(name, "G/key", "2") for name in "abcd"])
    assert (reply.status, reply.body) == (200, daemons("motors", "motors"))
    assert [restricted.read(name) for name in "abcd"] == [OWNED, CHANGED, OWNED, CHANGED]


def test_a_failure_can_be_repaired_while_the_daemon_runs(configuration):
    configuration.write("a", OWNED)
    configuration.temporary("a").mkdir()
    assert change(configuration) == b""
    configuration.temporary("a").rmdir()
    assert change(configuration) == daemons("motors")
    assert configuration.files() == {"a.conf": CHANGED, "a.conf.bak": OWNED}
