"""The connection to the robot: when it comes up, when it is lost, and what stays."""

from __future__ import annotations

import base64
import threading


def info(text):
    return {"data": base64.b64encode(text).decode()}


def test_up_and_down_are_logged_at_every_level(start_connected, robot):
    daemon = start_connected(robot)
    robot.stop()
    daemon.wait_for_message("Disconnected")
    robot.start()
    daemon.wait_for_message("Connected", count=2)
    daemon.stop()
    assert daemon.messages() == ["Connected", "Disconnected", "Connected"]


def test_a_robot_that_is_switched_off_leaves_no_message(start_daemon, fake_robot):
    fake_robot.stop()
    daemon = start_daemon(robot=fake_robot.address)
    fake_robot.start()
    daemon.wait_for_message("Connected")
    assert daemon.messages() == ["Connected"]


def test_a_daemon_may_start_before_its_robot(start_daemon, robot):
    robot.stop()
    daemon = start_daemon(robot=robot.address)
    assert daemon.get("/data/bumper").body == b'{\n    "value": false\n}\n'
    robot.start()
    robot.show("bumper.changed", {"value": True})
    daemon.wait_for_reply("/data/bumper", b'{\n    "value": true\n}\n')


def test_what_was_received_stays_until_the_robot_tells_anew(start_connected, robot):
    robot.show("controllerInfo.infoChanged", info(b"before"))
    daemon = start_connected(robot)
    daemon.wait_for_reply("/data/controllerinfo", b"before")
    robot.stop()
    daemon.wait_for_message("Disconnected")
    assert daemon.get("/data/controllerinfo").body == b"before"
    robot.start()
    robot.show("controllerInfo.infoChanged", info(b"after"))
    daemon.wait_for_reply("/data/controllerinfo", b"after")


def test_a_crashed_robot_comes_back(start_connected, simulator):
    daemon = start_connected(simulator)
    for loss in range(1, 3):
        simulator.crash()
        daemon.wait_for_message("Disconnected", count=loss)
        simulator.start()
        daemon.wait_for_message("Connected", count=loss + 1)


def test_five_restarts_of_the_robot_under_load(start_connected, simulator):
    simulator.show("bumper.changed", {"value": True})
    daemon = start_connected(simulator)
    daemon.wait_for_reply("/data/bumper", b'{\n    "value": true\n}\n')
    is_over = threading.Event()
    statuses = set()

    def load():
        with daemon.connect(60) as connection:
            while not is_over.is_set():
                for path in ("bumper", "odometry", "analoginputarray", "controllerinfo"):
                    statuses.add(connection.request("GET", f"/data/{path}").status)
                statuses.add(connection.request("PUT", "/data/relayarray", b"[1,0]").status)

    clients = [threading.Thread(target=load) for _ in range(8)]
    for client in clients:
        client.start()
    try:
        for restart in range(1, 6):
            simulator.crash()
            daemon.wait_for_message("Disconnected", count=restart)
            assert daemon.get("/data/bumper").body == b'{\n    "value": true\n}\n'
            simulator.start()
            daemon.wait_for_message("Connected", count=restart + 1)
    finally:
        is_over.set()
        for client in clients:
            client.join()
    assert statuses == {200}
    daemon.stop()
    assert daemon.messages() == ["Connected", *["Disconnected", "Connected"] * 5]


def test_a_robot_that_falls_silent_is_left_and_tried_again(start_connected, simulator):
    daemon = start_connected(simulator)
    simulator.call("clients.mute", {"on": True})
    daemon.wait_for_message("Disconnected")
    simulator.call("clients.mute", {"on": False})
    daemon.wait_for_message("Connected", count=2)


def test_a_dropped_connection_is_made_anew(start_connected, simulator):
    daemon = start_connected(simulator)
    simulator.call("clients.drop", {"forMs": 0})
    daemon.wait_for_message("Connected", count=2)
    assert daemon.messages() == ["Connected", "Disconnected", "Connected"]


def test_a_slow_robot_is_no_lost_robot(start_connected, simulator):
    simulator.call("clients.delay", {"ms": 1000})
    daemon = start_connected(simulator)
    simulator.show("bumper.changed", {"value": True})
    daemon.wait_for_reply("/data/bumper", b'{\n    "value": true\n}\n')
    assert daemon.messages() == ["Connected"]
