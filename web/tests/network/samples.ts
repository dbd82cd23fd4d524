import {
  bodyOf,
  decodeTree,
  type Network,
  type NetworkTree,
  type Values,
} from "../../src/network/tree";

const prefixes = Array.from({ length: 33 }, (_, prefix) => String(prefix));

function input(name: string, value: string, tag?: string) {
  return { id: 1, name, value, type: "input", ...(tag !== undefined && { tag }) };
}

function select(name: string, value: string, params: string[], tag?: string) {
  return { ...input(name, value, tag), type: "select", params };
}

function place(alias: number, address: string, netmask: string, gateway: string) {
  const tag = `eth${alias}_enabled`;
  return [
    input("address", address, tag),
    select("netmask", netmask, prefixes, tag),
    input("gateway", gateway, tag),
  ];
}

function alias(number: number, enable: string, address = "", netmask = "24") {
  const tag = `eth${number}_enabled,eth${number}_disabled`;
  const choice = select("enable", enable, ["true", "false"], tag);
  return {
    id: 7,
    name: `eth0:${number}`,
    _children: [choice, ...place(number, address, netmask, "0.0.0.0")],
  };
}

export const wiredJson = [
  {
    id: 1,
    name: "eth0",
    _children: [
      select("method", "manual", ["auto", "manual"]),
      input("dns", "192.168.0.1;"),
      ...place(0, "192.168.0.10", "24", "192.168.0.1"),
    ],
  },
  alias(1, "true", "10.0.0.10", "8"),
  alias(2, "false"),
];

export const always = "master,client,auto,manual";

export const wirelessJson = [
  select("type", "client", ["master", "client"], always),
  select("method", "auto", ["auto", "manual"], "client,auto,manual"),
  input("address", "", "client,manual"),
  select("netmask", "", ["8", "16", "24"], "client,manual"),
  input("gateway", "0.0.0.0", "client,manual"),
  input("dns", "", "client,manual"),
  input("ssid", "robots", always),
  input("psk", "demonstration", always),
  select("cipher", "TKIP", ["CCMP", "TKIP"], "master"),
];

function decoded(network: Network, json: unknown): NetworkTree {
  const tree = decodeTree(network, json);
  if (tree === undefined) {
    throw new Error("The sample is malformed.");
  }
  return tree;
}

export const wired = decoded("eth", wiredJson);
export const wireless = decoded("wlan", wirelessJson);

/** The tree that a later reading would give. */
export function withValues(network: Network, tree: NetworkTree, values: Values): NetworkTree {
  const named = decoded(network, bodyOf(network, tree, values));
  return tree.map((node, at) => ({
    ...node,
    leaves: node.leaves.map((leaf, index) => ({
      ...leaf,
      value: named[at]?.leaves[index]?.value ?? leaf.value,
    })),
  }));
}
