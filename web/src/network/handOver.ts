import { hashWithSession } from "../data/sid";
import type { Network } from "./tree";

/** A trial that a page at another address has begun, as it stands in the fragment of the address. */
export interface HandedTrial {
  readonly network: Network;
  /** When the trial ends, in milliseconds since 1970. */
  readonly until: number;
  /** The host from where it was begun. */
  readonly from: string;
  /** Name servers of the wireless network, which the robot never shows again. */
  readonly dns: string;
}

const pattern = /;trial=(eth|wlan),(\d{1,15}),([0-9.]*),([0-9.;]*?)(?=;sid=|$)/;

export function routeWithTrial(trial: HandedTrial): string {
  const { network, until, from, dns } = trial;
  return `/network;trial=${network},${until},${from},${dns}`;
}

export function trialIn(hash: string): HandedTrial | undefined {
  const [, network, until, from = "", dns = ""] = pattern.exec(hash) ?? [];
  return network === "eth" || network === "wlan"
    ? { network, until: Number(until), from, dns }
    : undefined;
}

export function withoutTrial(hash: string): string {
  return hash.replace(pattern, "").replace(/;$/, "");
}

/** The page at the new address. Storage does not follow there, so the session goes along. */
export function addressAfterMove(origin: string, trial: HandedTrial | undefined): string {
  const route = trial === undefined ? "/network" : routeWithTrial(trial);
  return `${origin}/${hashWithSession(route)}`;
}
