import { type ReadonlySignal, signal } from "@preact/signals";
import { asString, field } from "../data/decode";
import type {
  OverwriteDecision,
  SendOutcome,
  UploadDeps,
  UploadItem,
  UploadProblem,
  UploadSource,
} from "./uploadItem";
import { freeFileName, maxFileBytes, problemOfFileName } from "./uploadNames";

export interface UploadQueue<S> {
  readonly items: ReadonlySignal<readonly UploadItem[]>;
  /** Resolves when all that waits has had its turn. */
  add(sources: readonly S[]): Promise<void>;
  cancel(id: number): void;
  clearFinished(): void;
}

interface Job<S> {
  readonly id: number;
  readonly source: S;
  readonly abort: AbortController;
}

export function isOpen({ state }: UploadItem): boolean {
  return state === "waiting" || state === "sending";
}

/** Stores files one after the other; nothing counts as stored that isn't listed afterwards. */
export function createUploadQueue<S extends UploadSource>(deps: UploadDeps<S>): UploadQueue<S> {
  const items = signal<readonly UploadItem[]>([]);
  let waiting: Job<S>[] = [];
  let current: Job<S> | undefined;
  let lastId = 0;
  /** Files that were chosen after the answer are another matter, and asked about anew. */
  let forAll: { readonly decision: OverwriteDecision; readonly upTo: number } | undefined;

  const change = (id: number, news: Partial<UploadItem>) => {
    items.value = items.value.map((item) => (item.id === id ? { ...item, ...news } : item));
  };

  const decide = async (id: number, name: string) => {
    if (forAll && id <= forAll.upTo) {
      return forAll.decision;
    }
    const upTo = lastId;
    const answer = await deps.askOverwrite(name, waiting.length);
    forAll = answer?.forAll ? { decision: answer.decision, upTo } : undefined;
    return answer?.decision;
  };

  /** Under which name to store the file, or why it isn't stored. */
  const nameFor = async (id: number, wanted: string): Promise<string | Partial<UploadItem>> => {
    const names = await deps.listNames();
    if (!names) {
      return failed("unreachable");
    }
    const decision = names.has(wanted) ? await decide(id, wanted) : "replace";
    return decision === "replace"
      ? wanted
      : decision === "rename"
        ? freeFileName(wanted, names)
        : { state: "skipped" };
  };

  const judge = async (name: string, outcome: SendOutcome): Promise<Partial<UploadItem>> => {
    if (outcome.state !== "answer") {
      return outcome.state === "cancelled" ? { state: outcome.state } : failed(outcome.state);
    }
    if (field(outcome.value, "success") !== true) {
      const message = asString(field(outcome.value, "message"));
      return { ...failed("failed"), ...(message && { message }) };
    }
    const names = await deps.listNames();
    return names?.has(name) ? { state: "done", progress: 1 } : failed("notListed");
  };

  const store = async ({ id, source, abort }: Job<S>): Promise<Partial<UploadItem>> => {
    const { size } = source;
    const problem = size > maxFileBytes ? "tooLarge" : problemOfFileName(source.name);
    if (problem) {
      return failed(problem);
    }
    change(id, { state: "sending" });
    const name = await nameFor(id, source.name);
    if (typeof name !== "string") {
      return name;
    }
    change(id, { name });
    const base64 = await deps.readBase64(source);
    if (abort.signal.aborted) {
      return { state: "cancelled" };
    }
    if (base64 === undefined) {
      return failed("unreadable");
    }
    const onProgress = (progress: number) => change(id, { progress });
    return judge(name, await deps.send({ name, size, base64 }, onProgress, abort.signal));
  };

  const add = async (sources: readonly S[]) => {
    for (const source of sources) {
      lastId += 1;
      const { name, size } = source;
      items.value = [...items.value, { id: lastId, name, size, state: "waiting", progress: 0 }];
      waiting.push({ id: lastId, source, abort: new AbortController() });
    }
    if (current) {
      return;
    }
    current = waiting.shift();
    while (current) {
      change(current.id, await store(current));
      current = waiting.shift();
    }
  };

  const cancel = (id: number) => {
    if (current?.id === id) {
      current.abort.abort();
    } else if (waiting.some((job) => job.id === id)) {
      waiting = waiting.filter((job) => job.id !== id);
      change(id, { state: "cancelled" });
    }
  };

  const clearFinished = () => {
    items.value = items.value.filter(isOpen);
  };

  return { items, add, cancel, clearFinished };
}

function failed(problem: UploadProblem): Partial<UploadItem> {
  return { state: "failed", problem };
}
