import assert from "node:assert/strict";
import { test } from "node:test";
import { hashWithSession, newSid, splitHash } from "../../src/data/sid";

test("a session's name is 32 hexadecimal digits and never the same", () => {
  assert.match(newSid(), /^[0-9a-f]{32}$/);
  assert.notEqual(newSid(), newSid());
});

test("what one address hands over the other takes, and the route stays", () => {
  const sid = "0123456789abcdef0123456789abcdef";
  assert.deepEqual(splitHash(`#/network;sid=${sid}`), { route: "#/network", sid });
  assert.deepEqual(splitHash(`#sid=${sid}`), { route: "#", sid });
  assert.match(hashWithSession("/network"), /^#\/network;sid=[0-9a-f]{32}$/);
});

test("anything else is a route", () => {
  for (const hash of [
    "",
    "#/drive",
    "#/drive;sid=abc",
    "#/x;sid=0123456789ABCDEF0123456789ABCDEF",
  ]) {
    assert.deepEqual(splitHash(hash), { route: hash, sid: undefined });
  }
});
