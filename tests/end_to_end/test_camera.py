"""The camera's images: what is an image, who gets it, and how it is delivered."""

from __future__ import annotations

import random
import socket
import struct
import threading

import pytest

from support.camera import (CAMERA, LARGEST, NO_JPEG, NONE, assert_jpeg, assert_text, fetch, image,
                            subscribe)
from support.deadlines import wait_for
from support.http import request_bytes
from support.sessions import PASSWORDS, log_in

# All bytes that there are: an image isn't text and isn't looked into.
PICTURE = b"\xff\xd8" + bytes(range(256)) * 40 + b"\xff\xd9"


def show(robot, data, kind="jpeg"):
    robot.tell("camera.imageReceived", image(data, kind))


def test_the_newest_image_is_sent_as_it_came(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    show(fake_robot, PICTURE)
    assert_jpeg(fetch(daemon), PICTURE)


def test_each_image_is_given_once(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    for data in (PICTURE, b"second", PICTURE):
        show(fake_robot, data)
        assert_jpeg(fetch(daemon), data)
        assert_text(daemon.get(CAMERA), NONE)
        assert_text(daemon.get(CAMERA), NONE)
    assert daemon.messages() == ["Connected"]


def test_of_several_images_the_last_is_given(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    for number in range(100):
        show(fake_robot, b"image %d" % number)
    fake_robot.show("bumper.changed", {"value": True})
    daemon.wait_for_text("/data/bumper", b"true")
    assert_jpeg(daemon.get(CAMERA), b"image 99")
    assert_text(daemon.get(CAMERA), NONE)


def test_without_a_robot_there_is_no_image(start_daemon):
    daemon = start_daemon()
    for _ in range(3):
        assert_text(daemon.get(CAMERA), NONE)
    assert daemon.messages() == []


@pytest.mark.parametrize("size", [1, 2, 4096, LARGEST - 1, LARGEST])
def test_an_image_up_to_the_largest_size_arrives_whole(start_connected, fake_robot, size):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    data = random.Random(size).randbytes(size)
    show(fake_robot, data)
    assert_jpeg(fetch(daemon), data)


@pytest.mark.parametrize("data, kind", [
    pytest.param(bytes(LARGEST + 1), "jpeg", id="one byte too large"),
    pytest.param(bytes(4 << 20), "jpeg", id="far too large"),
    pytest.param(b"", "jpeg", id="empty"),
    pytest.param(bytes(64 * 48 * 3), "raw", id="raw"),
    pytest.param(b"", "raw", id="raw and empty"),
    pytest.param(bytes(LARGEST + 1), "raw", id="raw and too large"),
])
def test_what_is_no_deliverable_jpeg_is_told_once(start_connected, fake_robot, data, kind):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    show(fake_robot, data, kind)
    assert_text(fetch(daemon), NO_JPEG)
    assert_text(daemon.get(CAMERA), NONE)
    show(fake_robot, PICTURE)
    assert_jpeg(fetch(daemon), PICTURE)
    assert daemon.messages() == ["Connected"]


@pytest.mark.parametrize("path", [
    "/cam0/latest.jpg", "/cam0/", "/cam0.png", "/cam01", "/cam0index.html", "/cam0/../index.html",
    "/cam0%20", "/cam0?x=1", "/cam0/a/b/c.css?sid=x",
])
def test_whatever_begins_with_the_cameras_path_is_the_camera(start_connected, fake_robot, path):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot, path)
    show(fake_robot, PICTURE)
    assert_jpeg(fetch(daemon, path), PICTURE)


@pytest.mark.parametrize("path", ["/cam", "/CAM0", "/cam1", "/%63am0", "/a/cam0"])
def test_any_other_path_is_a_file(start_connected, fake_robot, tmp_path, path):
    file = tmp_path / "web" / path[1:]
    file.parent.mkdir(parents=True)
    file.write_bytes(b"a file")
    daemon = start_connected(fake_robot, resources=tmp_path / "web")
    reply = daemon.get(path)
    assert (reply.status, reply.content_type, reply.body) == (
        200, "text/html; charset=utf-8", b"a file")
    assert daemon.put("/data/relayarray", b"[1,1]").status == 200
    wait_for("the relays", lambda: fake_robot.commands("relayArray.setValues"))
    assert fake_robot.commands("camera.subscribe") == []


@pytest.mark.parametrize("query", ["", "?sid=", "?sid=unknown", "?sid=driver%20", "?SID=driver"])
def test_for_a_guest_the_cameras_path_is_a_file(start_connected, fake_robot, tmp_path, query):
    daemon = start_connected(fake_robot, resources=tmp_path, settings=PASSWORDS)
    log_in(daemon, "driver", "operator")
    assert_text(daemon.get(CAMERA + query), b"INTERNAL ERROR ")
    (tmp_path / "cam0").write_bytes(b"a file")
    reply = daemon.get(CAMERA + query)
    assert (reply.status, reply.content_type, reply.body) == (
        200, "text/html; charset=utf-8", b"a file")
    assert daemon.put("/data/relayarray?sid=driver", b"[1,1]").status == 200
    wait_for("the relays", lambda: fake_robot.commands("relayArray.setValues"))
    assert fake_robot.commands("camera.subscribe") == []


@pytest.mark.parametrize("role", ["operator", "admin"])
def test_operator_and_admin_get_images(start_connected, fake_robot, role):
    daemon = start_connected(fake_robot, settings=PASSWORDS)
    log_in(daemon, "me", role)
    subscribe(daemon, fake_robot, CAMERA + "?sid=me")
    show(fake_robot, PICTURE)
    assert_jpeg(fetch(daemon, CAMERA + "/x?sid=me"), PICTURE)


@pytest.mark.parametrize("settings", [
    pytest.param({}, id="all are admins"),
    pytest.param({"Login/administrator": "chief"}, id="all are operators"),
])
def test_where_everybody_has_the_role_no_session_is_needed(start_connected, fake_robot, settings):
    daemon = start_connected(fake_robot, settings=settings)
    subscribe(daemon, fake_robot)
    show(fake_robot, PICTURE)
    assert_jpeg(fetch(daemon), PICTURE)


def test_each_request_on_a_connection_gets_one_reply(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    with daemon.connect() as connection:

        def new_image():
            reply = connection.request("GET", CAMERA)
            return None if reply.body == NONE else reply

        for _ in range(20):
            assert_text(connection.request("GET", CAMERA), NONE)
            show(fake_robot, PICTURE)
            assert_jpeg(wait_for("an image", new_image), PICTURE)
            show(fake_robot, b"", "raw")
            assert_text(wait_for("an image", new_image), NO_JPEG)
        last = connection.request("GET", CAMERA, headers=("Connection: close",))
        assert last.body == NONE
        assert connection.read_to_end() == b""


def test_the_robot_comes_back_and_so_do_the_images(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    show(fake_robot, PICTURE)
    assert_jpeg(fetch(daemon), PICTURE)
    fake_robot.drop()
    daemon.wait_for_message("Connected", count=2)
    wait_for("another subscription", lambda: len(fake_robot.commands("camera.subscribe")) == 2)
    show(fake_robot, b"new")
    assert_jpeg(fetch(daemon), b"new")


def test_an_image_that_has_come_is_given_also_when_the_robot_is_lost(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    show(fake_robot, PICTURE)
    fake_robot.show("bumper.changed", {"value": True})
    daemon.wait_for_text("/data/bumper", b"true")
    fake_robot.stop()
    daemon.wait_for_message("Disconnected")
    assert_jpeg(daemon.get(CAMERA), PICTURE)
    assert_text(daemon.get(CAMERA), NONE)
    fake_robot.start()


def test_of_many_clients_each_image_reaches_one(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    is_over = threading.Event()
    received = []

    def poll():
        with daemon.connect(60) as connection:
            while not is_over.is_set():
                reply = connection.request("GET", CAMERA)
                if reply.status == 200:
                    received.append(reply.body)

    clients = [threading.Thread(target=poll) for _ in range(16)]
    for client in clients:
        client.start()
    given = [random.Random(number).randbytes(50_000 + number) for number in range(40)]
    try:
        for data in given:
            show(fake_robot, data)
            wait_for("an image", lambda d=data: d in received)
    finally:
        is_over.set()
        for client in clients:
            client.join()
    assert received == given


def reset(connection):
    connection.socket.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
    connection.close()


def close(connection):
    connection.close()


def begin_an_image(daemon, robot):
    """A connection on which the first bytes of an image have come."""
    while True:
        show(robot, bytes(LARGEST))
        connection = daemon.connect()
        connection.socket.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 4096)
        connection.send(request_bytes("GET", CAMERA))
        if connection.socket.recv(12) == b"HTTP/1.1 200":
            return connection
        connection.close()


@pytest.mark.parametrize("leave", [close, reset])
def test_clients_that_go_in_the_middle_of_an_image_do_no_harm(start_connected, fake_robot, leave):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    before = len(daemon.open_files())
    for _ in range(30):
        leave(begin_an_image(daemon, fake_robot))
    # All at once, and some that don't even wait for the first byte.
    open_ones = [begin_an_image(daemon, fake_robot) for _ in range(20)]
    for connection in open_ones:
        leave(connection)
    for _ in range(50):
        connection = daemon.connect()
        connection.send(request_bytes("GET", CAMERA))
        leave(connection)
    wait_for("connections to be closed", lambda: len(daemon.open_files()) <= before)

    def picture_comes():
        # Time and again: a request whose client is gone may still take one.
        show(fake_robot, PICTURE)
        return daemon.get(CAMERA).body == PICTURE

    wait_for("the picture", picture_comes)
    assert daemon.messages() == ["Connected"]


def test_an_image_that_nobody_reads_holds_nobody_else_up(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    open_ones = [begin_an_image(daemon, fake_robot) for _ in range(60)]
    for _ in range(50):
        assert daemon.get("/data/bumper").status == 200
    show(fake_robot, PICTURE)
    wait_for("the picture", lambda: daemon.get(CAMERA).body == PICTURE)
    for connection in open_ones:
        connection.close()


def test_the_simulated_robots_images_are_jpegs(start_connected, simulator):
    daemon = start_connected(simulator)
    for _ in range(10):
        reply = fetch(daemon)
        assert_jpeg(reply, reply.body)
        assert reply.body.startswith(b"\xff\xd8\xff") and reply.body.endswith(b"\xff\xd9")
