import assert from "node:assert/strict";
import { test } from "node:test";
import type { SendOutcome, UploadDeps, UploadSource } from "../../src/programs/uploadItem";
import { createUploadQueue } from "../../src/programs/uploadQueue";

const stored: SendOutcome = { state: "answer", value: { message: "Wrote it", success: true } };

interface Robot extends UploadDeps<UploadSource> {
  readonly names: Set<string>;
  readonly sent: string[];
  readonly asked: [string, number][];
}

function robot(names: string[] = [], change: Partial<UploadDeps<UploadSource>> = {}): Robot {
  const self: Robot = {
    names: new Set(names),
    sent: [],
    asked: [],
    listNames: async () => new Set(self.names),
    readBase64: async () => "aGk=",
    send: async ({ name }, onProgress) => {
      onProgress(0.5);
      self.sent.push(name);
      self.names.add(name);
      return stored;
    },
    askOverwrite: async (name, remaining) => {
      self.asked.push([name, remaining]);
      return undefined;
    },
    ...change,
  };
  return self;
}

const file = (name: string, size = 2): UploadSource => ({ name, size });

async function uploaded(deps: Robot, ...files: UploadSource[]) {
  const queue = createUploadQueue(deps);
  await queue.add(files);
  return queue.items.value;
}

test("files are stored one after the other", async () => {
  let inFlight = 0;
  const deps = robot([], {
    send: async ({ name }) => {
      inFlight += 1;
      assert.equal(inFlight, 1);
      await Promise.resolve();
      inFlight -= 1;
      deps.names.add(name);
      return stored;
    },
  });
  const items = await uploaded(deps, file("a.lv"), file("b.lv"), file("c.lv"));
  assert.deepEqual(
    items.map(({ name, state, progress }) => [name, state, progress]),
    ["a.lv", "b.lv", "c.lv"].map((name) => [name, "done", 1]),
  );
});

test("an answer without success is a failure with the robot's words", async () => {
  const send = async (): Promise<SendOutcome> => ({
    state: "answer",
    value: { message: "Error writing file", success: false },
  });
  const [item] = await uploaded(robot([], { send }), file("a.lv"));
  assert.equal(item?.state, "failed");
  assert.equal(item?.problem, "failed");
  assert.equal(item?.message, "Error writing file");
});

test("a reply of any other shape is no success", async () => {
  for (const value of [undefined, null, 1, "true", [], {}, { success: "true" }, { success: 1 }]) {
    const send = async (): Promise<SendOutcome> => ({ state: "answer", value });
    const [item] = await uploaded(robot([], { send }), file("a.lv"));
    assert.equal(item?.problem, "failed");
  }
});

test("what isn't listed afterwards isn't stored", async () => {
  const [item] = await uploaded(robot([], { send: async () => stored }), file("a.lv"));
  assert.equal(item?.problem, "notListed");
});

test("a refusal and a lost link are told apart", async () => {
  const refused = await uploaded(
    robot([], { send: async () => ({ state: "refused" }) }),
    file("a.lv"),
  );
  assert.equal(refused[0]?.problem, "refused");
  const unreachable = await uploaded(robot([], { listNames: async () => undefined }), file("a.lv"));
  assert.equal(unreachable[0]?.problem, "unreachable");
});

test("bad names and files that are too large are not sent", async () => {
  const deps = robot();
  const most = 32 * 1024 * 1024;
  const items = await uploaded(
    deps,
    file("noDot"),
    file("a/b.lv"),
    file("a.lv", most + 1),
    file("b.lv", most),
  );
  assert.deepEqual(
    items.map((item) => item.problem),
    ["noDot", "slash", "tooLarge", undefined],
  );
  assert.deepEqual(deps.sent, ["b.lv"]);
});

test("a file that is there already is asked about, with the number of those that wait", async () => {
  const deps = robot(["a.lv"]);
  const items = await uploaded(deps, file("a.lv"), file("b.lv"));
  assert.deepEqual(deps.asked, [["a.lv", 1]]);
  assert.deepEqual(
    items.map((item) => item.state),
    ["skipped", "done"],
  );
});

test("a rename takes a free name", async () => {
  const askOverwrite = async () => ({ decision: "rename" as const, forAll: false });
  const deps = robot(["a.lv", "a-2.lv"], { askOverwrite });
  const items = await uploaded(deps, file("a.lv"));
  assert.deepEqual([items[0]?.name, items[0]?.state], ["a-3.lv", "done"]);
});

test("an answer for all holds for the queue and no longer", async () => {
  let questions = 0;
  const askOverwrite = async () => {
    questions += 1;
    return { decision: "replace" as const, forAll: true };
  };
  const deps = robot(["a.lv", "b.lv"], { askOverwrite });
  const queue = createUploadQueue(deps);
  await queue.add([file("a.lv"), file("b.lv")]);
  assert.equal(questions, 1);
  assert.deepEqual(deps.sent, ["a.lv", "b.lv"]);
  await queue.add([file("a.lv")]);
  assert.equal(questions, 2);
});

test("an answer for all does not count for files that are chosen after it", async () => {
  let questions = 0;
  let later: Promise<void> | undefined;
  const deps = robot(["a.lv", "b.lv", "c.lv"], {
    askOverwrite: async () => {
      questions += 1;
      return questions === 1 ? { decision: "replace", forAll: true } : undefined;
    },
    readBase64: async () => {
      later ??= queue.add([file("c.lv")]);
      return "aGk=";
    },
  });
  const queue = createUploadQueue<UploadSource>(deps);
  await queue.add([file("a.lv"), file("b.lv")]);
  await later;
  assert.equal(questions, 2);
  assert.deepEqual(deps.sent, ["a.lv", "b.lv"]);
});

test("the same name twice in one queue is asked about", async () => {
  const deps = robot();
  await uploaded(deps, file("a.lv"), file("a.lv"));
  assert.deepEqual(deps.asked, [["a.lv", 0]]);
});

test("an upload can be cancelled while it is sent, and those that wait", async () => {
  const deps = robot([], {
    send: ({ name }, _onProgress, abort) =>
      new Promise((resolve) => {
        if (name === "c.lv") {
          deps.names.add(name);
          resolve(stored);
        }
        abort.addEventListener("abort", () => resolve({ state: "cancelled" }));
        queue.cancel(2);
        queue.cancel(1);
      }),
  });
  const queue = createUploadQueue<UploadSource>(deps);
  await queue.add([file("a.lv"), file("b.lv"), file("c.lv")]);
  assert.deepEqual(
    queue.items.value.map((item) => item.state),
    ["cancelled", "cancelled", "done"],
  );
});

test("a file added meanwhile is stored too, and finished ones can be cleared", async () => {
  let later: Promise<void> | undefined;
  const deps = robot([], {
    send: async ({ name }) => {
      later ??= queue.add([file("b.lv")]);
      deps.names.add(name);
      return stored;
    },
  });
  const queue = createUploadQueue<UploadSource>(deps);
  await queue.add([file("a.lv")]);
  await later;
  assert.deepEqual(
    queue.items.value.map((item) => item.state),
    ["done", "done"],
  );
  queue.clearFinished();
  assert.deepEqual(queue.items.value, []);
});

test("a file that the browser can't read is told", async () => {
  const [item] = await uploaded(robot([], { readBase64: async () => undefined }), file("a.lv"));
  assert.equal(item?.problem, "unreadable");
});
