"""A controller of its own for a test: network files, the daemon's configuration and fakes for the
programs that would reach the system. The scripts that run on it are the real ones."""

from __future__ import annotations

import os
import subprocess
import time
from pathlib import Path
from typing import Callable, Sequence

HERE = Path(__file__).parent
SCRIPTS = HERE.parents[2] / "system" / "scripts"
FAKED = ("nmcli", "systemd-run", "systemctl", "ifup", "ifdown")
CRASHING = ("mv", "cp", "rm", "sync", "mkdir", "chmod", "cat", "readlink", *FAKED)

KEYFILE = """# Kept by the tests' site.
[connection]
id=old
uuid=11111111-2222-3333-4444-555555555555
type={type}
autoconnect-priority=7

{sections}[ipv4]
method=auto
dns-search=robots.example

[ipv6]
method=disabled
"""
WIFI = "[wifi]\nssid=old\nhidden=true\n\n[wifi-security]\nkey-mgmt=wpa-psk\npsk=old passphrase\n\n"


def wait_for(what: str, condition: Callable[[], object], seconds: float = 60) -> None:
    end = time.monotonic() + seconds
    while not condition():
        assert time.monotonic() < end, f"waited in vain for {what}"
        time.sleep(0.01)


class Site:
    def __init__(self, folder: Path) -> None:
        self.folder = folder
        self.fakes = folder / "fakes"
        self.state = folder / "state"
        self.eth0 = folder / "etc" / "eth0.nmconnection"
        self.wlan0 = folder / "etc" / "wlan.nmconnection"
        self.interfaces = folder / "etc" / "interfaces"
        self.hostapd = folder / "etc" / "hostapd.conf"
        self.configuration = folder / "tessarad.conf"
        self._lay_out()

    def _lay_out(self) -> None:
        self.eth0.parent.mkdir(parents=True)
        (self.fakes / "timers").mkdir(parents=True)
        (self.fakes / "bin").mkdir()
        for name in FAKED:
            (self.fakes / "bin" / name).symlink_to(HERE / "fake")
        self.eth0.write_text(KEYFILE.format(type="ethernet", sections=""))
        self.wlan0.write_text(KEYFILE.format(type="wifi", sections=WIFI))
        self.eth0.chmod(0o600)
        self.wlan0.chmod(0o600)
        self.interfaces.write_text("auto lo\niface lo inet loopback\n")
        self.hostapd.write_text("interface=wlan0\nchannel=11\nssid=old\nwpa_passphrase=old passphrase\n")
        self.configuration.write_text(
            f"[NetworkManager]\neth0={self.eth0}\nwlan0={self.wlan0}\n"
            f"legacyiface={self.interfaces}\nhostapd={self.hostapd}\n")

    def environment(self) -> dict[str, str]:
        return {"PATH": f"{self.fakes / 'bin'}:{os.environ['PATH']}", "FAKES": str(self.fakes),
                "TESSARAD_CONF": str(self.configuration), "TESSARAD_LOCK_WAIT_S": "0",
                "TESSARAD_NETWORK_STATE": str(self.state)}

    # Runs

    def start(self, script: str, *arguments: str, **environment: str) -> subprocess.Popen[bytes]:
        return subprocess.Popen([str(SCRIPTS / script), *arguments], stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                env=self.environment() | environment)

    def run(self, script: str, *arguments: str, **environment: str) -> tuple[int, str]:
        """The exit code and standard output; nothing may go to standard error."""
        process = self.start(script, *arguments, **environment)
        out, err = process.communicate(timeout=120)
        assert err == b"", err.decode()
        return process.returncode, out.decode()

    def eth(self, *arguments: str, **environment: str) -> tuple[int, str]:
        return self.run("configureeth", *arguments, **environment)

    def wlan(self, *arguments: str, **environment: str) -> tuple[int, str]:
        return self.run("configurewlan", *arguments, **environment)

    def run_and_crash(self, at: int, command: Sequence[str]) -> bool:
        """Runs the command and kills it at its at-th step; false when it has ended before."""
        crashes = self.folder / "crashes"
        if not crashes.exists():
            (crashes / "bin").mkdir(parents=True)
            for name in CRASHING:
                (crashes / "bin" / name).symlink_to(HERE / "crash")
        (crashes / "count").write_text("")
        environment = self.environment()
        environment |= {"BEHIND": environment["PATH"], "CRASHES": str(crashes), "CRASH_AT": str(at),
                        "PATH": f"{crashes / 'bin'}:{environment['PATH']}"}
        launcher = 'echo $$ >"$CRASHES/pid"; exec "$@"'
        process = subprocess.run(["/bin/sh", "-c", launcher, "sh", *command], env=environment,
                                 stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, timeout=120,
                                 check=False)
        return process.returncode == -9

    # The fakes

    def calls(self) -> list[str]:
        file = self.fakes / "calls"
        return file.read_text().splitlines() if file.exists() else []

    def forget_calls(self) -> None:
        (self.fakes / "calls").unlink(missing_ok=True)

    def let_fail(self, *patterns: str) -> None:
        (self.fakes / "failing").write_text("".join(f"{pattern}\n" for pattern in patterns))

    def hold(self, pattern: str) -> None:
        (self.fakes / "holding").write_text(f"{pattern}\n")

    def release(self) -> None:
        (self.fakes / "holding").unlink()

    def timers(self) -> list[Path]:
        return sorted((self.fakes / "timers").iterdir())

    def timer_command(self, timer: Path) -> list[str]:
        return timer.read_text().splitlines()

    def fire_timers(self) -> str:
        """Does what all running timers would do at their time; gives what they print."""
        printed = ""
        for timer in self.timers():
            command = self.timer_command(timer)
            timer.unlink(missing_ok=True)
            printed += subprocess.run(command, env=self.environment(), check=False, text=True,
                                      stdout=subprocess.PIPE, timeout=120).stdout
        return printed

    # The files

    def files(self) -> dict[str, bytes | None]:
        return {file.name: file.read_bytes() if file.exists() else None
                for file in (self.eth0, self.wlan0, self.interfaces, self.hostapd)}

    def leftovers(self) -> list[str]:
        return [file.name for file in self.eth0.parent.iterdir() if file.name.startswith(".")]
