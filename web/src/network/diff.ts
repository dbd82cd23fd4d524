import { counts } from "./tagRules";
import { keyOf, type NetworkTree, type Values } from "./tree";

export interface Change {
  readonly device: string;
  readonly leafName: string;
  readonly from: string;
  readonly to: string;
}

/** Every leaf whose value differs, in the order of the tree. */
export function changesBetween(tree: NetworkTree, before: Values, after: Values): Change[] {
  return tree.flatMap(({ name, leaves }) =>
    leaves.flatMap((leaf) => {
      const key = keyOf(name, leaf.name);
      const from = before[key] ?? leaf.value;
      const to = after[key] ?? leaf.value;
      return from === to ? [] : [{ device: name, leafName: leaf.name, from, to }];
    }),
  );
}

/** The name servers of the wireless network can be written, but are never read back. */
export function canBeReadBack(device: string, leafName: string): boolean {
  return !(leafName === "dns" && !device.startsWith("eth"));
}

/** What did not take effect: from what the robot shows to what it was sent. */
export function notTaken(tree: NetworkTree, sent: Values, shown: Values): Change[] {
  const isWired = tree.some(({ name }) => name.startsWith("eth"));
  const meaning = new Set(
    tree.flatMap(({ name, leaves }) =>
      leaves
        .filter((leaf) => counts(name, leaf, sent) && canBeReadBack(name, leaf.name))
        .map((leaf) => keyOf(name, leaf.name)),
    ),
  );
  return changesBetween(tree, shown, sent).filter(
    ({ device, leafName, from, to }) =>
      meaning.has(keyOf(device, leafName)) &&
      !(isWired && leafName === "dns" && withoutEnd(from) === withoutEnd(to)),
  );
}

function withoutEnd(list: string): string {
  return list.replace(/;$/, "");
}
