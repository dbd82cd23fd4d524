import assert from "node:assert/strict";
import { test } from "node:test";
import {
  decodePrograms,
  downloadAddress,
  fileNameOf,
  isDownloadOnly,
} from "../../src/programs/programList";
import {
  countChanges,
  decodeOutput,
  decodeVariables,
  numericValue,
} from "../../src/programs/variables";

const malformed: unknown[] = [
  undefined,
  null,
  true,
  1,
  "text",
  {},
  [null],
  [1],
  [[]],
  [{ name: 1 }],
  [{ name: "a", suffix: "lv" }],
  [{ name: "a", value: 1 }],
];

for (const json of malformed) {
  test(`${JSON.stringify(json)} is taken for nothing`, () => {
    assert.equal(decodePrograms(json), undefined);
    assert.equal(decodeVariables(json), undefined);
    assert.equal(decodeOutput(json), undefined);
  });
}

test("programs are decoded as the daemon gives them", () => {
  const json = [
    { action: "running", id: 1, name: "a", old: "a", suffix: "b.lv" },
    { action: "stopped", id: 2, name: "notes", old: "notes", suffix: "" },
  ];
  const programs = decodePrograms(json) ?? [];
  assert.deepEqual(programs.map(fileNameOf), ["a.b.lv", "notes"]);
  assert.deepEqual(programs.map(isDownloadOnly), [false, true]);
});

test("a download's address is encoded", () => {
  const program = { name: "50% #1?", suffix: "lv", running: false };
  assert.equal(downloadAddress(program), "/download/program/50%25%20%231%3F.lv");
  assert.equal(downloadAddress({ ...program, name: "\ud800" }), undefined);
});

test("numbers are told from texts", () => {
  const values = ["1", " -2.5 ", "+.5", "1e3", "3.", "", "abc", "0x10", "1 2", "nan", "1e999"];
  assert.deepEqual(values.map(numericValue), [
    1,
    -2.5,
    0.5,
    1000,
    3,
    ...values.slice(5).map(() => undefined),
  ]);
});

test("changes are counted by name, and a new variable has none", () => {
  const first = countChanges([], [{ name: "x", value: "1" }]);
  const second = countChanges(first, [
    { name: "w", value: "0" },
    { name: "x", value: "2" },
  ]);
  const third = countChanges(second, [{ name: "x", value: "2" }]);
  assert.deepEqual(
    [first, second, third].map((list) => list.map(({ name, changes }) => [name, changes])),
    [
      [["x", 0]],
      [
        ["w", 0],
        ["x", 1],
      ],
      [["x", 1]],
    ],
  );
});
