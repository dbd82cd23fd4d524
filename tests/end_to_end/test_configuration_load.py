"""Many readers and writers of one configuration file at the same time."""

from __future__ import annotations

import json
import time
from concurrent.futures import ThreadPoolExecutor

from support.configuration import CONFIG, NO_DEBUG, daemons, leaves

KEYS = [f"key{number}" for number in range(40)]
SECONDS = 4


def text_of(version):
    """The file's text in which all keys have the version's number."""
    head = "#@restart command begin\n#@name motors\n\n[G]\n"
    return (head + "".join(f"#@web\n{key}={version}\n" for key in KEYS)).encode()


def tree_of(configuration, version):
    return [configuration.leaf("a", f"G/{key}", str(version)) for key in KEYS]


def write(configuration, number, end, written):
    """Writes a version of its own after the other until the time is over."""
    with configuration.daemon.connect(60) as connection:
        version = 1000 * number
        while time.monotonic() < end:
            version += 1
            body = json.dumps(tree_of(configuration, version)).encode()
            reply = connection.request("PUT", CONFIG, body)
            assert reply.status == 200
            assert reply.body in (b"", daemons("motors"))
            written.append((version, bool(reply.body)))


def read(configuration, end, seen):
    with configuration.daemon.connect(60) as connection:
        while time.monotonic() < end:
            tree = json.loads(connection.request("GET", CONFIG).body)
            seen.append(tuple(leaf["value"] for leaf in leaves(tree)))


def run(configuration, writers, readers):
    """What was written, with its success, and what was seen meanwhile."""
    written, seen = [], []
    end = time.monotonic() + SECONDS
    with ThreadPoolExecutor(writers + readers) as clients:
        tasks = [clients.submit(write, configuration, number, end, written)
                 for number in range(1, writers + 1)]
        tasks += [clients.submit(read, configuration, end, seen) for _ in range(readers)]
        for task in tasks:
            task.result()
    return written, seen


def versions(seen):
    """The version of each complete sight; all of its keys must tell the same."""
    assert all(len(set(values)) == 1 and len(values) == len(KEYS) for values in seen if values)
    return {int(values[0]) for values in seen if values}


def test_one_writer_never_fails_and_readers_see_whole_versions(configuration):
    configuration.write("a", text_of(0))
    written, seen = run(configuration, 1, 19)
    assert len(written) > 10
    assert all(succeeded for _, succeeded in written)
    assert versions(seen) <= {0} | {version for version, _ in written}
    assert configuration.read("a").rstrip(b"\n") == text_of(written[-1][0]).rstrip(b"\n")


def test_many_writers_leave_no_half_version(start_configured):
    """They share the temporary file and are not kept apart: a write may fail, and may leave the
    file as its backup alone or, where two of them meet in the middle, neither of the two. But what
    stands there is never half a version."""
    configuration = start_configured(environment=NO_DEBUG)
    configuration.write("a", text_of(0))
    configuration.daemon.may_log("Error ")
    written, seen = run(configuration, 10, 10)
    all_versions = {0} | {version for version, _ in written}
    assert versions(seen) <= all_versions
    files = configuration.files()
    assert set(files) <= {"a.conf", "a.conf.bak"}
    whole = {text_of(version).rstrip(b"\n") for version in all_versions}
    assert {text.rstrip(b"\n") for text in files.values()} <= whole
    configuration.write("a", text_of(0))
    assert configuration.change("a", "G/key0", "1") == daemons("motors")
