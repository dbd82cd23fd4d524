import assert from "node:assert/strict";
import { test } from "node:test";
import { choose, confirm, questions } from "../../src/kit/questions";

test("questions wait for each other and closing one is no consent", async () => {
  const first = confirm({ title: "Remove?", action: "Remove", danger: true });
  const second = choose({ title: "Which?", choices: [{ label: "One", value: 1 }] });
  assert.deepEqual(
    questions.value.map(({ title }) => title),
    ["Remove?", "Which?"],
  );
  questions.value[0]?.answer(undefined);
  assert.equal(await first, false);
  questions.value[0]?.answer(1);
  assert.equal(await second, 1);
  assert.equal(questions.value.length, 0);
});
