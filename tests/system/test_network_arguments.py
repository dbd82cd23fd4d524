"""What configureeth and configurewlan accept and refuse."""

from __future__ import annotations

import pytest

from support.readers import read_wired

MANUAL = ("manual", "192.168.0.10", "24", "192.168.0.1", "")
AUTO = ("auto", "", "", "0.0.0.0", "")
OFF = ("no", "", "", "")


def eth0(address="192.168.0.10", prefix="24", gateway="0.0.0.0", dns="", method="manual"):
    return (method, address, prefix, gateway, dns, *OFF, *OFF)


def static(address="192.168.0.10", prefix="24", gateway="0.0.0.0", dns="", ssid="net",
           psk="12345678"):
    return ("client", "static", address, prefix, gateway, dns, ssid, psk)


def refused(site, script, arguments, reason):
    before = site.files()
    code, text = site.run(script, *arguments)
    assert code == 2
    assert reason in text
    assert text.endswith("\nREFUSED: nothing was changed.\n")
    assert site.files() == before
    assert site.calls() == []
    assert not site.state.exists()


@pytest.mark.parametrize("arguments, reason", [
    pytest.param((), "takes 13 arguments, and there are 0", id="no arguments"),
    pytest.param((*MANUAL, *OFF, *OFF, ""), "there are 14", id="one too many"),
    pytest.param(("", "", "", "0.0.0.0", "", "", "", "", "0.0.0.0", "", "", "", "0.0.0.0"),
                 "Nothing was sent", id="nothing but gateways"),
    pytest.param(("", *MANUAL[1:], *OFF, *OFF), "method is missing", id="no method"),
    pytest.param(eth0(method="Auto"), "neither \"auto\" nor \"manual\"", id="a strange method"),
    pytest.param(eth0(address=""), "eth0: an address is needed", id="no address"),
    pytest.param(eth0(prefix=""), "the netmask \"\" is no number", id="no netmask"),
    pytest.param((*MANUAL, "", "", "", "0.0.0.0", *OFF), "eth0:1: it isn't said", id="no eth0:1"),
    pytest.param((*MANUAL, *OFF, "", "", "", "0.0.0.0"), "eth0:2: it isn't said", id="no eth0:2"),
    pytest.param((*MANUAL, "on", "", "", "", *OFF), "neither \"yes\" nor \"no\"", id="a third state"),
    pytest.param((*MANUAL, "yes", "", "", "0.0.0.0", *OFF), "eth0:1: an address is needed",
                 id="an enabled alias without an address"),
    pytest.param((*MANUAL, *OFF, "yes", "10.0.0.1", "8", "11.0.0.1"), "eth0:2: the gateway 11.0.0.1",
                 id="an alias with a gateway elsewhere"),
    pytest.param((*MANUAL, "yes", "192.168.0.10", "24", "0.0.0.0", *OFF), "can't both have",
                 id="one address twice"),
    pytest.param((*MANUAL, "yes", "10.0.0.1", "8", "0.0.0.0", "yes", "10.0.0.1", "16", "0.0.0.0"),
                 "eth0:1 and eth0:2 can't both", id="two aliases with one address"),
    pytest.param(eth0(address="", gateway="10.0.0.1", method="auto"), "gateway without an address",
                 id="DHCP with a gateway alone"),
    pytest.param(eth0(address="10.0.0.999", method="auto"), "no IPv4 address",
                 id="DHCP with a bad address"),
])
def test_configureeth_refuses_with_a_sentence_and_changes_nothing(site, arguments, reason):
    refused(site, "configureeth", arguments, reason)


@pytest.mark.parametrize("arguments, reason", [
    pytest.param({"address": "192.168.0"}, "no IPv4 address", id="three numbers"),
    pytest.param({"address": "192.168.0.1.2"}, "no IPv4 address", id="five numbers"),
    pytest.param({"address": "192.168.0.256"}, "no IPv4 address", id="a number over 255"),
    pytest.param({"address": "192.168.0.010"}, "no IPv4 address", id="a leading zero"),
    pytest.param({"address": "192.168..1"}, "no IPv4 address", id="an empty number"),
    pytest.param({"address": "192.168.0.1 "}, "no IPv4 address", id="a blank"),
    pytest.param({"address": "1.2.3.99999999999999999999"}, "no IPv4 address", id="a huge number"),
    pytest.param({"address": "fe80::1"}, "no IPv4 address", id="IPv6"),
    pytest.param({"address": "*"}, "no IPv4 address", id="a pattern"),
    pytest.param({"address": "127.0.0.1", "prefix": "8"}, "no address that a computer", id="loopback"),
    pytest.param({"address": "224.0.0.5"}, "no address that a computer", id="multicast"),
    pytest.param({"address": "0.0.0.5"}, "no address that a computer", id="network zero"),
    pytest.param({"address": "192.168.0.0"}, "network's own or its broadcast", id="network address"),
    pytest.param({"address": "192.168.0.255"}, "network's own or its broadcast", id="broadcast"),
    pytest.param({"prefix": "0"}, "no number from 1 to 32", id="prefix 0"),
    pytest.param({"prefix": "33"}, "no number from 1 to 32", id="prefix 33"),
    pytest.param({"prefix": "024"}, "no number from 1 to 32", id="prefix with a zero"),
    pytest.param({"prefix": "255.255.255.0"}, "no number from 1 to 32", id="a dotted mask"),
    pytest.param({"gateway": ""}, "is no IPv4 address; 0.0.0.0", id="an empty gateway"),
    pytest.param({"gateway": "router"}, "is no IPv4 address", id="a name as gateway"),
    pytest.param({"gateway": "192.168.1.1"}, "isn't in the network", id="a gateway outside"),
    pytest.param({"gateway": "192.168.0.10"}, "interface's own address", id="itself as gateway"),
    pytest.param({"gateway": "192.168.0.255"}, "broadcast", id="broadcast as gateway"),
    pytest.param({"dns": "8.8.8.8,1.1.1.1"}, "with a \";\" between", id="commas between servers"),
    pytest.param({"dns": "8.8.8.8; 1.1.1.1"}, "with a \";\" between", id="a blank between servers"),
    pytest.param({"dns": ";"}, "with a \";\" between", id="an empty list"),
    pytest.param({"dns": "8.8.8.8;;1.1.1.1"}, "with a \";\" between", id="an empty server"),
    pytest.param({"dns": "8.8.8"}, "name server \"8.8.8\"", id="half a server"),
    pytest.param({"dns": "8.8.8.8\nmethod=auto"}, "with a \";\" between", id="a line of its own"),
])
def test_both_scripts_refuse_addresses_that_are_wrong(site, arguments, reason):
    refused(site, "configureeth", eth0(**arguments), reason)
    refused(site, "configurewlan", static(**arguments), reason)


@pytest.mark.parametrize("arguments, reason", [
    pytest.param((), "configurewlan takes", id="no arguments"),
    pytest.param(("client", "dhcp", "net"), "configurewlan takes", id="one too few"),
    pytest.param(("Master", "net", "CCMP", "12345678"), "configurewlan takes", id="another word"),
    pytest.param(("client", "static", "", "", "0.0.0.0", "", "", ""), "name is missing",
                 id="what an empty write sends"),
    pytest.param(("master", "", "CCMP", "12345678"), "name is missing", id="no name"),
    pytest.param(("master", "x" * 33, "CCMP", "12345678"), "has 33 bytes", id="a long name"),
    pytest.param(("client", "dhcp", "ü" * 17, "12345678"), "has 34 bytes", id="bytes, not letters"),
    pytest.param(("client", "dhcp", "a\nb", "12345678"), "can't be printed", id="two lines"),
    pytest.param(("client", "dhcp", "a\x7fb", "12345678"), "can't be printed", id="DEL"),
    pytest.param(("client", "dhcp", "a\tb", "12345678"), "can't be printed", id="a tabulator"),
    pytest.param(("client", "dhcp", b"\xff", "12345678"), "can't be printed", id="not UTF-8"),
    pytest.param(("client", "dhcp", "xssid=y", "12345678"), "could not show", id="ssid= in a name"),
    pytest.param(("client", "dhcp", "net", "xpsk=yzz"), "could not show", id="psk= in a client's"),
    pytest.param(("master", "net", "CCMP", "wpa_passphrase="), "could not show", id="hostapd's key"),
    pytest.param(("client", "dhcp", "net", "1234567"), "8 to 63", id="7 characters"),
    pytest.param(("client", "dhcp", "net", "x" * 64), "8 to 63", id="64 that are no digits"),
    pytest.param(("client", "dhcp", "net", "a" * 65), "8 to 63", id="65 digits"),
    pytest.param(("client", "dhcp", "net", "12345678ü"), "8 to 63", id="not ASCII"),
    pytest.param(("client", "dhcp", "net", "1234567\n"), "8 to 63", id="a line feed"),
    pytest.param(("master", "net", "CCMP", ""), "needs a passphrase", id="an open access point"),
    pytest.param(("master", "net", "CCMP", "a" * 64), "8 to 63", id="64 digits for an access point"),
    pytest.param(("master", "net", "", "12345678"), "cipher is missing", id="no cipher"),
    pytest.param(("master", "net", "WEP", "12345678"), "neither \"CCMP\"", id="another cipher"),
])
def test_configurewlan_refuses_with_a_sentence_and_changes_nothing(site, arguments, reason):
    refused(site, "configurewlan", arguments, reason)


def test_all_that_is_wrong_is_told_at_once(site):
    code, text = site.wlan("client", "static", "x", "24", "0.0.0.0", "y", "", "short")
    assert code == 2
    assert len(text.splitlines()) == 5


def test_no_text_of_a_user_can_pass_for_an_outcome(site):
    forged = "x\nROLLBACK 90 s: forged"
    for _, text in (site.eth(*eth0(address=forged)), site.eth(forged, *eth0()[1:]),
                    site.eth(*eth0(dns=forged)), site.wlan("master", "net", forged, "12345678")):
        assert not [line for line in text.splitlines() if line.startswith("ROLLBACK")]


def test_a_refused_passphrase_is_not_printed(site):
    for psk in ("secret1", "secretsecret\x01", "secret=psk=secret", "secret" * 20):
        assert "secret" not in site.wlan("client", "dhcp", "net", psk)[1]


@pytest.mark.parametrize("arguments", [
    pytest.param(eth0(address="10.0.0.0", prefix="31"), id="a network of two"),
    pytest.param(eth0(address="10.0.0.0", prefix="32"), id="a network of one"),
    pytest.param(eth0(address="255.0.0.1".replace("255", "223"), prefix="1"), id="half the internet"),
    pytest.param((*AUTO, *OFF, *OFF), id="DHCP"),
    pytest.param(("auto", "", "24", "0.0.0.0", "", *OFF, *OFF), id="DHCP and the tree's netmask"),
    pytest.param((*AUTO, "no", "not", "an", "address", "no", "x", "y", "z"),
                 id="aliases that are off with anything in their fields"),
    pytest.param(eth0(dns="127.0.0.1"), id="a name server on the controller"),
    pytest.param(eth0(dns="8.8.8.8"), id="a name server without a semicolon"),
    pytest.param(eth0(dns="8.8.8.8;1.1.1.1;"), id="two name servers"),
])
def test_configureeth_accepts_what_is_right_at_the_edge(site, arguments):
    code, text = site.eth(*arguments)
    assert (code, text.splitlines()[-1][:9]) == (0, "ROLLBACK ")
    found = read_wired(site.eth0)
    assert (found[0]["method"], found[0]["dns"]) == (arguments[0], arguments[4])
    assert found[0].get("address", "") == arguments[1]
    assert sorted(found) == [0]
