import { isHost, isUnicast, overlaps, parseAddress, parsePrefix } from "./ipv4";
import { counts } from "./tagRules";
import { keyOf, type NetworkTree, type Values, valueAt } from "./tree";
import { problemOfKey, problemOfName } from "./wirelessRules";

export type Problem =
  | "missing"
  | "address"
  | "host"
  | "twice"
  | "prefix"
  | "gateway"
  | "dns"
  | "type"
  | "name"
  | "key"
  | "keyword"
  | "subnet";

export interface Finding {
  readonly key: string;
  readonly problem: Problem;
}

/** Errors keep the settings from being sent, warnings are shown before. */
export interface Findings {
  readonly errors: readonly Finding[];
  readonly warnings: readonly Finding[];
}

interface Placed {
  readonly key: string;
  readonly address: number;
  readonly prefix: number;
}

function problemOfAddress(text: string, prefix: number | undefined): Problem | undefined {
  const address = parseAddress(text);
  if (address === undefined || !isUnicast(address)) {
    return text === "" ? "missing" : "address";
  }
  return prefix !== undefined && !isHost(address, prefix) ? "host" : undefined;
}

/** A gateway is another host in the interface's network; 0.0.0.0 is none. */
function problemOfGateway(text: string, { address, prefix }: Placed): Problem | undefined {
  const gateway = parseAddress(text);
  const isSound =
    gateway === 0 ||
    (gateway !== undefined &&
      gateway !== address &&
      overlaps(gateway, prefix, address, prefix) &&
      isHost(gateway, prefix));
  return isSound ? undefined : "gateway";
}

function problemOfDns(text: string): Problem | undefined {
  const servers = text.replace(/;$/, "").split(";");
  const isServer = (server: string) => {
    const address = parseAddress(server);
    return address !== undefined && isUnicast(address);
  };
  return text === "" || servers.every(isServer) ? undefined : "dns";
}

/** What is wrong with settled values, of leaves that count. */
export function findingsIn(tree: NetworkTree, values: Values): Findings {
  const errors: Finding[] = [];
  const warnings: Finding[] = [];
  const placed: Placed[] = [];
  for (const { name, leaves } of tree) {
    const ofLeaf = new Set(leaves.filter((leaf) => counts(name, leaf, values)).map((l) => l.name));
    const note = (leafName: string, check: (value: string) => Problem | undefined) => {
      const problem = ofLeaf.has(leafName) ? check(valueAt(values, name, leafName)) : undefined;
      if (problem !== undefined) {
        errors.push({ key: keyOf(name, leafName), problem });
      }
    };
    const prefix = parsePrefix(valueAt(values, name, "netmask"));
    const address = parseAddress(valueAt(values, name, "address"));
    note("type", (text) => (text === "" ? "type" : undefined));
    note("address", (text) => problemOfAddress(text, prefix));
    note("netmask", () => (prefix === undefined ? "prefix" : undefined));
    if (ofLeaf.has("address") && address !== undefined && prefix !== undefined) {
      const place = { key: keyOf(name, "address"), address, prefix };
      note("gateway", (text) => problemOfGateway(text, place));
      placed.push(place);
    }
    note("dns", problemOfDns);
    note("ssid", problemOfName);
    note("psk", (text) => problemOfKey(text, valueAt(values, name, "type") === "master"));
  }
  for (const [index, later] of placed.entries()) {
    for (const earlier of placed.slice(0, index)) {
      if (earlier.address === later.address) {
        errors.push({ key: later.key, problem: "twice" });
      } else if (overlaps(earlier.address, earlier.prefix, later.address, later.prefix)) {
        warnings.push({ key: later.key, problem: "subnet" });
      }
    }
  }
  return { errors, warnings };
}
