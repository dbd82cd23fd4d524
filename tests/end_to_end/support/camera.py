"""What clients see of the camera, and images to show them."""

from __future__ import annotations

import base64
from typing import Any

from support.daemon import Daemon
from support.deadlines import wait_for
from support.fake_robot import FakeRobot
from support.http import Reply

CAMERA = "/cam0"
NONE = b"No camera connected"
NO_JPEG = b"No jpeg image available"

# The largest image that can be delivered, in bytes.
LARGEST = 0xFFFFF


def image(data: bytes, kind: str = "jpeg") -> dict[str, Any]:
    """The params of an image's event; its bytes are a picture only in name."""
    return {"format": kind, "width": 64, "height": 48, "step": 192,
            "data": base64.b64encode(data).decode()}


def assert_text(reply: Reply, text: bytes) -> None:
    """The reply is the error with this text, and nothing besides."""
    assert reply.status_line == b"HTTP/1.1 500 Internal Error"
    assert sorted(reply.headers) == [("Content-Length", str(len(text))),
                                     ("Content-Type", "text/plain; charset=utf-8")]
    assert reply.body == text


def assert_jpeg(reply: Reply, data: bytes) -> None:
    """The reply is the image with these bytes, and nothing besides."""
    assert reply.status_line == b"HTTP/1.1 200 OK"
    assert sorted(reply.headers) == [("Content-Length", str(len(data))),
                                     ("Content-Type", "image/jpeg")]
    assert reply.body == data


def subscribe(daemon: Daemon, robot: FakeRobot, target: str = CAMERA) -> None:
    """Binds the camera by a request, which finds no image, and waits until the robot knows."""
    before = len(robot.commands("camera.subscribe"))
    assert_text(daemon.get(target), NONE)
    wait_for("a subscription", lambda: len(robot.commands("camera.subscribe")) > before)


def fetch(daemon: Daemon, target: str = CAMERA) -> Reply:
    """The reply to the first request that finds an image, of whatever kind."""

    def new_image() -> Reply | None:
        reply = daemon.get(target)
        return None if reply.body == NONE else reply

    return wait_for("an image", new_image)
