"""The files that the scripts leave: read back as sent, with all that isn't theirs as it was."""

from __future__ import annotations

from pathlib import Path

import pytest

from support.readers import read_wired, read_wireless

DATA = Path(__file__).parents[1] / "data" / "network"
WIRED = ("manual", "192.168.0.10", "24", "192.168.0.1", "8.8.8.8;", "yes", "10.0.0.10", "8",
         "10.0.0.1", "yes", "172.16.0.2", "16", "0.0.0.0")


def wireless(site):
    return read_wireless(site.wlan0, site.interfaces, site.hostapd)


def test_all_three_wired_interfaces_read_back_as_sent(site):
    code, text = site.eth(*WIRED)
    assert code == 0
    assert "2 gateways; NetworkManager uses the first" in text
    assert read_wired(site.eth0) == {
        0: {"method": "manual", "dns": "8.8.8.8;", "address": "192.168.0.10", "netmask": "24",
            "gateway": "192.168.0.1"},
        1: {"address": "10.0.0.10", "netmask": "8", "gateway": "10.0.0.1"},
        2: {"address": "172.16.0.2", "netmask": "16", "gateway": "0.0.0.0"}}


def test_a_keyfile_keeps_what_is_not_set(site):
    site.eth(*WIRED)
    assert site.eth0.read_text() == """# Kept by the tests' site.
[connection]
id=eth0
uuid=11111111-2222-3333-4444-555555555555
type=ethernet
interface-name=eth0
autoconnect-priority=7

[ipv4]
method=manual
dns=8.8.8.8;
address1=192.168.0.10/24,192.168.0.1
address2=10.0.0.10/8,10.0.0.1
address3=172.16.0.2/16
dns-search=robots.example

[ipv6]
method=disabled
"""


@pytest.mark.parametrize("old", [
    pytest.param(b"", id="empty"),
    pytest.param(b"[ipv4]\r\nmethod=manual\r\naddress1=1.2.3.4/8\r\n", id="CRLF"),
    pytest.param(b"[ipv4]\nmethod=manual", id="no final newline"),
    pytest.param(b" [ipv4] \n method = manual\n address1 = 1.2.3.4/8\n", id="indented"),
    pytest.param(b"[ipv4]\nmethod=manual\n[802-3-ethernet]\n[ipv4]\naddresses1=1.2.3.4/8\ngateway=1.2.3.1\n",
                 id="a section twice, old names"),
    pytest.param(None, id="absent"),
])
def test_an_awkward_keyfile_becomes_a_good_one(site, old):
    site.eth0.unlink()
    if old is not None:
        site.eth0.write_bytes(old)
    assert site.eth(*WIRED)[0] == 0
    assert read_wired(site.eth0)[0]["address"] == "192.168.0.10"
    assert b"1.2.3" not in site.eth0.read_bytes()
    assert site.eth0.read_bytes().count(b"[ipv4]\nmethod=manual\n") == 1
    assert site.eth0.stat().st_mode & 0o777 == 0o600


def test_a_keyfile_that_others_could_read_is_closed(site):
    site.eth0.chmod(0o644)
    site.eth(*WIRED)
    assert site.eth0.stat().st_mode & 0o777 == 0o600


def test_the_other_files_keep_their_mode(site):
    site.interfaces.chmod(0o640)
    site.hostapd.chmod(0o604)
    site.wlan("master", "robot", "CCMP", "12345678")
    assert site.interfaces.stat().st_mode & 0o777 == 0o640
    assert site.hostapd.stat().st_mode & 0o777 == 0o604


def test_a_link_stays_a_link(site):
    real = site.folder / "elsewhere"
    site.eth0.rename(real)
    site.eth0.symlink_to(real)
    site.eth(*WIRED)
    assert site.eth0.is_symlink()
    assert read_wired(real)[0]["address"] == "192.168.0.10"


AWKWARD = [" leading", "  two", "trailing ", "a;b", "12;34;", "1;", "back\\slash", "a\\;b", "Büro",
           "#comment", "[ipv4]", "key=value", "\\s", "%s$(id)`id`\"'", "*"]


@pytest.mark.parametrize("ssid", AWKWARD)
def test_names_and_passphrases_read_back_as_sent(site, ssid):
    psk = (ssid if ssid.isascii() else "") + "-psk-psk"
    expected = {"method": "auto", "ssid": ssid, "psk": psk, "type": "client"}
    assert site.wlan("client", "dhcp", ssid, psk)[0] == 0
    assert expected.items() <= wireless(site).items()
    expected = {"type": "master", "ssid": ssid, "psk": psk, "cipher": "TKIP", "netmask": "24"}
    assert site.wlan("master", ssid, "TKIP", psk)[0] == 0
    assert expected.items() <= wireless(site).items()


def test_a_static_client_reads_back_as_sent(site):
    assert site.wlan("client", "static", "10.1.2.3", "16", "10.1.0.1", "10.1.0.1;", "net", "f" * 64)[0] == 0
    assert wireless(site) == {
        "type": "client", "method": "manual", "address": "10.1.2.3", "netmask": "16",
        "gateway": "10.1.0.1", "ssid": "net", "psk": "f" * 64, "cipher": ""}


def test_an_open_network_has_no_security_left(site):
    site.wlan("client", "dhcp", "open", "")
    assert wireless(site)["psk"] == ""
    assert "security" not in site.wlan0.read_text()
    assert "hidden=true" in site.wlan0.read_text()


def test_a_client_touches_neither_hostapd_nor_other_stanzas(site):
    before = site.files()
    site.wlan("client", "dhcp", "net", "12345678")
    after = site.files()
    assert [name for name in after if after[name] != before[name]] == ["wlan.nmconnection"]


def test_an_access_point_comes_and_goes_without_a_trace(site):
    before = site.interfaces.read_text()
    site.wlan("master", "net", "CCMP", "12345678")
    site.wlan("master", "net", "CCMP", "12345678")
    assert site.interfaces.read_text() == before + """
auto wlan0
iface wlan0 inet static
    address 192.168.12.1
    netmask 255.255.255.0
"""
    site.wlan("client", "dhcp", "net", "12345678")
    assert site.interfaces.read_text() == before


STANZA = """auto lo wlan0
iface lo inet loopback

# iface wlan0 inet static
#     address 9.9.9.9
iface wlan0 inet static
    address 10.9.8.1/16
    # inside
    up ip address show \\
        dev wlan0
# The address of the printer is 10.9.8.7.
iface eth7 inet static
    address 10.7.7.7
    netmask 255.0.0.0
"""


def test_a_stanza_amid_others_goes_alone_and_comes_back_with_its_address(site):
    site.interfaces.write_text(STANZA)
    site.wlan("client", "dhcp", "net", "12345678")
    assert wireless(site)["type"] == "client"
    assert site.interfaces.read_text() == """auto lo
iface lo inet loopback

# iface  wlan0 inet static
#     address 9.9.9.9
    # inside
# The address of the printer is 10.9.8.7.
iface eth7 inet static
    address 10.7.7.7
    netmask 255.0.0.0
"""
    site.wlan("client", "dhcp", "net", "12345678")
    site.wlan("master", "net", "CCMP", "12345678")
    found = wireless(site)
    assert (found["address"], found["netmask"]) == ("10.9.8.1", "16")


def test_a_stanza_that_the_daemon_would_misread_is_put_in_order(site):
    site.interfaces.write_text(STANZA)
    site.wlan("master", "net", "CCMP", "12345678")
    found = wireless(site)
    assert (found["address"], found["netmask"]) == ("10.9.8.1", "16")
    assert "    up ip address show \\\n        dev wlan0\n" in site.interfaces.read_text()
    assert site.interfaces.read_text().startswith("auto lo wlan0\n")


@pytest.mark.parametrize("stanza, arguments, reason", [
    pytest.param("iface wlan0:1 inet static\n    address 10.0.0.1/8\n",
                 ("client", "dhcp", "net", "12345678"), "another stanza", id="wlan0:1 for a client"),
    pytest.param("iface wlan0 inet dhcp\niface wlan0 inet static\n    address 10.0.0.1/8\n",
                 ("master", "net", "CCMP", "12345678"), "several stanzas", id="two for a master"),
])
def test_an_interfaces_file_that_cannot_be_made_right_is_left_alone(site, stanza, arguments, reason):
    site.interfaces.write_text(stanza)
    before = site.files()
    code, text = site.wlan(*arguments)
    assert code == 3
    assert reason in text
    assert site.files() == before and site.calls() == []


def test_the_form_of_ifupdowns_example_survives(site):
    example = (DATA / "ifupdown-0.8.41-network-interfaces").read_text()
    site.interfaces.write_text(example)
    site.wlan("master", "net", "CCMP", "12345678")
    assert site.interfaces.read_text().startswith(example)
    assert wireless(site)["address"] == "192.168.12.1"


def test_the_form_of_hostapds_example_survives(site):
    example = (DATA / "hostapd-2.10-hostapd.conf").read_text()
    site.hostapd.write_text(example)
    site.wlan("master", "robot 7", "CCMP", "pass phrase")
    lines = site.hostapd.read_text().splitlines()
    kept = [line for line in example.splitlines() if line not in ("ssid=test", "wpa=1")]
    assert [line for line in lines if line in kept] == kept
    assert [line for line in lines if line not in kept] == [
        "ssid=robot 7", "wpa=2", "wpa_key_mgmt=WPA-PSK", "rsn_pairwise=CCMP",
        "wpa_passphrase=pass phrase"]


def test_what_would_outweigh_a_passphrase_goes(site):
    site.hostapd.write_text("ssid=a\nssid2=\"b\"\nwpa_psk=" + "0" * 64 + "\nssid=c\n")
    site.wlan("master", "net", "CCMP", "12345678")
    text = site.hostapd.read_text()
    assert "ssid2" not in text and "wpa_psk" not in text and text.count("ssid=") == 1


def test_a_hostapd_file_of_several_networks_is_left_alone(site):
    site.hostapd.write_text("ssid=a\nbss=wlan0_0\nssid=b\n")
    before = site.files()
    assert site.wlan("master", "net", "CCMP", "12345678")[0] == 3
    assert site.files() == before


def test_an_access_point_is_made_from_nothing(site):
    for file in (site.interfaces, site.hostapd, site.wlan0):
        file.unlink()
    assert site.wlan("master", "net", "CCMP", "12345678")[0] == 0
    assert wireless(site)["address"] == "192.168.12.1"
    assert "interface=wlan0\n" in site.hostapd.read_text()
    assert site.hostapd.stat().st_mode & 0o777 == 0o600
    assert site.interfaces.stat().st_mode & 0o777 == 0o644
