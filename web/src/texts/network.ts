import type { Effect } from "../network/carrier";
import type { End, FlowState, Reach } from "../network/flowState";
import type { Problem } from "../network/validate";

const leafNames: Readonly<Record<string, string>> = {
  method: "Address from",
  dns: "Name servers",
  address: "IPv4 address",
  netmask: "Netmask",
  gateway: "Gateway",
  enable: "In use",
  type: "Role",
  ssid: "Network name (SSID)",
  psk: "WPA key",
  cipher: "Cipher",
};

const choiceNames: Readonly<Record<string, string>> = {
  auto: "DHCP",
  manual: "Fixed address",
  true: "yes",
  false: "no",
  master: "Access point",
  client: "Client of a network",
  CCMP: "CCMP (AES)",
  TKIP: "TKIP (old, weak)",
};

export const problems: Readonly<Record<Problem, string>> = {
  missing: "An address is needed.",
  address: "This is no address for a computer, such as 192.168.0.10.",
  host: "This is the network's own or its broadcast address.",
  twice: "Another interface has this address.",
  prefix: "Choose a netmask from /1 to /32.",
  gateway: "The gateway must be another address in the same network. 0.0.0.0 means none.",
  dns: "IPv4 addresses with “;” between them.",
  type: "Choose one.",
  name: "1 to 32 bytes, without control characters.",
  key: "8 to 63 plain letters, digits and signs.",
  keyword: "The robot can't show a text with its own keyword in it.",
  subnet: "Another interface is in the same network.",
};

const ends: Readonly<Record<End, string>> = {
  notAccepted: "The robot did not take the settings. Are you still admin?",
  kept: "The new settings are kept.",
  unchanged: "These settings were in force already.",
  refused: "The script refused the settings. Nothing was changed.",
  restored: "The new settings did not come up. The old ones are in force.",
  failed: "The new settings did not come up, and nor did the old ones.",
  noRollback:
    "The script has ended. No rollback is installed: nothing brings the old settings back.",
  reverted: "The old settings are in force again.",
  expired: "The time ran out: the old settings are in force again.",
  unclear: "The time is over, but the new settings are still in the robot's files.",
  silent: "No new output of the script. What it did isn't known.",
};

const answers = "The robot answers at ";

export const reaches: Readonly<Record<Reach, string>> = {
  unknown: "Looking for the robot…",
  old: `${answers}this address.`,
  new: `${answers}the new address.`,
  both: `${answers}this and the new address.`,
  nowhere:
    "The robot answers nowhere. Should it stay away, connect a cable or join its new network. It takes back settings on trial by itself.",
};

export function effectOn(effect: Effect): string {
  if (effect.kind === "unknown") {
    return "If you reach the robot through this network, the connection may break.";
  }
  if (effect.kind === "untouched") {
    return "This page uses another interface and should stay connected.";
  }
  const own = `This page uses ${effect.device}. `;
  if (effect.kind === "interrupted") {
    return `${own}It will lose the robot for a moment.`;
  }
  return effect.kind === "moves"
    ? `${own}The robot leaves this address and will be found at`
    : `${own}The robot leaves this address, and its new one isn't known here.`;
}

export function stageOf({ stage, end, written, wish }: FlowState): string {
  if (end !== undefined) {
    return ends[end];
  }
  if (wish !== undefined) {
    return wish === "keep" ? "Keeping the new settings…" : "Bringing the old settings back…";
  }
  if (stage === "trial") {
    return "The new settings are on trial. Keep them, or the old ones come back by themselves.";
  }
  if (stage === "expiring") {
    return "The time is over. Waiting for the old settings…";
  }
  return written === "accepted"
    ? "The robot accepted the settings. Waiting for its script…"
    : "Sending the settings…";
}

export const title = { eth: "Ethernet", wlan: "Wireless" };
export const leaf = (name: string) => leafNames[name] ?? name;
export const choice = (value: string) => choiceNames[value] ?? (value || "(none)");
export const netmask = (prefix: string, mask: string) => `/${prefix} (${mask})`;
export const hints: Readonly<Record<string, string>> = {
  gateway: "0.0.0.0 means none.",
  dns: "Several with “;” between them.",
};
export const wirelessServers =
  "The robot never shows these. Type them with every change, or they are removed.";
export const openNetwork = "Empty for an open network.";

export const needsLogin =
  "Operators see the wireless settings too, and only an admin can change settings.";
export const logIn = "Log in";
export const noHardware = "No wireless hardware found";
export const review = "Review and apply";
export const nothingLeft = "The robot has all of these settings already.";
export const reviewTitle = "Apply these settings?";
export const apply = "Apply";

export const panel = { eth: "Ethernet settings", wlan: "Wireless settings" };
export const countdown = (seconds: number) => `${seconds} s left`;
export const newAddress = "New address:";
export const oldAddress = "Old address:";
export const sameText = "No new output: the script may print the same as the last time.";
export const noText =
  "The script printed nothing. It may be missing, or another change has stopped it.";
export const differs = "The robot's files hold otherwise:";
export const matches = "The robot's files hold the settings as they were sent.";
export const keep = "Keep settings";
export const revert = "Revert";
export const waitForRevert = "To go back, let the time run out.";

export const result = "Last output of the script";
export const noResult = "No script has ended since the daemon's start.";
export const keepLast =
  "The last change was put on trial. Where its time isn't over, this keeps it.";
export const info = (name: string) => `Connection ${name}, as the robot's system sees it`;
export const noInfo = "The system tells nothing of it.";
