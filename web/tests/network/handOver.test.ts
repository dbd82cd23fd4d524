import assert from "node:assert/strict";
import { test } from "node:test";
import { splitHash } from "../../src/data/sid";
import { addressAfterMove, trialIn, withoutTrial } from "../../src/network/handOver";

const trial = { network: "wlan", until: 1_700_000_090_000, from: "192.168.0.10", dns: "1.1.1.1;" };

test("a trial and the session go along in the fragment, and nothing else", () => {
  const address = addressAfterMove("http://10.0.0.1:8080", { ...trial, network: "wlan" });
  const hash = address.slice(address.indexOf("#"));
  assert.ok(address.startsWith("http://10.0.0.1:8080/#/network;"));
  const { route, sid } = splitHash(hash);
  assert.match(sid ?? "", /^[0-9a-f]{32}$/);
  assert.deepEqual(trialIn(route), trial);
  assert.equal(withoutTrial(route), "#/network");
});

test("several name servers come through", () => {
  const address = addressAfterMove("http://10.0.0.1", {
    ...trial,
    network: "wlan",
    dns: "1.1.1.1;8.8.8.8;",
  });
  assert.equal(
    trialIn(splitHash(address.slice(address.indexOf("#"))).route)?.dns,
    "1.1.1.1;8.8.8.8;",
  );
});

test("without a trial the page and the session go along", () => {
  const address = addressAfterMove("http://10.0.0.1", undefined);
  assert.match(address, /^http:\/\/10\.0\.0\.1\/#\/network;sid=[0-9a-f]{32}$/);
});

test("other fragments hold no trial", () => {
  for (const hash of [
    "",
    "#/network",
    "#/network;trial=usb,1,1.1.1.1,",
    "#/network;trial=eth,x,,",
  ]) {
    assert.equal(trialIn(hash), undefined, hash);
    assert.equal(withoutTrial(hash), hash);
  }
});
