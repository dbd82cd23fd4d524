import assert from "node:assert/strict";
import { test } from "node:test";
import { guardLeaving, mayLeave } from "../../src/frame/guards";
import { hashOf, pathOf } from "../../src/frame/route";

test("the first part of the hash names the page", () => {
  assert.equal(pathOf("#/drive"), "drive");
  assert.equal(pathOf("#drive"), "drive");
  assert.equal(pathOf("#/network/eth0"), "network");
  assert.equal(pathOf("#/network;x=1"), "network");
  assert.equal(pathOf(hashOf("io")), "io");
  for (const hash of ["", "#", "#/", "drive"]) {
    assert.equal(pathOf(hash), "");
  }
});

test("a page is left when all who guard it agree, in turn", async () => {
  assert.equal(await mayLeave(), true);
  const asked: string[] = [];
  const check = (name: string, agrees: boolean) => async () => {
    asked.push(name);
    return agrees;
  };
  const releases = [guardLeaving(check("a", true)), guardLeaving(check("b", false))];
  releases.push(guardLeaving(check("c", true)));
  assert.equal(await mayLeave(), false);
  assert.deepEqual(asked, ["a", "b"]);
  for (const release of releases) {
    release();
  }
  assert.equal(await mayLeave(), true);
});
