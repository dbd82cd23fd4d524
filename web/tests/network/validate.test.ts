import assert from "node:assert/strict";
import { test } from "node:test";
import { settledValues } from "../../src/network/tagRules";
import { type NetworkTree, type Values, valuesOf } from "../../src/network/tree";
import { findingsIn, type Problem } from "../../src/network/validate";
import { wired, wireless } from "./samples";

function errors(tree: NetworkTree, edits: Values): string[] {
  const { errors: found } = findingsIn(tree, settledValues(tree, valuesOf(tree), edits));
  return found.map(({ key, problem }) => `${key} ${problem}`);
}

test("the settings of the samples are sound", () => {
  assert.deepEqual(errors(wired, {}), []);
  assert.deepEqual(errors(wireless, {}), []);
});

const wiredCases: [Values, string[]][] = [
  [{ "eth0/address": "" }, ["eth0/address missing"]],
  [{ "eth0/address": "192.168.0" }, ["eth0/address address"]],
  [{ "eth0/address": "224.0.0.1", "eth0/gateway": "" }, ["eth0/address address"]],
  [{ "eth0/address": "192.168.0.255" }, ["eth0/address host"]],
  [{ "eth0/netmask": "0" }, ["eth0/netmask prefix"]],
  [{ "eth0/gateway": "x" }, ["eth0/gateway gateway"]],
  [{ "eth0/gateway": "192.168.1.1" }, ["eth0/gateway gateway"]],
  [{ "eth0/gateway": "192.168.0.10" }, ["eth0/gateway gateway"]],
  [{ "eth0/gateway": "192.168.0.0" }, ["eth0/gateway gateway"]],
  [{ "eth0/gateway": "" }, []],
  [{ "eth0/dns": "192.168.0.1;1.1.1.1" }, []],
  [{ "eth0/dns": "" }, []],
  [{ "eth0/dns": "192.168.0.1, 1.1.1.1" }, ["eth0/dns dns"]],
  [{ "eth0/dns": ";" }, ["eth0/dns dns"]],
  [{ "eth0/method": "auto", "eth0/address": "nonsense" }, []],
  [{ "eth0:1/address": "nonsense", "eth0:1/enable": "false" }, []],
  [{ "eth0:2/enable": "true" }, ["eth0:2/address missing"]],
  [{ "eth0:1/address": "192.168.0.10", "eth0:1/netmask": "24" }, ["eth0:1/address twice"]],
];

for (const [edits, expected] of wiredCases) {
  test(`wired: ${JSON.stringify(edits)}`, () => {
    assert.deepEqual(errors(wired, edits), expected);
  });
}

test("two interfaces in one network are a warning", () => {
  const edits = { "eth0:1/address": "192.168.0.11", "eth0:1/netmask": "24" };
  const found = findingsIn(wired, settledValues(wired, valuesOf(wired), edits));
  assert.deepEqual(found, {
    errors: [],
    warnings: [{ key: "eth0:1/address", problem: "subnet" }],
  });
});

const names: [string, Problem | undefined][] = [
  ["", "name"],
  ["a", undefined],
  ["ä".repeat(16), undefined],
  ["ä".repeat(17), "name"],
  ["a".repeat(32), undefined],
  ["a".repeat(33), "name"],
  ["a\nb", "name"],
  ["\ud800", "name"],
  ["my ssid=x", "keyword"],
];

for (const [ssid, problem] of names) {
  test(`the network name ${JSON.stringify(ssid)} has ${problem ?? "no"} problem`, () => {
    const expected = problem === undefined ? [] : [`wlan0/ssid ${problem}`];
    assert.deepEqual(errors(wireless, { "wlan0/ssid": ssid }), expected);
  });
}

const keys: [string, Problem | undefined, Problem | undefined][] = [
  ["", undefined, "key"],
  ["1234567", "key", "key"],
  ["12345678", undefined, undefined],
  ["a".repeat(63), undefined, undefined],
  ["a".repeat(64), undefined, "key"],
  ["g".repeat(64), "key", "key"],
  ["schlüssel", "key", "key"],
  ["12345678psk=", "keyword", undefined],
  ["wpa_passphrase=", undefined, "keyword"],
];

for (const [psk, ofClient, ofMaster] of keys) {
  test(`the key ${JSON.stringify(psk)} of a client and of an access point`, () => {
    const list = (problem: Problem | undefined) =>
      problem === undefined ? [] : [`wlan0/psk ${problem}`];
    assert.deepEqual(errors(wireless, { "wlan0/psk": psk }), list(ofClient));
    const edits = { "wlan0/psk": psk, "wlan0/type": "master" };
    assert.deepEqual(errors(wireless, edits), list(ofMaster));
  });
}

test("a fixed address of a client is judged like a wired one", () => {
  assert.deepEqual(errors(wireless, { "wlan0/method": "manual" }), ["wlan0/address missing"]);
});

test("a type that nobody has chosen has to be", () => {
  assert.deepEqual(errors(wireless, { "wlan0/type": "" }), ["wlan0/type type"]);
});
