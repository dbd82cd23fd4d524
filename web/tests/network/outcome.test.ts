import assert from "node:assert/strict";
import { test } from "node:test";
import { outcomeOf } from "../../src/network/outcome";

const trial =
  "eth0:1 is off.\nROLLBACK 90 s: the settings are on trial, confirm within 90 s by sending the same ones again, else the old ones come back.\n";

const cases: [string, ReturnType<typeof outcomeOf>][] = [
  [trial, { kind: "trial", seconds: 90 }],
  ["CONFIRMED: the new settings are kept.\n", { kind: "confirmed" }],
  ["UNCHANGED: these settings are in force already.\r\n", { kind: "unchanged" }],
  ["eth0: an address is needed.\nREFUSED: nothing was changed.\n", { kind: "refused" }],
  ["RESTORED: the old settings are in force.", { kind: "restored" }],
  ["FAILED: the old settings are back, but did not come up either.\n", { kind: "failed" }],
  ["Applied. Confirm within 60 s.\n", { kind: "trial", seconds: 60 }],
  ["eth0 is up\nconfirm within 90 s\n", { kind: "trial", seconds: 90 }],
  ["confirm within 90 s\nCONFIRMED: the new settings are kept.\n", { kind: "confirmed" }],
  ["confirm within 90 steps\n", undefined],
  ["reconfirm within 90 s\n", undefined],
  ["", undefined],
  ["Done.\n", undefined],
  ["  CONFIRMED: indented by a command\n", undefined],
  ["NOTE: something else\n", undefined],
  ["ROLLBACK soon s: \n", undefined],
  ["constructor: no word of ours\n", undefined],
];

for (const [text, outcome] of cases) {
  test(`the outcome of ${JSON.stringify(text.slice(0, 40))}`, () => {
    assert.deepEqual(outcomeOf(text), outcome);
  });
}
