import * as editing from "../texts/editing";
import * as texts from "../texts/network";
import { dottedMask, parsePrefix } from "./ipv4";

/** A value as people read it. */
export function labelOf(leafName: string, value: string): string {
  const prefix = leafName === "netmask" ? parsePrefix(value) : undefined;
  return prefix === undefined ? texts.choice(value) : texts.netmask(value, dottedMask(prefix));
}

/** A value in a list that others may look at. */
export function guardedLabel(leafName: string, value: string): string {
  return leafName === "psk" && value !== "" ? editing.hidden : labelOf(leafName, value);
}
