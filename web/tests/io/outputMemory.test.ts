import assert from "node:assert/strict";
import { test } from "node:test";
import { forgetAfterUnseenMs, type MemoryDeps, OutputMemory } from "../../src/io/outputMemory";

function browser(text: string | null = null) {
  const self: MemoryDeps & { text: string | null; announced: number } = {
    text,
    announced: 0,
    load: () => self.text,
    save: (saved) => {
      self.text = saved;
    },
    announce: () => {
      self.announced += 1;
    },
  };
  return self;
}

const start = 1_000_000;

test("nothing is known at the beginning", () => {
  assert.equal(new OutputMemory(2, browser()).state.value, undefined);
});

test("what was set is known in other tabs and after a reload", () => {
  const deps = browser();
  const memory = new OutputMemory(2, deps);
  const other = new OutputMemory(2, deps);
  memory.remember([true, false], start);
  assert.equal(deps.announced, 1);
  other.reload();
  for (const tab of [memory, other, new OutputMemory(2, deps)]) {
    assert.deepEqual(tab.state.value, { values: [true, false], setAt: start });
  }
});

test("a link that was lost for longer than half a minute leaves nothing known", () => {
  const deps = browser();
  const memory = new OutputMemory(2, deps);
  memory.remember([true, false], start);
  memory.lost(start, start + 30_000);
  assert.notEqual(memory.state.value, undefined);
  memory.lost(start, start + 30_001);
  assert.equal(memory.state.value, undefined);
  assert.equal(deps.text, null);
  assert.equal(deps.announced, 2);
});

test("what was forgotten once is not announced again", () => {
  const deps = browser();
  const memory = new OutputMemory(2, deps);
  memory.lost(start, start + 60_000);
  memory.forget();
  assert.equal(deps.announced, 0);
});

test("a robot that was looked at all the time is still known after an hour", () => {
  const memory = new OutputMemory(1, browser());
  memory.remember([true], start);
  for (let now = start; now <= start + 3_600_000; now += 10_000) {
    memory.seen(now);
  }
  assert.deepEqual(memory.state.value?.values, [true]);
});

test("a robot that nobody looked at for long is unknown, also after a reload", () => {
  const deps = browser();
  new OutputMemory(1, deps).remember([true], start);
  const memory = new OutputMemory(1, deps);
  memory.seen(start + forgetAfterUnseenMs + 1);
  assert.equal(memory.state.value, undefined);
});

const malformed = [
  "",
  "nonsense",
  "null",
  "[]",
  '{"values":[true],"setAt":1,"seenAt":1}',
  '{"values":[true,1],"setAt":1,"seenAt":1}',
  '{"values":[true,true],"setAt":"1","seenAt":1}',
  '{"values":[true,true],"setAt":1}',
];

for (const text of malformed) {
  test(`a stored ${JSON.stringify(text)} is nothing known`, () => {
    assert.equal(new OutputMemory(2, browser(text)).state.value, undefined);
  });
}

test("the remembered values are a copy", () => {
  const memory = new OutputMemory(1, browser());
  const values = [true];
  memory.remember(values, start);
  values[0] = false;
  assert.deepEqual(memory.state.value?.values, [true]);
});
