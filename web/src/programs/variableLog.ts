import { effect, signal } from "@preact/signals";
import { variables } from "./resources";
import { countChanges, type ShownVariable } from "./variables";

/** The variables of now, with how often each was seen to change. */
export const variableLog = signal<readonly ShownVariable[]>([]);

effect(() => {
  const list = variables.value.value;
  if (list !== undefined) {
    variableLog.value = countChanges(variableLog.peek(), list);
  }
});
