"""The configuration file: where it is found, what its lines mean, and what is printed of it."""

from __future__ import annotations

import contextlib
import os
import re

import pytest

from support.fake_robot import FakeRobot

LISTENER = b"[Network]\nwin_httpserver=http://127.0.0.1:@PORT@\n"


def printed_settings(daemon):
    """The lines on standard output between the file's name and the listener's."""
    output = daemon.stdout().decode()
    return re.fullmatch(r"confFile = [^\n]*\n(.*\n)Listening for requests at: [^\n]*\n", output,
                        re.DOTALL)[1].split("\n")[:-1]


def settings_of_file(daemon):
    """The same without what every test's daemon has."""
    common = ("Network/win_httpserver = ", "Network/veltrano = ", "General/resourcepath = ")
    return [line for line in printed_settings(daemon) if not line.startswith(common)]


# Where it is found


def test_a_named_file_is_used_as_it_is_named(start_daemon):
    daemon = start_daemon(file_name="folder/own.conf", file_argument="-conf=./folder/own.conf")
    assert daemon.stdout().startswith(b"confFile = ./folder/own.conf\n")
    assert daemon.stderr().startswith(b'"./folder/own.conf"\nQMap(')


def test_the_options_text_is_removed_everywhere_in_a_files_name(start_daemon):
    daemon = start_daemon(file_name="ab.conf", file_argument="-conf=a-conf=b.conf")
    assert daemon.stdout().startswith(b"confFile = ab.conf\n")


@pytest.mark.parametrize("argument", [
    pytest.param("", id="no option"),
    pytest.param("-conf=", id="an empty option"),
])
def test_a_file_in_the_current_folder_is_found(start_daemon, argument):
    daemon = start_daemon(file_name="tessarad.conf", file_argument=argument)
    assert daemon.stdout().startswith(f"confFile = {daemon.folder}/tessarad.conf\n".encode())


@pytest.mark.parametrize("argument", [
    pytest.param("", id="no option"),
    pytest.param("-conf=", id="an empty option"),
])
def test_else_the_file_beside_the_current_folder_is_found(start_daemon, argument):
    daemon = start_daemon(file_name="../etc/veltrano/tessarad.conf", file_argument=argument)
    name = f"{daemon.folder}/../etc/veltrano/tessarad.conf"
    assert daemon.stdout().startswith(f"confFile = {name}\n".encode())


def dangling_link(path):
    path.symlink_to("nowhere")


def loop_of_links(path):
    path.symlink_to(path.name)


def unreadable_file(path):
    path.write_text("[Network]\nwin_httpserver=not read\n")
    path.chmod(0)


@pytest.mark.parametrize("make", [
    pytest.param(lambda path: None, id="missing"),
    pytest.param(unreadable_file, id="without read permission"),
    pytest.param(os.mkdir, id="a folder"),
    pytest.param(dangling_link, id="a dangling link"),
    pytest.param(loop_of_links, id="a loop of links"),
])
def test_a_file_that_cannot_be_read_leaves_the_defaults(new_daemon, make):
    daemon = new_daemon(obeys_permissions=True)
    name = daemon.folder / "own.conf"
    make(name)
    # The robot's address is given, so that no robot of this machine is disturbed.
    daemon.launch_with([f"-conf={name}", f"-veltrano={daemon.options.robot}", "-resourcepath=web"])
    # Whether the default port 80 can be taken depends on who runs the test, and where.
    daemon.wait_for_output(b"Listening for requests at: http://127.0.0.1:80/\n|Unkown error\n")
    assert daemon.stdout().startswith(
        f"confFile = {name}\n"
        f"General/resourcepath = web\n"
        f"Network/veltrano = {daemon.options.robot}\n".encode())
    assert daemon.stderr() == f'"{name}"\nQMap()\n'.encode()


def test_the_file_beside_the_current_folder_is_taken_without_a_look(new_daemon):
    daemon = new_daemon()
    daemon.launch_with([f"-veltrano={daemon.options.robot}"])
    daemon.wait_for_output(b"Listening for requests at: http://127.0.0.1:80/\n|Unkown error\n")
    name = f"{daemon.folder}/../etc/veltrano/tessarad.conf"
    assert daemon.stdout().startswith(f"confFile = {name}\n".encode())


# What its lines mean


@pytest.mark.parametrize("text, settings", [
    pytest.param("key=value", ["/key = value"], id="before any section"),
    pytest.param("[A]\nkey=value", ["A/key = value"], id="in a section"),
    pytest.param("[A]\nkey value", ["A/key = value"], id="a blank for a separator"),
    pytest.param("[A]\nkey\tvalue", ["A/key = value"], id="a tab for a separator"),
    pytest.param("[A]\nkey = value", ["A/key = = value"], id="blanks around the sign"),
    pytest.param("[A]\nkey=  value", ["A/key =   value"], id="blanks before the value"),
    pytest.param("[A]\nkey=value # note", ["A/key = value # note"], id="no comment in a line"),
    pytest.param("[A]\n=value", ["A/ = value"], id="an empty key"),
    pytest.param("[A]\nkey=", ["A/key = "], id="an empty value"),
    pytest.param("[A]\nkey==", ["A/key = ="], id="a value of a sign"),
    pytest.param("[A]\nkey=a=b c", ["A/key = a=b c"], id="separators in the value"),
    pytest.param('[A]\nkey="a\\nb\\', ['A/key = "a\\nb\\'], id="no quoting and no escapes"),
    pytest.param("[A]\n  \t key=value \t ", ["A/key = value"], id="blanks around a line"),
    pytest.param("[A]\r\nkey=value\r\n", ["A/key = value"], id="CRLF"),
    pytest.param("[A]\nkey", [], id="no separator"),
    pytest.param("[A]\n# key=value\n;key=value\n#\n;", [], id="comments"),
    pytest.param("[A]\n\n \n\t\nkey=value", ["A/key = value"], id="empty lines"),
    pytest.param("[A]\nk=1\nk=2", ["A/k = 2"], id="the last of two"),
    pytest.param("[A]\nk=1\n[B]\nk=2\n[A]\nl=3", ["A/k = 1", "A/l = 3", "B/k = 2"],
                 id="a section in two pieces"),
    pytest.param("[A]\nk=1\nK=2", ["A/K = 2", "A/k = 1"], id="keys with case"),
    pytest.param("[ A ]\nk=1", [" A /k = 1"], id="blanks in a section's name"),
    pytest.param("[A]\n[]\nk=1", ["/k = 1"], id="an empty section"),
    pytest.param("[A]\n[B\nk=1", ["A/k = 1"], id="half a section without a separator"),
    pytest.param("[A]\n[B=1", ["A/[B = 1"], id="half a section is a key"),
    pytest.param("[A]\n[B] x", ["A/[B] = x"], id="text behind a section"),
    pytest.param("[A]\n[a=b]\nk=1", ["a=b/k = 1"], id="a separator in a section's name"),
    pytest.param("[[A]]\nk=1", ["[A]/k = 1"], id="two brackets"),
    pytest.param("[A]\n#@web selection a b\nk=1", ["A/k = 1"], id="a key that the browser edits"),
    pytest.param("[A]\n#@restart command begin\n#@name N\n#@cmd x=y\nk=1", ["A/k = 1"],
                 id="the line that ends a restart block"),
    pytest.param("[A]\n;@restart command begin\n;@name N\nk=1", ["A/k = 1"],
                 id="a restart block with semicolons"),
    pytest.param("[A]\nk=1\n#@restart command begin", ["A/k = 1"],
                 id="a restart block at the end"),
    pytest.param("[A]\n#@restart command begin\n[B]\nk=1", ["B/k = 1"],
                 id="a section that ends a restart block"),
    pytest.param("[A]\nk=Gr\u00f6\u00dfe \u4e2d \U0001f916",
                 ["A/k = Gr\u00f6\u00dfe \u4e2d \U0001f916"], id="not ASCII"),
    pytest.param("", [], id="nothing"),
])
def test_each_line_means_what_the_format_says(start_daemon, text, settings):
    # The text comes last, so that its end is the file's end; a section of it goes on in neither.
    daemon = start_daemon(file=LISTENER + b"[]\n" + text.encode())
    assert settings_of_file(daemon) == settings


def test_settings_are_printed_in_the_order_of_their_keys(start_daemon, no_robot):
    daemon = start_daemon(resources="web", settings={"b/y": "2", "b/x": "1", "B/z": "3", "a/": "4"})
    assert printed_settings(daemon) == [
        "B/z = 3", "General/resourcepath = web", f"Network/veltrano = {no_robot}",
        f"Network/win_httpserver = http://127.0.0.1:{daemon.port}", "a/ = 4", "b/x = 1", "b/y = 2"]


def test_the_error_stream_shows_the_file_before_options_are_merged_in(start_daemon):
    text = b"[General]\nresourcepath=/of/the/file\n[Z]\nkey =  two words\n" + LISTENER
    daemon = start_daemon(file=text, resources="of the option", arguments=["-httpserver=h"])
    assert daemon.stderr().decode() == (
        f'"{daemon.folder}/given.conf"\n'
        f'QMap(("General/resourcepath", "/of/the/file")'
        f'("Network/win_httpserver", "http://127.0.0.1:{daemon.port}")'
        f'("Z/key", "=  two words"))\n')


# What options and defaults replace


def test_the_files_resource_path_gives_way_to_the_default(start_daemon):
    daemon = start_daemon(settings={"General/resourcepath": "/of/the/file"})
    default = f"{daemon.folder}/../opt/veltrano/veltranoweb"
    assert f"General/resourcepath = {default}" in printed_settings(daemon)


def test_files_are_served_from_the_default_resource_path(start_daemon, tmp_path):
    web = tmp_path / "opt/veltrano/veltranoweb"
    web.mkdir(parents=True)
    (web / "index.html").write_bytes(b"default")
    daemon = start_daemon(arguments=["-resourcepath="])
    assert daemon.get("/").body == b"default"


def test_the_files_resource_path_gives_way_to_the_option(start_daemon, tmp_path):
    (tmp_path / "index.html").write_bytes(b"chosen")
    daemon = start_daemon(settings={"General/resourcepath": "/of/the/file"}, resources=tmp_path)
    assert f"General/resourcepath = {tmp_path}" in printed_settings(daemon)
    assert daemon.get("/").body == b"chosen"


def test_the_option_names_the_robot_before_the_file_does(start_daemon, fake_robot):
    daemon = start_daemon(arguments=[f"-veltrano={fake_robot.address}"])
    assert f"Network/veltrano = {fake_robot.address}" in printed_settings(daemon)
    daemon.wait_for_message("Connected")


def test_the_file_names_the_robot_without_an_option(start_daemon, fake_robot):
    daemon = start_daemon(robot=fake_robot.address)
    daemon.wait_for_message("Connected")


def test_without_an_address_the_robot_is_looked_for_on_this_machine(start_daemon):
    with contextlib.ExitStack() as end:
        # Where the port is taken, somebody runs the simulated robot, which serves as well.
        with contextlib.suppress(OSError):
            end.callback(FakeRobot(port=12080).stop)
        daemon = start_daemon(file=LISTENER, robot="")
        assert not any("Network/veltrano" in line for line in printed_settings(daemon))
        daemon.wait_for_message("Connected")


def test_the_options_for_robot_and_listener_are_among_the_settings(start_daemon, no_robot):
    daemon = start_daemon(file=LISTENER, robot=no_robot, arguments=["-httpserver=h:1"])
    settings = printed_settings(daemon)
    assert f"Network/veltrano = {no_robot}" in settings
    assert "Network/httpserver = h:1" in settings


# Awkward files


def test_a_line_of_a_megabyte_is_a_setting_like_any_other(start_daemon):
    value = b"x" * (1 << 20)
    daemon = start_daemon(file=LISTENER + b"[A]\nlong=" + value + b"\nnext=1\n")
    assert settings_of_file(daemon) == [f"A/long = {value.decode()}", "A/next = 1"]
    assert daemon.get("/data/bumper").status == 200


def test_a_megabyte_without_a_separator_is_no_setting(start_daemon):
    daemon = start_daemon(file=b"x" * (1 << 20) + b"\n" + LISTENER)
    assert settings_of_file(daemon) == []


def test_a_file_of_all_bytes_does_no_harm(start_daemon):
    noise = bytes(range(256)) * 400 + b"\n" + bytes(reversed(range(256))) * 400 + b"\n"
    daemon = start_daemon(file=noise + LISTENER)
    assert daemon.get("/data/bumper").status == 200


def test_a_hundred_thousand_settings_are_all_there(start_daemon):
    lines = "".join(f"k{number:05}={number}\n" for number in range(100_000))
    daemon = start_daemon(file=LISTENER + b"[A]\n" + lines.encode())
    settings = settings_of_file(daemon)
    assert len(settings) == 100_000
    assert settings[-1] == "A/k99999 = 99999"
