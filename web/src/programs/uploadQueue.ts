import { type ReadonlySignal, signal } from "@preact/signals";
import { field } from "../data/decode";
import type {
  OverwriteDecision,
  SendOutcome,
  UploadDeps,
  UploadItem,
  UploadProblem,
  UploadSource,
} from "./uploadItem";
import { freeFileName, maxFileBytes, problemOfFileName } from "./uploadNames";

interface Job<S> {
  readonly id: number;
  readonly source: S;
  readonly abort: AbortController;
}

/** Stores files one after the other; nothing counts as stored that isn't listed afterwards. */
export class UploadQueue<S extends UploadSource> {
  readonly #deps: UploadDeps<S>;
  readonly #items = signal<readonly UploadItem[]>([]);
  #waiting: Job<S>[] = [];
  #current: Job<S> | undefined;
  #nextId = 1;
  #forAll: OverwriteDecision | undefined;

  constructor(deps: UploadDeps<S>) {
    this.#deps = deps;
  }

  get items(): ReadonlySignal<readonly UploadItem[]> {
    return this.#items;
  }

  /** Resolves when all that waits has had its turn. */
  async add(sources: readonly S[]): Promise<void> {
    for (const source of sources) {
      const job = { id: this.#nextId++, source, abort: new AbortController() };
      const { name, size } = source;
      this.#items.value = [
        ...this.#items.value,
        { id: job.id, name, size, state: "waiting", progress: 0 },
      ];
      this.#waiting.push(job);
    }
    if (this.#current === undefined) {
      await this.#work();
    }
  }

  cancel(id: number): void {
    if (this.#current?.id === id) {
      this.#current.abort.abort();
      return;
    }
    if (this.#waiting.some((job) => job.id === id)) {
      this.#waiting = this.#waiting.filter((job) => job.id !== id);
      this.#change(id, { state: "cancelled" });
    }
  }

  clearFinished(): void {
    this.#items.value = this.#items.value.filter(
      (item) => item.state === "waiting" || item.state === "sending",
    );
  }

  async #work(): Promise<void> {
    for (;;) {
      this.#current = this.#waiting.shift();
      if (this.#current === undefined) {
        // The next files are another matter, and asked about anew.
        this.#forAll = undefined;
        return;
      }
      const { id } = this.#current;
      this.#change(id, await this.#store(this.#current));
    }
  }

  async #store({ id, source, abort }: Job<S>): Promise<Partial<UploadItem>> {
    const problem = source.size > maxFileBytes ? "tooLarge" : problemOfFileName(source.name);
    if (problem !== undefined) {
      return failed(problem);
    }
    this.#change(id, { state: "sending" });
    const name = await this.#nameFor(source.name);
    if (name.state !== "free") {
      return name.state === "skipped" ? { state: "skipped" } : failed("unreachable");
    }
    this.#change(id, { name: name.name });
    const base64 = await this.#deps.readBase64(source);
    if (abort.signal.aborted) {
      return { state: "cancelled" };
    }
    if (base64 === undefined) {
      return failed("unreadable");
    }
    const upload = { name: name.name, size: source.size, base64 };
    const onProgress = (progress: number) => this.#change(id, { progress });
    return this.#judged(name.name, await this.#deps.send(upload, onProgress, abort.signal));
  }

  async #nameFor(
    wanted: string,
  ): Promise<{ state: "free"; name: string } | { state: "skipped" | "unreachable" }> {
    const names = await this.#deps.listNames();
    if (names === undefined) {
      return { state: "unreachable" };
    }
    if (!names.has(wanted)) {
      return { state: "free", name: wanted };
    }
    switch (await this.#decide(wanted)) {
      case "replace":
        return { state: "free", name: wanted };
      case "rename":
        return { state: "free", name: freeFileName(wanted, names) };
      default:
        return { state: "skipped" };
    }
  }

  async #decide(name: string): Promise<OverwriteDecision | undefined> {
    if (this.#forAll === undefined) {
      const answer = await this.#deps.askOverwrite(name, this.#waiting.length);
      this.#forAll = answer?.forAll ? answer.decision : undefined;
      return answer?.decision;
    }
    return this.#forAll;
  }

  async #judged(name: string, outcome: SendOutcome): Promise<Partial<UploadItem>> {
    if (outcome.state === "cancelled") {
      return { state: "cancelled" };
    }
    if (outcome.state !== "answer") {
      return failed(outcome.state);
    }
    const message = field(outcome.value, "message");
    const told = typeof message === "string" ? { message } : {};
    if (field(outcome.value, "success") !== true) {
      return { ...failed("failed"), ...told };
    }
    const names = await this.#deps.listNames();
    return names?.has(name)
      ? { state: "done", progress: 1, ...told }
      : { ...failed("notListed"), ...told };
  }

  #change(id: number, change: Partial<UploadItem>): void {
    this.#items.value = this.#items.value.map((item) =>
      item.id === id ? { ...item, ...change } : item,
    );
  }
}

function failed(problem: UploadProblem): Partial<UploadItem> {
  return { state: "failed", problem };
}
