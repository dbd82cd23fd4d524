import assert from "node:assert/strict";
import { test } from "node:test";
import { problemOfRename } from "../../src/programs/changeFile";
import { decodePrograms, downloadAddress, fileNameOf } from "../../src/programs/programList";
import { emptyScrollback, mergeRing } from "../../src/programs/ringMerge";
import {
  countChanges,
  decodeOutput,
  decodeVariables,
  numericValue,
} from "../../src/programs/variables";
import { isLocked, isNotActive, toneOf } from "../../src/services/serviceState";
import { allServices, decodeServices, filtered, rowsOf, statusPath } from "../../src/services/tree";
import { randomJson, randomNumbers } from "../support/randomJson";

const texts = ["", "a", "a@", "a@b", "running", "active", "\ud800", "../x", "1e999", "constructor"];
const names = ["name", "suffix", "action", "value", "load", "active", "sub"];

/** What the daemon would say, with members that are missing or of another kind here and there. */
function nearlyRight(random: () => number, depth = 1): unknown {
  const isDamaged = () => random() < 0.02;
  return Array.from({ length: Math.floor(random() * 4) }, () => {
    const members = names.map((name) => [
      name,
      isDamaged() ? randomJson(random) : texts[Math.floor(random() * texts.length)],
    ]);
    if (depth > 0) {
      members.push(["_children", isDamaged() ? randomJson(random) : nearlyRight(random, 0)]);
    }
    return isDamaged() ? randomJson(random) : Object.fromEntries(members);
  });
}

const rounds = 5000;

test("whatever the robot says can be shown", () => {
  const random = randomNumbers(11);
  const seen = { programs: 0, variables: 0, output: 0, services: 0 };
  for (let round = 0; round < rounds; round += 1) {
    const json = round % 2 === 0 ? randomJson(random) : nearlyRight(random);
    const programs = decodePrograms(json);
    for (const program of programs ?? []) {
      assert.equal(typeof fileNameOf(program), "string");
      downloadAddress(program);
      problemOfRename(program, "x", programs ?? []);
      seen.programs += 1;
    }
    for (const { value } of countChanges([], decodeVariables(json) ?? [])) {
      assert.ok(Number.isFinite(numericValue(value) ?? 0));
      seen.variables += 1;
    }
    const lines = decodeOutput(json) ?? [];
    assert.equal(mergeRing(emptyScrollback, lines).entries.length, lines.length);
    seen.output += lines.length;
    const groups = decodeServices(json) ?? [];
    for (const service of allServices(groups)) {
      assert.match(toneOf(service), /^(ok|warn|bad|neutral)$/);
      assert.equal(typeof isLocked(service), typeof isNotActive(service));
      statusPath(service.name);
      seen.services += 1;
    }
    const shown = groups.flatMap((group) => rowsOf(group));
    assert.equal(shown.length, allServices(groups).length);
    assert.deepEqual(filtered(groups, "").flatMap(rowsOf).length, shown.length);
  }
  assert.ok(
    Object.values(seen).every((count) => count > 0),
    JSON.stringify(seen),
  );
});
