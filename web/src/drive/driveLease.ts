import { type ReadonlySignal, signal } from "@preact/signals";
import type { Clock } from "./clock";

export interface LeaseChannel {
  postMessage(message: unknown): void;
  onmessage: ((event: MessageEvent) => void) | null;
}

export type LeaseHolder = "nobody" | "me" | "other";

interface Message {
  readonly kind: "ask" | "mine" | "free" | "take" | "stop";
  readonly tab: string;
}

const repeatMs = 1000;
// A tab that was closed or crashed says no farewell.
const silenceMs = 2500;

/** Of all tabs of a browser, one at a time may drive. Whoever takes over locks the one before. */
export class DriveLease {
  readonly #tab: string;
  readonly #clock: Clock;
  readonly #channel: LeaseChannel | undefined;
  readonly #heard: { lost(): void; stopWanted(): void };
  readonly #holder = signal<LeaseHolder>("nobody");
  readonly holder: ReadonlySignal<LeaseHolder> = this.#holder;
  #cancelRepeat = () => {};
  #cancelSilence = () => {};

  constructor(
    tab: string,
    clock: Clock,
    channel: LeaseChannel | undefined,
    heard: { lost(): void; stopWanted(): void },
  ) {
    this.#tab = tab;
    this.#clock = clock;
    this.#channel = channel;
    this.#heard = heard;
    if (channel !== undefined) {
      channel.onmessage = ({ data }) => this.#hear(data as Message);
      this.#say("ask");
    }
  }

  /** False where another tab drives; `takeOver` gets it nevertheless. */
  take(takeOver = false): boolean {
    if (this.#holder.peek() === "other" && !takeOver) {
      return false;
    }
    if (takeOver) {
      this.#say("take");
    }
    this.#hold();
    return true;
  }

  release(): void {
    if (this.#holder.peek() === "me") {
      this.#cancelRepeat();
      this.#holder.value = "nobody";
      this.#say("free");
    }
  }

  /** Makes the other tabs stop driving, or their next command would undo a stop of this one. */
  stopOthers(): void {
    this.#say("stop");
  }

  #hold(): void {
    this.#cancelSilence();
    this.#cancelRepeat();
    this.#holder.value = "me";
    const repeat = () => {
      this.#say("mine");
      this.#cancelRepeat = this.#clock.after(repeatMs, repeat);
    };
    repeat();
  }

  #hear({ kind, tab }: Message): void {
    switch (kind) {
      case "ask":
        if (this.#holder.peek() === "me") {
          this.#say("mine");
        }
        break;
      case "mine":
        // Two that took it in the same moment agree by their names.
        if (this.#holder.peek() !== "me" || tab < this.#tab) {
          this.#lose();
        }
        break;
      case "take":
        this.#lose();
        break;
      case "free":
        this.#cancelSilence();
        if (this.#holder.peek() === "other") {
          this.#holder.value = "nobody";
        }
        break;
      case "stop":
        this.#heard.stopWanted();
        break;
    }
  }

  #lose(): void {
    const wasMine = this.#holder.peek() === "me";
    this.#cancelRepeat();
    this.#cancelSilence();
    this.#holder.value = "other";
    this.#cancelSilence = this.#clock.after(silenceMs, () => {
      this.#holder.value = "nobody";
    });
    if (wasMine) {
      this.#heard.lost();
    }
  }

  #say(kind: Message["kind"]): void {
    this.#channel?.postMessage({ kind, tab: this.#tab });
  }
}

export function openLeaseChannel(): LeaseChannel | undefined {
  return typeof BroadcastChannel === "undefined"
    ? undefined
    : new BroadcastChannel("tessarad.driveLease");
}
