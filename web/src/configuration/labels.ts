import * as texts from "../texts/configuration";
import * as editing from "../texts/editing";
import { type ConfigLeaf, fileNameOf, isSecret } from "./tree";

/** A value as people read it: an empty one would not be seen. */
export function labelOf(value: string): string {
  return value === "" ? texts.empty : value;
}

/** A value in a list that others may look at. */
export function guardedLabel(leaf: ConfigLeaf, value: string): string {
  return isSecret(leaf) && value !== "" ? editing.hidden : labelOf(value);
}

export function placeOf(leaf: ConfigLeaf): string {
  const group = leaf.group === "" ? "" : `${leaf.group} / `;
  return `${fileNameOf(leaf.file)}: ${group}${leaf.name}`;
}
