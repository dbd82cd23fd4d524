import { batch, type ReadonlySignal, signal } from "@preact/signals";
import type { Clock } from "./clock";
import { atRest, combined, type InputReading } from "./inputs";
import { LinkSpeed } from "./linkSpeed";
import { type DriveEvent, type DriveModel, type LockReason, lockedAtStart, next } from "./machine";
import { ramped } from "./ramp";
import { Sender, type Transport } from "./sender";
import { slowLinkShare, stepShare } from "./speedLimits";
import {
  clamped,
  type Deflection,
  type Maxima,
  scaled,
  standstill,
  type Velocity,
} from "./velocity";

export type StopOutcome = "idle" | "stopping" | "confirmed" | "unconfirmed";

export interface DriveSurroundings {
  readonly transport: Transport;
  readonly clock: Clock;
  /** What may be asked for at most, and the share of it that is wanted now. */
  limits(): { readonly maxima: Maxima; readonly scale: number };
  /** A command was refused: for the role, or because it was beyond the robot's limits. */
  refused(): void;
  /** Leaves a stop with the browser, which delivers it after the page is gone. */
  stopBehind(): void;
}

const stepMs = 300;
const rampStartMs = 100;
const confirmationShownMs = 3000;

/** Brings hands, dead-man switch and sender together. */
export class DriveControl {
  readonly #around: DriveSurroundings;
  readonly #sender: Sender;
  readonly #inputs = new Map<string, InputReading>();
  readonly #model = signal<DriveModel>(lockedAtStart);
  readonly #stopOutcome = signal<StopOutcome>("idle");
  readonly #commanded = signal<Velocity>(standstill);
  readonly #isSlow = signal(false);

  readonly model: ReadonlySignal<DriveModel> = this.#model;
  readonly stopOutcome: ReadonlySignal<StopOutcome> = this.#stopOutcome;
  /** What was sent last, zeros while nothing is. */
  readonly commanded: ReadonlySignal<Velocity> = this.#commanded;
  readonly isLinkSlow: ReadonlySignal<boolean> = this.#isSlow;

  #link = new LinkSpeed();
  #sampledAt = 0;
  #cancelStep = () => {};
  #cancelConfirmation = () => {};

  constructor(around: DriveSurroundings) {
    this.#around = around;
    this.#sender = new Sender(around.transport, around.clock, {
      velocity: () => this.#sample(),
      roundTrip: (ms) => {
        this.#link.note(ms);
        this.#isSlow.value = this.#link.isSlow;
      },
      trouble: (kind) => {
        this.#apply({ kind: "lock", reason: kind === "slow" ? "slow" : "limits" });
        if (kind === "refused") {
          around.refused();
        }
      },
      stopped: (isConfirmed) => this.#noteStopped(isConfirmed),
    });
  }

  setInput(name: string, reading: InputReading): void {
    this.#inputs.set(name, reading);
    const { isHeld, isNeutral } = combined(this.#inputs.values());
    this.#apply({ kind: "inputs", isHeld, isNeutral });
  }

  releaseInput(name: string): void {
    this.setInput(name, atRest);
  }

  unlock(): void {
    this.#apply({ kind: "unlock" });
  }

  lock(reason: LockReason): void {
    this.#apply({ kind: "lock", reason });
  }

  /** Stops whatever drives the robot, so that it works from any state. */
  stop(): void {
    this.#apply({ kind: "stop" });
  }

  /** The page is about to go: there may be no time for an answer. */
  leave(): void {
    const wasSilent = this.#sender.isSilent;
    this.lock("leaving");
    if (!wasSilent) {
      this.#around.stopBehind();
    }
  }

  /** A short slow move for people who can't hold a control. */
  step(deflection: Deflection): void {
    if (this.#model.peek().state !== "armed") {
      return;
    }
    this.setInput("step", { isHeld: true, deflection, isStep: true });
    this.#cancelStep();
    this.#cancelStep = this.#around.clock.after(stepMs, () => this.releaseInput("step"));
  }

  // Whoever watches is told when everything is done: their failure must not keep a stop from going
  // out.
  #apply(event: DriveEvent): void {
    batch(() => this.#follow(event));
  }

  #follow(event: DriveEvent): void {
    const before = this.#model.peek();
    const after = next(before, event);
    this.#model.value = after;
    if (after.state === before.state) {
      return;
    }
    if (after.state === "driving") {
      this.#stopOutcome.value = "idle";
      // The first command already moves, as if the ramp had begun one period ago.
      this.#sampledAt = this.#around.clock.now() - rampStartMs;
      this.#sender.start();
    } else if (after.state === "stopping") {
      this.#cancelConfirmation();
      this.#commanded.value = standstill;
      this.#stopOutcome.value = "stopping";
      this.#sender.stop();
    }
  }

  #noteStopped(isConfirmed: boolean): void {
    this.#cancelConfirmation = this.#around.clock.after(confirmationShownMs, () => {
      if (this.#stopOutcome.peek() === "confirmed") {
        this.#stopOutcome.value = "idle";
      }
    });
    batch(() => {
      this.#stopOutcome.value = isConfirmed ? "confirmed" : "unconfirmed";
      this.#apply({ kind: "stopped", isConfirmed });
    });
  }

  #sample(): Velocity {
    const now = this.#around.clock.now();
    const { maxima, scale } = this.#around.limits();
    const { deflection, isStep } = combined(this.#inputs.values());
    const linkShare = this.#link.isSlow ? slowLinkShare : 1;
    const share = (isStep ? stepShare : scale) * linkShare;
    const target = scaled(deflection, maxima, share);
    const full = {
      vx: maxima.vx * share,
      vy: maxima.vy * share,
      omega: maxima.omega * share,
    };
    const velocity = isStep
      ? target
      : ramped(this.#commanded.peek(), target, full, now - this.#sampledAt);
    this.#sampledAt = now;
    this.#commanded.value = clamped(velocity, maxima);
    return this.#commanded.peek();
  }
}
