import assert from "node:assert/strict";
import { test } from "node:test";
import {
  dottedMask,
  formatAddress,
  isHost,
  isUnicast,
  overlaps,
  parseAddress,
  parsePrefix,
} from "../../src/network/ipv4";

function address(text: string): number {
  const bits = parseAddress(text);
  assert.notEqual(bits, undefined, text);
  return bits ?? 0;
}

test("a dotted address has four numbers up to 255 without leading zeros", () => {
  assert.equal(address("255.255.255.255"), 2 ** 32 - 1);
  assert.equal(address("0.0.0.0"), 0);
  const wrong = [
    "",
    "1.2.3",
    "1.2.3.4.5",
    "1.2.3.256",
    "01.2.3.4",
    "1.2.3.-4",
    " 1.2.3.4",
    "a.b.c.d",
  ];
  for (const text of wrong) {
    assert.equal(parseAddress(text), undefined, text);
  }
});

test("an address survives its own text", () => {
  for (const text of ["0.0.0.1", "127.0.0.1", "192.168.0.10", "223.255.255.254"]) {
    assert.equal(formatAddress(address(text)), text);
  }
});

test("a prefix length is 1 to 32", () => {
  assert.equal(parsePrefix("1"), 1);
  assert.equal(parsePrefix("32"), 32);
  for (const text of ["", "0", "33", "024", "-1", "24 ", "255.255.255.0"]) {
    assert.equal(parsePrefix(text), undefined, text);
  }
});

test("a prefix length has a dotted mask", () => {
  const masks: [number, string][] = [
    [1, "128.0.0.0"],
    [8, "255.0.0.0"],
    [20, "255.255.240.0"],
    [24, "255.255.255.0"],
    [32, "255.255.255.255"],
  ];
  for (const [prefix, mask] of masks) {
    assert.equal(dottedMask(prefix), mask);
  }
});

test("networks overlap where the wider one holds the other", () => {
  assert.ok(overlaps(address("10.0.0.1"), 8, address("10.9.9.9"), 24));
  assert.ok(!overlaps(address("192.168.0.1"), 24, address("192.168.1.1"), 24));
  assert.ok(overlaps(address("192.168.0.1"), 23, address("192.168.1.1"), 24));
  assert.ok(!overlaps(address("200.0.0.1"), 32, address("200.0.0.2"), 32));
});

test("a host is neither the network nor its broadcast address", () => {
  assert.ok(isHost(address("192.168.0.10"), 24));
  assert.ok(!isHost(address("192.168.0.0"), 24));
  assert.ok(!isHost(address("192.168.0.255"), 24));
  assert.ok(isHost(address("192.168.0.255"), 23));
  assert.ok(isHost(address("192.168.0.0"), 31));
  assert.ok(isHost(address("192.168.0.0"), 32));
});

test("multicast and reserved addresses are no unicast ones", () => {
  assert.ok(isUnicast(address("1.0.0.1")));
  assert.ok(isUnicast(address("223.1.1.1")));
  for (const text of ["0.0.0.1", "224.0.0.1", "255.255.255.255"]) {
    assert.ok(!isUnicast(address(text)), text);
  }
});
