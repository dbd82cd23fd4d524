import { write } from "../data/requests";
import { toast } from "../kit/toasts";
import * as texts from "../texts/io";
import type { OutputMemory } from "./outputMemory";

/** Sends all values of an array and keeps in mind what is known of it afterwards. */
export async function switchOutputs(
  path: string,
  memory: OutputMemory,
  values: readonly boolean[],
): Promise<void> {
  const outcome = await write(path, values);
  if (outcome.state === "accepted") {
    memory.remember(values, Date.now());
    return;
  }
  const isLost = outcome.state === "unreachable";
  if (isLost) {
    // It may have arrived all the same.
    memory.forget();
  }
  toast(isLost ? texts.unreachable : texts.refused, { kind: "error" });
}
