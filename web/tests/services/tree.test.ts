import assert from "node:assert/strict";
import { test } from "node:test";
import {
  decodeServices,
  filtered,
  isInstance,
  isTemplate,
  rowsOf,
  type ServiceGroup,
  statusPath,
} from "../../src/services/tree";

const child = (name: string, active = "active", activation?: string) => ({
  active,
  ...(activation === undefined ? {} : { activation }),
  id: 1,
  load: "loaded",
  name,
  sub: active === "active" ? "running" : "dead",
});

function decoded(...children: unknown[]): ServiceGroup {
  const groups = decodeServices([{ _children: children, name: "group" }]);
  assert.ok(groups?.[0]);
  return groups[0];
}

const names = (groups: readonly ServiceGroup[]) =>
  groups.flatMap((group) => group.services.map((service) => service.name));

test("the activation is unknown for instances only", () => {
  const { services } = decoded(
    child("a", "active", "true"),
    child("b", "active", "false"),
    child("c@1"),
  );
  assert.deepEqual(
    services.map((service) => service.activated),
    [true, false, undefined],
  );
});

for (const json of [
  undefined,
  null,
  1,
  "x",
  {},
  [1],
  [{ name: "g" }],
  [{ name: "g", _children: [{}] }],
]) {
  test(`${JSON.stringify(json)} is taken for nothing`, () => {
    assert.equal(decodeServices(json), undefined);
  });
}

test("a template is told from its instances", () => {
  assert.deepEqual(["a@", "a@b", "a", "a@b@"].map(isTemplate), [true, false, false, true]);
  assert.deepEqual(["a@", "a@b", "a", "a@b@"].map(isInstance), [false, true, false, false]);
});

test("instances stand indented below their template", () => {
  const group = decoded(child("x@1"), child("a"), child("cam@"), child("b"), child("cam@rear"));
  assert.deepEqual(
    rowsOf(group).map(({ service, indented }) => [service.name, indented]),
    [
      ["x@1", false],
      ["a", false],
      ["cam@", false],
      ["cam@rear", true],
      ["b", false],
    ],
  );
});

test("the filter looks at names and states", () => {
  const groups = [decoded(child("lights"), child("mapper", "inactive")), decoded(child("bridge"))];
  assert.deepEqual(names(filtered(groups, "")), ["lights", "mapper", "bridge"]);
  assert.deepEqual(names(filtered(groups, " MAP ")), ["mapper"]);
  assert.deepEqual(names(filtered(groups, "inactive")), ["mapper"]);
  assert.deepEqual(names(filtered(groups, "lights dead")), []);
  assert.equal(filtered(groups, "bridge").length, 1);
});

test("a template stays with the instance that was looked for", () => {
  const groups = [decoded(child("cam@"), child("cam@front"), child("cam@rear"))];
  assert.deepEqual(names(filtered(groups, "rear")), ["cam@", "cam@rear"]);
});

test("names go raw into the path of the status, or not at all", () => {
  assert.equal(statusPath("cam@rear-2.x:y_z"), "/data/servicestatus/cam@rear-2.x:y_z");
  for (const name of ["", "a b", "a/b", "a\\x2db", "a%20b", "a?b", "a#b", "ä", "..", "."]) {
    assert.equal(statusPath(name), undefined, name);
  }
});

test("what passes as a path reaches the daemon as it is", () => {
  const name = "A-z_0:9.@~!$&'()*+,;=";
  assert.equal(new URL(statusPath(name) ?? "", "http://robot").pathname, statusPath(name));
});
