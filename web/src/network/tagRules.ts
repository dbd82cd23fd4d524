import {
  type InterfaceNode,
  keyOf,
  type Leaf,
  type NetworkTree,
  type Values,
  valueAt,
} from "./tree";

/** The words of tags that hold for an interface with these values. */
export function wordsInForce(device: string, values: Values): readonly string[] {
  const wired = /^eth0(?::(\d+))?$/.exec(device);
  if (wired !== null) {
    const isOn =
      wired[1] === undefined
        ? valueAt(values, device, "method") !== "auto"
        : valueAt(values, device, "enable") === "true";
    return [`eth${wired[1] ?? "0"}_${isOn ? "enabled" : "disabled"}`];
  }
  if (valueAt(values, device, "type") === "master") {
    return ["master"];
  }
  // The daemon takes every other type for a client, and every other method for a fixed address.
  return ["client", valueAt(values, device, "method") === "auto" ? "auto" : "manual"];
}

/** Whether the leaf means anything with these values; a form disables those that don't. */
export function counts(device: string, leaf: Leaf, values: Values): boolean {
  const { tag } = leaf;
  return tag === undefined || wordsInForce(device, values).every((word) => tag.includes(word));
}

/** What the daemon reads back where nothing is set. */
function unsetValue(leafName: string): string {
  if (leafName === "netmask") {
    return "24";
  }
  return leafName === "gateway" ? "0.0.0.0" : "";
}

const keepsBlanks = new Set(["ssid", "psk"]);

/** The value of a leaf that has just begun to count, until somebody chooses another. */
function presetValue(leaf: Leaf): string {
  if (leaf.name === "cipher") {
    // A client has none, and what is read for it is the weaker one.
    return "CCMP";
  }
  return leaf.name === "netmask" && leaf.value === "" ? unsetValue(leaf.name) : leaf.value;
}

/** What a form shows for a leaf. */
export function shownValue(node: InterfaceNode, leaf: Leaf, base: Values, edits: Values): string {
  const countedBefore = counts(node.name, leaf, base);
  if (!counts(node.name, leaf, { ...base, ...edits })) {
    // A leaf that counted before and does so no more is given up; what did not count stays as it
    // was, such as a fixed address that the robot has besides one from DHCP.
    return countedBefore ? unsetValue(leaf.name) : leaf.value;
  }
  return edits[keyOf(node.name, leaf.name)] ?? (countedBefore ? leaf.value : presetValue(leaf));
}

function settledLeaf(node: InterfaceNode, leaf: Leaf, base: Values, edits: Values): string {
  const value = shownValue(node, leaf, base, edits);
  const trimmed = keepsBlanks.has(leaf.name) ? value : value.trim();
  return trimmed === "" && leaf.name === "gateway" ? unsetValue("gateway") : trimmed;
}

/**
 * The values as they are sent. They have the form in which the daemon reads them back, so that the
 * same settings are recognised as the same by the controller's scripts.
 */
export function settledValues(tree: NetworkTree, base: Values, edits: Values): Values {
  const settled: Record<string, string> = {};
  for (const node of tree) {
    for (const leaf of node.leaves) {
      settled[keyOf(node.name, leaf.name)] = settledLeaf(node, leaf, base, edits);
    }
  }
  return settled;
}
