import assert from "node:assert/strict";
import { test } from "node:test";
import { changesBetween, notTaken } from "../../src/network/diff";
import { settledValues } from "../../src/network/tagRules";
import { valuesOf } from "../../src/network/tree";
import { wired, wireless } from "./samples";

test("changes come in the order of the tree, with what follows from them", () => {
  const base = valuesOf(wired);
  const sent = settledValues(wired, base, { "eth0:1/enable": "false", "eth0/dns": "1.1.1.1" });
  assert.deepEqual(
    changesBetween(wired, base, sent).map(({ device, leafName, from, to }) =>
      [device, leafName, from, to].join(" "),
    ),
    [
      "eth0 dns 192.168.0.1; 1.1.1.1",
      "eth0:1 enable true false",
      "eth0:1 address 10.0.0.10 ",
      "eth0:1 netmask 8 24",
    ],
  );
});

test("what is read back as it was sent is taken", () => {
  const sent = { ...valuesOf(wired), "eth0/dns": "1.1.1.1" };
  assert.deepEqual(notTaken(wired, sent, { ...sent, "eth0/dns": "1.1.1.1;" }), []);
});

test("what is read back otherwise is not taken", () => {
  const sent = { ...valuesOf(wired), "eth0/address": "192.168.0.11" };
  assert.deepEqual(
    notTaken(wired, sent, valuesOf(wired)).map(({ leafName, from, to }) => [leafName, from, to]),
    [["address", "192.168.0.10", "192.168.0.11"]],
  );
});

test("leaves that do not count, and name servers that are never shown, are not compared", () => {
  const sent = { ...valuesOf(wireless), "wlan0/cipher": "CCMP", "wlan0/dns": "1.1.1.1;" };
  assert.deepEqual(notTaken(wireless, sent, valuesOf(wireless)), []);
  const fixed = { ...sent, "wlan0/method": "manual", "wlan0/address": "192.168.1.5" };
  const shown = { ...fixed, "wlan0/dns": "" };
  assert.deepEqual(notTaken(wireless, fixed, shown), []);
});
