"""The scripts' keyfiles, read by the real nmcli, which needs no running NetworkManager for that."""

from __future__ import annotations

import subprocess

import pytest

from test_network_files import AWKWARD, WIRED


def nmcli(*arguments, stdin=b""):
    run = subprocess.run(["nmcli", "--offline", "connection", *arguments], input=stdin, check=True,
                         stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=60)
    assert run.stderr == b""
    return run.stdout.decode().splitlines()


def as_network_manager_reads(file):
    """Changes nothing but the order and form, which become NetworkManager's own."""
    return nmcli("modify", "connection.stable-id", "", stdin=file.read_bytes())


def values(lines, *keys):
    return [line for line in lines if line.partition("=")[0] in keys]


@pytest.mark.parametrize("ssid", AWKWARD)
def test_network_manager_reads_names_and_passphrases_as_sent(site, ssid):
    psk = (ssid if ssid.isascii() else "") + "-psk-psk"
    assert site.wlan("client", "dhcp", ssid, psk)[0] == 0
    made = nmcli("add", "type", "wifi", "con-name", "wlan", "ifname", "wlan0", "ssid", ssid,
                 "wifi-sec.key-mgmt", "wpa-psk", "wifi-sec.psk", psk)
    keys = ("id", "interface-name", "type", "ssid", "key-mgmt", "psk")
    assert sorted(values(as_network_manager_reads(site.wlan0), *keys)) == sorted(values(made, *keys))


def test_network_manager_reads_a_static_client(site):
    site.wlan("client", "static", "10.1.2.3", "16", "10.1.0.1", "10.1.0.1;9.9.9.9;", "net", "0" * 64)
    lines = as_network_manager_reads(site.wlan0)
    assert values(lines, "address1", "dns", "method", "psk") == [
        "psk=" + "0" * 64, "address1=10.1.2.3/16,10.1.0.1", "dns=10.1.0.1;9.9.9.9;",
        "method=manual", "method=disabled"]


def test_network_manager_reads_an_open_network_made_from_nothing(site):
    site.wlan0.unlink()
    site.wlan("client", "dhcp", "open", "")
    lines = as_network_manager_reads(site.wlan0)
    assert "[wifi-security]" not in lines
    assert "ssid=open" in lines and "mode=infrastructure" in lines


def test_network_manager_reads_all_wired_addresses_and_one_gateway(site):
    site.eth(*WIRED)
    lines = as_network_manager_reads(site.eth0)
    assert values(lines, "address1", "address2", "address3", "dns") == [
        "address1=192.168.0.10/24,192.168.0.1", "address2=10.0.0.10/8", "address3=172.16.0.2/16",
        "dns=8.8.8.8;"]
    assert "autoconnect-priority=7" in lines and "dns-search=robots.example;" in lines


def test_network_manager_reads_an_alias_beside_dhcp(site):
    site.eth("auto", "", "", "0.0.0.0", "", "no", "", "", "", "yes", "10.0.0.10", "8", "0.0.0.0")
    lines = as_network_manager_reads(site.eth0)
    assert values(lines, "address1", "method") == ["address1=10.0.0.10/8", "method=auto",
                                                   "method=disabled"]


@pytest.mark.parametrize("kind", ["ethernet", "wifi"])
def test_a_keyfile_that_nmcli_has_written_keeps_all_but_what_is_set(site, kind):
    own = nmcli("add", "type", kind, "con-name", "mine", "ifname", "x0", "connection.zone", "home",
                "ipv4.method", "manual", "ipv4.addresses", "10.0.0.2/24", "ipv4.routes", "10.9.0.0/16",
                "ipv6.method", "disabled", *(("ssid", "mine") if kind == "wifi" else ()))
    file = site.eth0 if kind == "ethernet" else site.wlan0
    file.write_text("\n".join(own) + "\n")
    if kind == "ethernet":
        site.eth(*WIRED)
    else:
        site.wlan("client", "dhcp", "net", "12345678")
    lines = as_network_manager_reads(file)
    assert {"zone=home", "route1=10.9.0.0/16", *values(own, "uuid")} <= set(lines)
    assert not [line for line in lines if "10.0.0.2" in line or "mine" in line]
