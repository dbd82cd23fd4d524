import assert from "node:assert/strict";
import { test } from "node:test";
import { counts, settledValues, shownValue, wordsInForce } from "../../src/network/tagRules";
import { type NetworkTree, type Values, valuesOf } from "../../src/network/tree";
import { wired, wireless, withValues } from "./samples";

function counting(tree: NetworkTree, device: string, edits: Values): string[] {
  const values = { ...valuesOf(tree), ...edits };
  const node = tree.find(({ name }) => name === device);
  return (node?.leaves ?? [])
    .filter((leaf) => counts(device, leaf, values))
    .map(({ name }) => name);
}

test("a fixed wired address counts with the method manual only", () => {
  assert.deepEqual(counting(wired, "eth0", {}), ["method", "dns", "address", "netmask", "gateway"]);
  assert.deepEqual(counting(wired, "eth0", { "eth0/method": "auto" }), ["method", "dns"]);
});

test("an alias counts while it is enabled, whatever the others are", () => {
  assert.equal(counting(wired, "eth0:1", { "eth0/method": "auto" }).length, 4);
  assert.deepEqual(counting(wired, "eth0:2", {}), ["enable"]);
  assert.equal(counting(wired, "eth0:2", { "eth0:2/enable": "true" }).length, 4);
});

test("an access point has a name, a key and a cipher", () => {
  assert.deepEqual(counting(wireless, "wlan0", { "wlan0/type": "master" }), [
    "type",
    "ssid",
    "psk",
    "cipher",
  ]);
});

test("a client has a method, and an address where that is manual", () => {
  assert.deepEqual(counting(wireless, "wlan0", {}), ["type", "method", "ssid", "psk"]);
  assert.deepEqual(counting(wireless, "wlan0", { "wlan0/method": "manual" }), [
    "type",
    "method",
    "address",
    "netmask",
    "gateway",
    "dns",
    "ssid",
    "psk",
  ]);
});

test("an unknown type counts as a client, as it does for the daemon", () => {
  assert.deepEqual(wordsInForce("wlan0", { "wlan0/type": "", "wlan0/method": "auto" }), [
    "client",
    "auto",
  ]);
});

test("values that stay are sent as they were read", () => {
  assert.deepEqual(settledValues(wired, valuesOf(wired), {}), valuesOf(wired));
  assert.deepEqual(settledValues(wireless, valuesOf(wireless), {}), valuesOf(wireless));
});

test("what counts no more is given up in the form in which it is read back", () => {
  const sent = settledValues(wired, valuesOf(wired), {
    "eth0:1/enable": "false",
    "eth0:1/address": "10.0.0.77",
  });
  assert.equal(sent["eth0:1/address"], "");
  assert.equal(sent["eth0:1/netmask"], "24");
  assert.equal(sent["eth0:1/gateway"], "0.0.0.0");
  const again = withValues("eth", wired, sent);
  assert.deepEqual(settledValues(again, valuesOf(again), {}), sent);
});

test("a fixed address that is had besides one from DHCP stays", () => {
  const besides = withValues("eth", wired, { ...valuesOf(wired), "eth0/method": "auto" });
  const sent = settledValues(besides, valuesOf(besides), { "eth0/dns": "" });
  assert.equal(sent["eth0/address"], "192.168.0.10");
});

test("blanks around addresses go, those of names and keys stay", () => {
  const edits = { "eth0/address": " 192.168.0.11 ", "eth0/gateway": "  " };
  const sent = settledValues(wired, valuesOf(wired), edits);
  assert.equal(sent["eth0/address"], "192.168.0.11");
  assert.equal(sent["eth0/gateway"], "0.0.0.0");
  const named = settledValues(wireless, valuesOf(wireless), { "wlan0/ssid": " a " });
  assert.equal(named["wlan0/ssid"], " a ");
});

test("what begins to count has a sound value until another is chosen", () => {
  const base = valuesOf(wireless);
  const asMaster = settledValues(wireless, base, { "wlan0/type": "master" });
  assert.equal(asMaster["wlan0/cipher"], "CCMP");
  const chosen = { "wlan0/type": "master", "wlan0/cipher": "TKIP" };
  assert.equal(settledValues(wireless, base, chosen)["wlan0/cipher"], "TKIP");
  const fixed = settledValues(wireless, base, { "wlan0/method": "manual" });
  assert.equal(fixed["wlan0/netmask"], "24");
});

test("a field shows what is typed, as it is typed", () => {
  const [node] = wired;
  const gateway = node?.leaves.find(({ name }) => name === "gateway");
  assert.ok(node && gateway);
  assert.equal(shownValue(node, gateway, valuesOf(wired), { "eth0/gateway": "" }), "");
});
