"""What the daemon makes of the network files, in a few lines: the scripts' texts must come back as they
were sent."""

from __future__ import annotations

from pathlib import Path


def lines(file: Path) -> list[str]:
    return file.read_text("utf-8").split("\n") if file.exists() else []


def split_address(text: str) -> dict[str, str]:
    address, _, rest = text.partition("/")
    netmask, comma, gateway = rest.partition(",")
    return {"address": address, "netmask": netmask, "gateway": gateway if comma else "0.0.0.0"}


def read_wired(file: Path) -> dict[int, dict[str, str]]:
    interfaces: dict[int, dict[str, str]] = {0: {"method": "manual", "dns": ""}}
    inside = False
    for line in lines(file):
        if line.startswith("["):
            inside = line == "[ipv4]"
        if not inside:
            continue
        if line in ("method=auto", "method=manual"):
            interfaces[0]["method"] = line.removeprefix("method=")
        elif line.startswith("dns="):
            interfaces[0]["dns"] = line.replace("dns=", "")
        elif line.startswith("address"):
            rest = line.replace("address", "")
            number = int(rest[0]) if rest[0].isdigit() else 0
            interfaces.setdefault(number - 1, {}).update(split_address(rest[2:]))
    return interfaces


def read_wireless(keyfile: Path, interfaces: Path, hostapd: Path) -> dict[str, str]:
    result = {"type": "", "method": "manual", "gateway": "0.0.0.0", "address": "", "netmask": "",
              "ssid": "", "psk": "", "cipher": ""}
    read_stanza(interfaces, result)
    if result["type"]:
        names = {"wpa_passphrase=": "psk", "rsn_pairwise=": "cipher", "ssid=": "ssid"}
        for line in lines(hostapd):
            take_key(line, names, result)
    elif keyfile.exists():
        result["type"] = "client"
        read_client(keyfile, result)
    return result


def take_key(line: str, names: dict[str, str], result: dict[str, str]) -> None:
    for prefix, field in names.items():
        if line.startswith(prefix):
            result[field] = line.replace(prefix, "")
            return


def read_stanza(file: Path, result: dict[str, str]) -> None:
    masks = {"255.255.255.0": "24", "255.255.0.0": "16", "255.0.0.0": "8"}
    inside = False
    for line in lines(file):
        if "iface" in line:
            inside = "iface wlan0" in line
            if inside:
                result["type"] = "master"
        if not inside:
            continue
        if "address" in line:
            result["address"] = line.replace("address", "").strip()
        elif "netmask" in line:
            result["netmask"] = masks.get(line.replace("netmask", "").strip(), "24")


def read_client(file: Path, result: dict[str, str]) -> None:
    inside = False
    for line in lines(file):
        if line.startswith("["):
            inside = line == "[ipv4]"
        take_key(line, {"ssid=": "ssid", "psk=": "psk"}, result)
        if inside and line.startswith("method="):
            result["method"] = line.replace("method=", "")
        elif inside and line.startswith("address1="):
            result.update(split_address(line.replace("address1=", "")))
