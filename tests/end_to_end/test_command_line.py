"""The command line: the usage text, the options' order and what they change."""

from __future__ import annotations

import pytest

USAGE = b"""tessarad version 20190319
tessarad [OPTIONS]
options:
-v         : verbose
-vv        : more verbose
-vvv       : more and more verbose
-veltrano=address  : RPC server address (default 127.0.0.1:12080)
-daemon    : run as daemon
-httpserver=XXXX:YYYY : listen at address XXXX at port XXXX (default is 0.0.0.0:8080)
-resourcepath=XXXX  : where to find the resources
-conf=XXXX : where to find the configuration file (default /etc/veltrano/tessarad.conf)
"""


@pytest.mark.parametrize("arguments", [
    pytest.param(["-daemonize"], id="longer than -daemon"),
    pytest.param(["-daemo"], id="shorter than -daemon"),
    pytest.param([""], id="an empty argument"),
    pytest.param(["-h"], id="an unknown option"),
    pytest.param(["--v"], id="two dashes"),
    pytest.param(["-V"], id="another case"),
    pytest.param(["-conf"], id="a value option without its equals sign"),
    pytest.param(["-vvv", "-conf=tessarad.conf", "-daemon", "help"], id="the last of many"),
    pytest.param([b"\xff\xfe"], id="not UTF-8"),
])
def test_an_unknown_argument_prints_the_usage_and_nothing_else(new_daemon, arguments):
    daemon = new_daemon()
    (daemon.folder / "tessarad.conf").write_text("[Network]\nwin_httpserver=http://127.0.0.1:1\n")
    daemon.launch_with(arguments)
    assert daemon.wait_for_end() == 0
    assert daemon.stdout() == USAGE
    assert daemon.stderr() == b""
    assert not (daemon.folder / "tessarad_log.txt").exists()


@pytest.mark.parametrize("arguments, level", [
    pytest.param(["-v"], 1, id="-v"),
    pytest.param(["-vv"], 2, id="-vv"),
    pytest.param(["-vvv"], 3, id="-vvv"),
    pytest.param(["-vvv", "-v"], 1, id="the last one wins downwards"),
    pytest.param(["-v", "-vvv"], 3, id="the last one wins upwards"),
    pytest.param(["-verbose"], 1, id="a longer word"),
    pytest.param(["-vvvv"], 3, id="more than three"),
    pytest.param(["-vv="], 2, id="with an equals sign"),
])
def test_the_verbose_options_choose_the_level(start_daemon, arguments, level):
    daemon = start_daemon(arguments=arguments)
    daemon.get("/data/bumper")
    daemon.stop()
    messages = daemon.messages()
    assert ("tessarad started" in messages) == (level >= 1)
    assert ("DataHandler::data with path /data/bumper" in messages) == (level >= 2)
    assert any(text.startswith("GET /data/bumper HTTP/1.1") for text in messages) == (level >= 3)


@pytest.mark.parametrize("argument, setting", [
    pytest.param("-httpserver=-httpserver=x", "Network/httpserver = x", id="the text twice"),
    pytest.param("-httpserver=a-httpserver=b", "Network/httpserver = ab", id="the text inside"),
    pytest.param("-httpserver=0.0.0.0:8080", "Network/httpserver = 0.0.0.0:8080", id="plain"),
    pytest.param("-httpserver=-HTTPSERVER=x", "Network/httpserver = -HTTPSERVER=x", id="case"),
    pytest.param("-resourcepath=w-resourcepath=eb", "General/resourcepath = web", id="resources"),
    pytest.param("-resourcepath=Gr\u00f6\u00dfe \u4e2d",
                 "General/resourcepath = Gr\u00f6\u00dfe \u4e2d", id="not ASCII"),
])
def test_a_value_is_its_argument_without_the_options_text(start_daemon, argument, setting):
    daemon = start_daemon(arguments=[argument])
    assert f"\n{setting}\n".encode() in daemon.stdout()


def test_the_httpserver_option_does_not_move_the_listener(start_daemon):
    daemon = start_daemon(arguments=["-httpserver=127.0.0.1:9"])
    assert f"Listening for requests at: http://127.0.0.1:{daemon.port}/".encode() in daemon.stdout()
    assert daemon.get("/data/bumper").status == 200


@pytest.mark.parametrize("argument, key", [
    ("-httpserver=", "Network/httpserver"),
    ("-veltrano=", "Network/veltrano"),
])
def test_an_option_with_an_empty_value_counts_as_not_given(start_daemon, no_robot, argument, key):
    daemon = start_daemon(settings={"Network/httpserver": "of the file"}, arguments=[argument])
    value = {"Network/httpserver": "of the file", "Network/veltrano": no_robot}[key]
    assert f"\n{key} = {value}\n".encode() in daemon.stdout()
