import assert from "node:assert/strict";
import { test } from "node:test";
import { splitHash } from "../../src/data/sid";
import {
  addressAfterMove,
  fingerprint,
  flowIn,
  type HandedFlow,
  withoutFlow,
} from "../../src/network/handOver";

const flow: HandedFlow = {
  network: "wlan",
  until: 1_700_000_090_000,
  from: "192.168.0.10",
  oldText: fingerprint("CONFIRMED: kept"),
  dns: "1.1.1.1;8.8.8.8;",
};

function hashOf(address: string): string {
  return address.slice(address.indexOf("#"));
}

const cases: HandedFlow[] = [
  flow,
  { ...flow, network: "eth", until: 0, dns: "" },
  { ...flow, dns: "1.1.1.1" },
  { ...flow, from: "robot-2.local", oldText: "" },
];

for (const handed of cases) {
  test(`the flow from ${handed.from} with ${handed.dns || "no name servers"} goes along`, () => {
    const address = addressAfterMove("http://10.0.0.1:8080", handed);
    assert.ok(address.startsWith("http://10.0.0.1:8080/#/network;"));
    assert.deepEqual(flowIn(hashOf(address)), handed);
    const { route, sid } = splitHash(hashOf(address));
    assert.match(sid ?? "", /^[0-9a-f]{32}$/);
    assert.deepEqual(flowIn(route), handed);
    assert.equal(withoutFlow(route), "#/network");
  });
}

test("without a flow the page and the session go along", () => {
  const address = addressAfterMove("http://10.0.0.1", undefined);
  assert.match(address, /^http:\/\/10\.0\.0\.1\/#\/network;sid=[0-9a-f]{32}$/);
});

test("other fragments hold no flow", () => {
  for (const hash of ["", "#/network", "#/network;apply=usb,1,a,,", "#/network;apply=eth,x,,,"]) {
    assert.equal(flowIn(hash), undefined, hash);
    assert.equal(withoutFlow(hash), hash);
  }
});

test("texts are told apart by their fingerprints", () => {
  const texts = ["", "a", "b", "ab", "ba", "ROLLBACK 90 s: on trial", "CONFIRMED: kept"];
  assert.equal(new Set(texts.map(fingerprint)).size, texts.length);
});
