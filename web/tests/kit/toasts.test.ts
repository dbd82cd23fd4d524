import assert from "node:assert/strict";
import { afterEach, beforeEach, test } from "node:test";
import { dismiss, toast, toasts } from "../../src/kit/toasts";
import { fakeTimers } from "../support/fakeTimers";

const texts = () => toasts.value.map(({ text }) => text);

let timers: ReturnType<typeof fakeTimers>;

beforeEach(() => {
  timers = fakeTimers();
  for (const { number } of toasts.value) {
    dismiss(number);
  }
});

afterEach(() => timers.restore());

test("passes after five seconds, an error stays until it is closed", () => {
  toast("done", { kind: "success" });
  toast("broken", { kind: "error" });
  timers.tick(5000);
  assert.deepEqual(texts(), ["broken"]);
});

test("never more than three, of which errors stay longest", () => {
  toast("broken", { kind: "error" });
  toast("1");
  toast("2");
  toast("3");
  assert.deepEqual(texts(), ["broken", "2", "3"]);
});

test("the same words are said once", () => {
  toast("again", { kind: "error" });
  toast("other");
  toast("again", { kind: "error" });
  assert.deepEqual(texts(), ["other", "again"]);
});
