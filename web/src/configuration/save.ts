import { write } from "../data/requests";
import { bodyOf, type ConfigChange } from "./changes";
import { daemonsIn, type NotTaken, notTakenIn } from "./readBack";
import { load } from "./store";

export interface SaveReport {
  readonly state: "refused" | "unreachable" | "unverified" | "checked";
  readonly count: number;
  readonly notTaken: readonly NotTaken[];
  readonly daemons: readonly string[];
}

/** Writes the changes and reads the files again: the reply alone says nothing about success. */
export async function save(changes: readonly ConfigChange[]): Promise<SaveReport> {
  const outcome = await write("/data/config", bodyOf(changes), { timeoutMs: 5000 });
  const none = { count: changes.length, notTaken: [], daemons: [] };
  if (outcome.state === "refused") {
    return { ...none, state: "refused" };
  }
  const files = await load();
  const daemons = outcome.state === "accepted" ? daemonsIn(outcome.value) : [];
  if (files === undefined) {
    return { ...none, daemons, state: outcome.state === "accepted" ? "unverified" : "unreachable" };
  }
  const notTaken = notTakenIn(files, changes);
  const isLost = outcome.state === "unreachable" && notTaken.length === changes.length;
  return { ...none, daemons, notTaken, state: isLost ? "unreachable" : "checked" };
}
