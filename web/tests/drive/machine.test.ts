import assert from "node:assert/strict";
import { test } from "node:test";
import { type DriveEvent, type DriveModel, lockedAtStart, next } from "../../src/drive/machine";

const held: DriveEvent = { kind: "inputs", isHeld: true, isNeutral: false };
const released: DriveEvent = { kind: "inputs", isHeld: false, isNeutral: true };
const deflected: DriveEvent = { kind: "inputs", isHeld: false, isNeutral: false };
const unlock: DriveEvent = { kind: "unlock" };
const stop: DriveEvent = { kind: "stop" };
const confirmed: DriveEvent = { kind: "stopped", isConfirmed: true };
const unconfirmed: DriveEvent = { kind: "stopped", isConfirmed: false };
const hidden: DriveEvent = { kind: "lock", reason: "hidden" };
const offline: DriveEvent = { kind: "lock", reason: "offline" };

function after(...events: DriveEvent[]): string {
  const model = events.reduce<DriveModel>(next, lockedAtStart);
  return model.reason === undefined ? model.state : `${model.state}: ${model.reason}`;
}

const ways: [string, DriveEvent[], string][] = [
  ["starts locked", [], "locked: start"],
  ["a hold alone moves nothing", [held], "locked: start"],
  ["the switch arms", [unlock], "armed"],
  ["the switch doesn't arm while a control is held", [held, unlock], "locked: notNeutral"],
  ["nor while one is out of its middle", [deflected, unlock], "locked: notNeutral"],
  ["a hold from before never drives", [held, unlock, held], "locked: notNeutral"],
  ["let go, the switch arms", [held, unlock, released, unlock], "armed"],
  ["a hold drives", [unlock, held], "driving"],
  ["a deflection without a hold doesn't", [unlock, deflected], "armed"],
  ["letting go stops", [unlock, held, released], "stopping"],
  ["a control that stays deflected without a hold stops", [unlock, held, deflected], "stopping"],
  ["a confirmed stop leaves it armed", [unlock, held, released, confirmed], "armed"],
  ["an unconfirmed one locks", [unlock, held, released, unconfirmed], "locked: unconfirmed"],
  [
    "a new hold while stopping drives after it",
    [unlock, held, released, held, confirmed],
    "driving",
  ],
  ["but not before", [unlock, held, released, held], "stopping"],
  [
    "nor when the stop is unconfirmed",
    [unlock, held, released, held, unconfirmed],
    "locked: unconfirmed",
  ],
  ["hiding locks", [unlock, hidden], "locked: hidden"],
  ["hiding stops first", [unlock, held, hidden], "stopping: hidden"],
  ["and then locks, whatever is held", [unlock, held, hidden, held, confirmed], "locked: hidden"],
  ["hiding while stopping locks", [unlock, held, released, hidden, confirmed], "locked: hidden"],
  ["the first reason counts", [unlock, held, hidden, offline, confirmed], "locked: hidden"],
  ["a lock that is locked keeps its reason", [hidden], "locked: start"],
  ["the stop button stops what drives", [unlock, held, stop], "stopping: stop"],
  ["and locks", [unlock, held, stop, confirmed], "locked: stop"],
  ["it stops while armed", [unlock, stop], "stopping: stop"],
  ["and while locked, as others may drive", [stop], "stopping: stop"],
  ["and makes a let-go a lock", [unlock, held, released, stop, confirmed], "locked: stop"],
  ["the switch can't cut a stop short", [unlock, held, released, unlock], "stopping"],
  ["the switch while driving does nothing", [unlock, held, unlock], "driving"],
  ["a late end of a stop moves nothing", [unlock, confirmed], "armed"],
];

for (const [name, events, end] of ways) {
  test(name, () => assert.equal(after(...events), end));
}

test("of any two events only the switch and then a hold lead to driving", () => {
  const all = [held, released, deflected, unlock, stop, confirmed, unconfirmed, hidden, offline];
  for (const first of all) {
    for (const second of all) {
      assert.equal(after(first, second) === "driving", first === unlock && second === held);
    }
  }
});
