import { asArray, asString, field } from "../data/decode";
import { isMaxima } from "./speedLimits";
import type { Maxima } from "./velocity";

/** The robot's own limits from the tree of its configuration; undefined where it shows none. */
export function robotLimits(tree: unknown): Maxima | undefined {
  const found = new Map<string, number>();
  collect(tree, found);
  const limits = {
    vx: found.get("vxmax"),
    vy: found.get("vymax"),
    omega: found.get("omegamax"),
  };
  return isMaxima(limits) ? limits : undefined;
}

function collect(nodes: unknown, found: Map<string, number>): void {
  for (const node of asArray(nodes) ?? []) {
    const name = asString(field(node, "name"));
    const value = asString(field(node, "value"));
    if (name !== undefined && value !== undefined && field(node, "group") === "Omnidrive") {
      found.set(name, Number.parseFloat(value));
    }
    collect(field(node, "_children"), found);
  }
}
