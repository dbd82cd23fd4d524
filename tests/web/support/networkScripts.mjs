// The network's files and scripts of a running robot.
import { appendFileSync, cpSync, mkdirSync } from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";

const root = path.resolve(path.dirname(fileURLToPath(import.meta.url)), "../../..");

/** Gives the robot the demo's network files, and the place of one of them. */
export function prepareNetwork(robot) {
  const folder = path.join(robot.folder, "network");
  cpSync(path.join(root, "demo/scripts/network"), folder, { recursive: true });
  return (name) => path.join(folder, name);
}

/** Where the robot's settings have to look for a configureeth that takes loopback addresses as well. */
export const loopbackScript = "../loopback/demo/scripts/configureeth";

/** Copies the scripts to that place: of all addresses, a test can reach only those of the loopback. */
export function prepareLoopbackScript(robot) {
  const folder = path.join(robot.base, "loopback");
  mkdirSync(folder);
  for (const scripts of ["demo/scripts", "system/scripts"]) {
    cpSync(path.join(root, scripts), path.join(folder, scripts), { recursive: true });
  }
  // Of two functions of a name, the later one counts.
  appendFileSync(path.join(folder, "system/scripts/network/checks.sh"), "is_unicast() { :; }\n");
}
