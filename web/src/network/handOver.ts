import { hashWithSession } from "../data/sid";
import type { Network } from "./tree";

/** What goes on at another address, as it stands in the fragment of the address. */
export interface HandedFlow {
  readonly network: Network;
  /** When the trial ends, in milliseconds since 1970; 0 where the script hasn't ended yet. */
  readonly until: number;
  /** The host from where it was begun. */
  readonly from: string;
  /** Tells the text of the run before from a new one. */
  readonly oldText: string;
  /** Name servers of the wireless network, which the robot never shows again. */
  readonly dns: string;
}

const pattern = /;apply=(eth|wlan),(\d{1,15}),([\w.:-]*),([0-9a-f]{0,8}),([0-9.;]*?)(?=;sid=|$)/;

export function fingerprint(text: string): string {
  let sum = 0x811c9dc5;
  for (const character of text) {
    sum = Math.imul(sum ^ (character.codePointAt(0) ?? 0), 0x01000193);
  }
  return (sum >>> 0).toString(16);
}

export function routeWithFlow({ network, until, from, oldText, dns }: HandedFlow): string {
  return `/network;apply=${network},${until},${from},${oldText},${dns}`;
}

export function flowIn(hash: string): HandedFlow | undefined {
  const [, network, until, from = "", oldText = "", dns = ""] = pattern.exec(hash) ?? [];
  return network === "eth" || network === "wlan"
    ? { network, until: Number(until), from, oldText, dns }
    : undefined;
}

export function withoutFlow(hash: string): string {
  return hash.replace(pattern, "");
}

/** The page at the new address. Storage does not follow there, so the session goes along. */
export function addressAfterMove(origin: string, flow: HandedFlow | undefined): string {
  const route = flow === undefined ? "/network" : routeWithFlow(flow);
  return `${origin}/${hashWithSession(route)}`;
}
