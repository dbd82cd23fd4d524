import assert from "node:assert/strict";
import { test } from "node:test";
import { carrierOf, effectOf, originAt } from "../../src/network/carrier";
import { settledValues } from "../../src/network/tagRules";
import { type Values, valuesOf } from "../../src/network/tree";
import { wired, wireless, withValues } from "./samples";

const base = valuesOf(wired);

function effect(edits: Values, hostname: string) {
  return effectOf(wired, base, settledValues(wired, base, edits), hostname);
}

test("the page's interface is the one with its address", () => {
  assert.equal(carrierOf(wired, base, "10.0.0.10"), "eth0:1");
  assert.equal(carrierOf(wired, base, "robot.local"), undefined);
  assert.equal(carrierOf(wired, base, ""), undefined);
});

test("a name, or an address that the tree does not know, tells nothing", () => {
  for (const host of ["robot", "127.0.0.1", ""]) {
    assert.deepEqual(effect({ "eth0/address": "192.168.0.11" }, host), { kind: "unknown" });
  }
});

test("another interface does not touch the page", () => {
  assert.deepEqual(effect({ "eth0:1/enable": "false" }, "192.168.0.10"), { kind: "untouched" });
});

test("a new address takes the page along", () => {
  assert.deepEqual(effect({ "eth0/address": "192.168.0.11" }, "192.168.0.10"), {
    kind: "moves",
    device: "eth0",
    address: "192.168.0.11",
  });
});

test("another netmask only interrupts the page, and so does an address that changes places", () => {
  const interrupted = { kind: "interrupted", device: "eth0" };
  assert.deepEqual(effect({ "eth0/netmask": "16" }, "192.168.0.10"), interrupted);
  const swapped = { "eth0/address": "192.168.0.11", "eth0:1/address": "192.168.0.10" };
  assert.deepEqual(effect(swapped, "192.168.0.10"), interrupted);
});

test("DHCP and a disabled interface leave the page behind", () => {
  const gone = effect({ "eth0/method": "auto" }, "192.168.0.10");
  assert.deepEqual(gone, { kind: "leaves", device: "eth0" });
  const off = effect({ "eth0:1/enable": "false" }, "10.0.0.10");
  assert.deepEqual(off, { kind: "leaves", device: "eth0:1" });
});

test("another name of the access point leaves the page behind", () => {
  const point = withValues("wlan", wireless, {
    ...valuesOf(wireless),
    "wlan0/type": "master",
    "wlan0/address": "192.168.12.1",
    "wlan0/netmask": "24",
  });
  const before = valuesOf(point);
  const after = settledValues(point, before, { "wlan0/ssid": "other" });
  assert.deepEqual(effectOf(point, before, after, "192.168.12.1"), {
    kind: "leaves",
    device: "wlan0",
  });
});

test("the new origin keeps the scheme and the port", () => {
  const page = { protocol: "http:", hostname: "192.168.0.10", port: "8080" };
  assert.equal(originAt("10.0.0.1", page), "http://10.0.0.1:8080");
  assert.equal(originAt("10.0.0.1", { ...page, port: "" }), "http://10.0.0.1");
});
