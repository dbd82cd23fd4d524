import { decodeField, type FieldNode } from "../configuration/fieldNode";
import { arrayOf, asString, field } from "../data/decode";

export type Network = "eth" | "wlan";

export interface Leaf extends FieldNode {
  /** The words for which the leaf counts; undefined where it always does. */
  readonly tag: readonly string[] | undefined;
}

export interface InterfaceNode {
  readonly name: string;
  readonly leaves: readonly Leaf[];
}

export type NetworkTree = readonly InterfaceNode[];

/** The values of a tree by `keyOf`; a form's edits are of the same kind. */
export type Values = Readonly<Record<string, string>>;

export const wirelessName = "wlan0";

export function keyOf(device: string, leafName: string): string {
  return `${device}/${leafName}`;
}

function decodeLeaf(json: unknown): Leaf | undefined {
  const node = decodeField(json);
  const tag = asString(field(json, "tag"));
  return node && { ...node, tag: tag?.split(",").map((word) => word.trim()) };
}

function decodeInterface(json: unknown): InterfaceNode | undefined {
  const name = asString(field(json, "name"));
  const leaves = arrayOf(field(json, "_children"), decodeLeaf);
  return name === undefined || leaves === undefined ? undefined : { name, leaves };
}

/** The wired tree has a node for each interface, the wireless one is the leaves of a single one. */
export function decodeTree(network: Network, json: unknown): NetworkTree | undefined {
  if (network === "eth") {
    return arrayOf(json, decodeInterface);
  }
  const leaves = arrayOf(json, decodeLeaf);
  return leaves === undefined ? undefined : [{ name: wirelessName, leaves }];
}

export function valuesOf(tree: NetworkTree): Values {
  const values: Record<string, string> = {};
  for (const { name, leaves } of tree) {
    for (const leaf of leaves) {
      values[keyOf(name, leaf.name)] = leaf.value;
    }
  }
  return values;
}

export function valueAt(values: Values, device: string, leafName: string): string {
  return values[keyOf(device, leafName)] ?? "";
}

/** What the daemon takes: the shape of its own tree, with nothing but names and values. */
export function bodyOf(network: Network, tree: NetworkTree, values: Values): unknown {
  const nodes = tree.map(({ name, leaves }) => ({
    name,
    _children: leaves.map((leaf) => ({
      name: leaf.name,
      value: values[keyOf(name, leaf.name)] ?? leaf.value,
    })),
  }));
  return network === "eth" ? nodes : (nodes[0]?._children ?? []);
}
