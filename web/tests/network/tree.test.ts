import assert from "node:assert/strict";
import { test } from "node:test";
import { bodyOf, decodeTree, valuesOf } from "../../src/network/tree";
import { always, wired, wireless, wirelessJson } from "./samples";

test("the wired tree is three interfaces", () => {
  assert.deepEqual(
    wired.map(({ name, leaves }) => [name, leaves.map((leaf) => leaf.name)]),
    [
      ["eth0", ["method", "dns", "address", "netmask", "gateway"]],
      ["eth0:1", ["enable", "address", "netmask", "gateway"]],
      ["eth0:2", ["enable", "address", "netmask", "gateway"]],
    ],
  );
});

test("the wireless leaves belong to one interface, with their tags and choices", () => {
  const [node] = wireless;
  assert.equal(node?.leaves.length, 9);
  assert.deepEqual(node?.leaves[0], {
    name: "type",
    value: "client",
    choices: ["master", "client"],
    tag: always.split(","),
  });
  assert.equal(node?.leaves[6]?.choices, undefined);
});

test("what is written has the shape of what was read", () => {
  const values = { ...valuesOf(wired), "eth0:1/enable": "false" };
  assert.deepEqual((bodyOf("eth", wired, values) as unknown[])[1], {
    name: "eth0:1",
    _children: [
      { name: "enable", value: "false" },
      { name: "address", value: "10.0.0.10" },
      { name: "netmask", value: "8" },
      { name: "gateway", value: "0.0.0.0" },
    ],
  });
  assert.deepEqual(
    bodyOf("wlan", wireless, valuesOf(wireless)),
    wirelessJson.map(({ name, value }) => ({ name, value })),
  );
});

test("whatever is malformed gives nothing and throws nothing", () => {
  for (const json of [undefined, null, 7, "x", {}, [7], [{}], [{ name: "eth0" }]]) {
    assert.equal(decodeTree("eth", json), undefined);
    assert.equal(decodeTree("wlan", json), undefined);
  }
});
