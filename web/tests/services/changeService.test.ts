import assert from "node:assert/strict";
import { test } from "node:test";
import type { WriteOutcome } from "../../src/data/requests";
import { type ChangeDeps, changeService } from "../../src/services/changeService";
import type { Service, ServiceGroup } from "../../src/services/tree";

const service = (name: string, active: string, activated?: boolean): Service => ({
  name,
  load: "loaded",
  active,
  sub: "",
  activated,
});

/** One reading a second, the last one for ever. */
function robot(readings: (Service[] | undefined)[], outcome: WriteOutcome["state"] = "accepted") {
  const sent: string[] = [];
  const deps: ChangeDeps & { sent: string[]; polls: number } = {
    sent,
    polls: 0,
    send: async (action, name) => {
      sent.push(`${action} ${name}`);
      return outcome === "accepted" ? { state: outcome, value: undefined } : { state: outcome };
    },
    readServices: async (): Promise<ServiceGroup[] | undefined> => {
      const services = readings[Math.min(deps.polls++, readings.length - 1)];
      return services && [{ name: "group", services }];
    },
    sleep: async (milliseconds) => assert.equal(milliseconds, 1000),
  };
  return deps;
}

test("a start is done when the service is active", async () => {
  const deps = robot([
    [service("a", "inactive")],
    [service("a", "activating")],
    [service("a", "active")],
  ]);
  assert.equal(await changeService("start", "a", deps), "done");
  assert.deepEqual(deps.sent, ["start a"]);
  assert.equal(deps.polls, 3);
});

test("without a change it is given up after ten seconds", async () => {
  const deps = robot([[service("a", "inactive")]]);
  assert.equal(await changeService("start", "a", deps), "notSeen");
  assert.equal(deps.polls, 10);
});

test("a service that fails is told apart from one that takes long", async () => {
  assert.equal(await changeService("start", "a", robot([[service("a", "failed")]])), "failed");
  assert.equal(
    await changeService("start", "a", robot([[service("a", "activating")]])),
    "changing",
  );
  assert.equal(
    await changeService("stop", "a", robot([[service("a", "deactivating")]])),
    "changing",
  );
});

test("a service that failed before is given time to start", async () => {
  const deps = robot([[service("a", "failed")], [service("a", "active")]]);
  assert.equal(await changeService("start", "a", deps), "done");
});

test("a template is started when all of its instances are", async () => {
  const half = [service("c@", ""), service("c@1", "active"), service("c@2", "inactive")];
  const whole = [service("c@", ""), service("c@1", "active"), service("c@2", "active")];
  const deps = robot([half, whole]);
  assert.equal(await changeService("start", "c@", deps), "done");
  assert.equal(deps.polls, 2);
});

test("an activation is seen in the activation", async () => {
  const before = [service("a", "active", true)];
  const after = [service("a", "active", false)];
  assert.equal(await changeService("deactivate", "a", robot([before, after])), "done");
  assert.equal(await changeService("activate", "a", robot([after, before])), "done");
  assert.equal(await changeService("activate", "c@", robot([[service("c@", "", true)]])), "done");
});

test("a refusal is told unless the change shows all the same", async () => {
  const idle = [service("a", "inactive")];
  assert.equal(await changeService("start", "a", robot([idle], "refused")), "refused");
  assert.equal(await changeService("start", "a", robot([idle], "unreachable")), "unreachable");
  const late = robot([idle, [service("a", "active")]], "refused");
  assert.equal(await changeService("start", "a", late), "done");
});

test("readings that fail are no change", async () => {
  const deps = robot([undefined, undefined, [service("a", "inactive")]]);
  assert.equal(await changeService("stop", "a", deps), "done");
});

test("a service that has gone from the list is not done", async () => {
  assert.equal(await changeService("stop", "a", robot([[]])), "notSeen");
});
