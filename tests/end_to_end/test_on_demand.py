"""Camera and scanner send only while somebody asks, and each for itself."""

from __future__ import annotations

import time

from support.camera import CAMERA, NONE, assert_jpeg, assert_text, fetch, image, subscribe
from support.deadlines import SANITIZER, wait_for
from support.drive import wait_for_all_commands
from support.scanner import EMPTY, SCAN

# How long a device stays bound after the last request, in seconds: 9 to 10, and what the daemon's
# timers and a machine that a sanitizer slows down may add to that.
SHORTEST = 9.0 - 0.15
LONGEST = 10.0 + {"": 0.15, "address": 0.4, "thread": 1.0}[SANITIZER]

DEVICES = {"camera": CAMERA, "laserRangeFinder": SCAN}


def times(robot, device):
    """When the daemon subscribed to the device and when it unsubscribed."""
    return ([when for when, _ in robot.timed_commands(f"{device}.subscribe")],
            [when for when, _ in robot.timed_commands(f"{device}.unsubscribe")])


def subscriptions(robot, device):
    return tuple(len(found) for found in times(robot, device))


def assert_kept_bound(last_request, unsubscribed):
    assert SHORTEST <= unsubscribed - last_request <= LONGEST


def ask(daemon, device):
    """Asks for the device and gives the time of that."""
    daemon.get(DEVICES[device])
    return time.monotonic()


def test_nothing_is_subscribed_to_before_somebody_asks(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    for path in ("/data/bumper", "/data/odometry", "/data/powermanagement"):
        daemon.get(path)
    wait_for_all_commands(daemon, fake_robot)
    assert {subscriptions(fake_robot, device) for device in DEVICES} == {(0, 0)}


def test_each_device_is_subscribed_to_by_its_own_clients(start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    ask(daemon, "laserRangeFinder")
    wait_for_all_commands(daemon, fake_robot)
    assert subscriptions(fake_robot, "laserRangeFinder") == (1, 0)
    assert subscriptions(fake_robot, "camera") == (0, 0)
    ask(daemon, "camera")
    for _ in range(20):
        ask(daemon, "laserRangeFinder")
        ask(daemon, "camera")
    wait_for_all_commands(daemon, fake_robot)
    assert subscriptions(fake_robot, "laserRangeFinder") == (1, 0)
    assert subscriptions(fake_robot, "camera") == (1, 0)


def test_who_asks_before_the_robot_is_there_is_served_when_it_comes(start_daemon, fake_robot):
    fake_robot.stop()
    daemon = start_daemon(robot=fake_robot.address)
    for device in DEVICES:
        ask(daemon, device)
    fake_robot.start()
    for device in DEVICES:
        wait_for(f"a subscription of {device}", lambda d=device: subscriptions(fake_robot, d)[0])
    fake_robot.tell("camera.imageReceived", image(b"picture"))
    assert_jpeg(fetch(daemon), b"picture")


def show_scan(daemon, robot, number):
    robot.tell("laserRangeFinder.scan", {**EMPTY, "seq": number})
    daemon.wait_for_text(SCAN, b'"seq": %d,' % number)


def test_a_device_is_detached_ten_ticks_after_its_last_request_and_bound_by_the_next(
        start_connected, fake_robot):
    daemon = start_connected(fake_robot)
    subscribe(daemon, fake_robot)
    asked = {"camera": ask(daemon, "camera"), "laserRangeFinder": ask(daemon, "laserRangeFinder")}
    fake_robot.tell("camera.imageReceived", image(b"never fetched"))
    show_scan(daemon, fake_robot, 1)
    # The camera's time ends while scans are still asked for.
    while subscriptions(fake_robot, "camera") == (1, 0):
        assert time.monotonic() < asked["camera"] + LONGEST + 1
        time.sleep(0.5)
        asked["laserRangeFinder"] = ask(daemon, "laserRangeFinder")
    # What comes too late is nobody's.
    fake_robot.tell("camera.imageReceived", image(b"too late"))
    wait_for("the scanner's end", lambda: subscriptions(fake_robot, "laserRangeFinder") == (1, 1))
    for device, last_request in asked.items():
        (_, (unsubscribed,)) = times(fake_robot, device)
        assert_kept_bound(last_request, unsubscribed)
    assert subscriptions(fake_robot, "camera") == (1, 1)

    # No image has waited, the last scan has stayed.
    assert_text(daemon.get(CAMERA), NONE)
    assert b'"seq": 1,' in daemon.get(SCAN).body
    wait_for_all_commands(daemon, fake_robot)
    assert {subscriptions(fake_robot, device) for device in DEVICES} == {(2, 1)}
    show_scan(daemon, fake_robot, 2)
    fake_robot.tell("camera.imageReceived", image(b"picture"))
    assert_jpeg(fetch(daemon), b"picture")
    assert daemon.messages() == ["Connected"]
