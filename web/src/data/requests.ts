import { noteReached, noteRoundTrip, noteUnreachable } from "./link";
import { backgroundQueue } from "./scheduler";
import { currentSid } from "./sid";

export type ReadOutcome =
  | { state: "answer"; value: unknown; arrivedAt: number }
  | { state: "empty"; arrivedAt: number }
  | { state: "unreadable"; text: string }
  | { state: "unreachable" };

export type WriteOutcome =
  | { state: "accepted"; value: unknown }
  | { state: "refused" }
  | { state: "unreachable" };

/** "control" starts at once, beside the queue: for commands that a moving robot waits for. */
export type Lane = "background" | "control";

export interface ReadOptions {
  timeoutMs?: number;
  lane?: Lane;
  signal?: AbortSignal;
  /** Another session than that of the tab. */
  sid?: string;
  /** Goes before what waits in the queue, and counts for the round trip that people are shown. */
  heartbeat?: boolean;
}

export interface WriteOptions extends ReadOptions {
  method?: "PUT" | "POST";
  /** Sends a string as it is instead of as JSON. */
  bare?: boolean;
}

const defaultTimeoutMs = 2000;

export function addressOf(path: string, sid = currentSid()): string {
  return `${path}${path.includes("?") ? "&" : "?"}sid=${sid}`;
}

interface Reply {
  ok: boolean;
  text: string;
  durationMs: number;
}

async function exchange(
  path: string,
  init: RequestInit,
  options: ReadOptions,
): Promise<Reply | undefined> {
  if (options.signal?.aborted) {
    return undefined;
  }
  const abort = new AbortController();
  const onAbort = () => abort.abort();
  options.signal?.addEventListener("abort", onAbort);
  const timer = setTimeout(onAbort, options.timeoutMs ?? defaultTimeoutMs);
  const begun = performance.now();
  try {
    const response = await fetch(addressOf(path, options.sid), {
      ...init,
      cache: "no-store",
      signal: abort.signal,
    });
    const text = await response.text();
    noteReached();
    return { ok: response.ok, text, durationMs: performance.now() - begun };
  } catch {
    // What the caller gave up says nothing about the link.
    if (!options.signal?.aborted) {
      noteUnreachable();
    }
    return undefined;
  } finally {
    clearTimeout(timer);
    options.signal?.removeEventListener("abort", onAbort);
  }
}

export async function read(path: string, options: ReadOptions = {}): Promise<ReadOutcome> {
  const job = () => exchange(path, {}, options);
  const place = options.heartbeat ? "front" : "back";
  const reply = await (options.lane === "control" ? job() : backgroundQueue.run(job, place));
  if (reply === undefined) {
    return { state: "unreachable" };
  }
  if (options.heartbeat) {
    noteRoundTrip(reply.durationMs);
  }
  if (reply.text.trim() === "") {
    return { state: "empty", arrivedAt: Date.now() };
  }
  try {
    return { state: "answer", value: JSON.parse(reply.text), arrivedAt: Date.now() };
  } catch {
    return { state: "unreadable", text: reply.text };
  }
}

export async function write(
  path: string,
  body: unknown,
  options: WriteOptions = {},
): Promise<WriteOutcome> {
  const init: RequestInit = {
    method: options.method ?? "PUT",
    body: options.bare && typeof body === "string" ? body : JSON.stringify(body),
  };
  const job = () => exchange(path, init, options);
  const reply = await (options.lane === "control" ? job() : backgroundQueue.run(job, "front"));
  if (reply === undefined) {
    return { state: "unreachable" };
  }
  if (options.lane === "control") {
    noteRoundTrip(reply.durationMs);
  }
  return reply.ok ? { state: "accepted", value: parsed(reply.text) } : { state: "refused" };
}

function parsed(text: string): unknown {
  try {
    return text.trim() === "" ? undefined : JSON.parse(text);
  } catch {
    return undefined;
  }
}
