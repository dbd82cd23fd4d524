import { arrayOf, asString, field } from "../data/decode";
import { decodeField, type FieldNode } from "./fieldNode";

export interface ConfigLeaf extends FieldNode {
  /** What tells the leaf from all others, also in a later answer. */
  readonly key: string;
  readonly file: string;
  readonly group: string;
}

export interface ConfigGroup {
  /** Empty for the keys before the first section. */
  readonly name: string;
  readonly leaves: readonly ConfigLeaf[];
}

export interface ConfigFile {
  readonly path: string;
  readonly groups: readonly ConfigGroup[];
}

function decodeLeaf(json: unknown): ConfigLeaf | undefined {
  const file = asString(field(json, "file"));
  const group = asString(field(json, "group"));
  const node = decodeField(json);
  return file === undefined || group === undefined || node === undefined
    ? undefined
    : { ...node, key: JSON.stringify([file, group, node.name]), file, group };
}

/** Of a key that a file holds twice the last one is in force, and a write changes both alike. */
function withoutTwins(leaves: readonly ConfigLeaf[]): ConfigLeaf[] {
  return [...new Map(leaves.map((leaf) => [leaf.key, leaf])).values()];
}

function decodeFile(json: unknown): ConfigFile | undefined {
  const path = asString(field(json, "name"));
  const nodes = arrayOf(field(json, "_children"), (node) =>
    field(node, "value") === undefined ? decodeGroup(node) : decodeLeaf(node),
  );
  if (path === undefined || nodes === undefined) {
    return undefined;
  }
  const loose = withoutTwins(nodes.flatMap((node) => ("key" in node ? [node] : [])));
  const groups = nodes.flatMap((node) => ("key" in node ? [] : [node]));
  return { path, groups: loose.length === 0 ? groups : [{ name: "", leaves: loose }, ...groups] };
}

function decodeGroup(json: unknown): ConfigGroup | undefined {
  const name = asString(field(json, "name"));
  const leaves = arrayOf(field(json, "_children"), decodeLeaf);
  return name === undefined || leaves === undefined
    ? undefined
    : { name, leaves: withoutTwins(leaves) };
}

export function decodeConfiguration(json: unknown): ConfigFile[] | undefined {
  return arrayOf(json, decodeFile);
}

export function leavesOf(files: readonly ConfigFile[]): ConfigLeaf[] {
  return files.flatMap((file) => file.groups.flatMap((group) => group.leaves));
}

/** The choices of a select, with the present value where it is none of them. */
export function optionsOf(leaf: ConfigLeaf): readonly string[] {
  const choices = leaf.choices ?? [];
  return choices.includes(leaf.value) ? choices : [leaf.value, ...choices];
}

export function fileNameOf(path: string): string {
  return path.slice(path.lastIndexOf("/") + 1);
}

/** Values that are shown only when somebody asks for them. */
export function isSecret(leaf: ConfigLeaf): boolean {
  const isPassword = /passw|passphrase|secret|psk/i.test(leaf.name);
  return leaf.choices === undefined && (isPassword || leaf.group === "Login");
}
