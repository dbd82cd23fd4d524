import type { Clock } from "./clock";
import { standstill, type Velocity } from "./velocity";

export type Answer = "accepted" | "refused" | "unreachable";
export type Transport = (velocity: Velocity, signal: AbortSignal) => Promise<Answer>;

export interface SenderEvents {
  // What to ask for now; asked at the moment of sending, so that nothing waits in a queue.
  velocity(): Velocity;
  roundTrip(ms: number): void;
  // The sender goes on until it is told to stop.
  trouble(kind: "slow" | "refused"): void;
  stopped(isConfirmed: boolean): void;
}

const periodMs = 100;
// Below the 400 ms after which the daemon stops the robot.
const patienceMs = 300;
const stopPatienceMs = 2000;
// Requests travel on connections of their own: a zero that is sent at once could overtake a move that
// was sent a moment ago, and the robot would set off again.
const overtakingMs = 50;
// A move that was called off may still arrive behind the first zero, but not behind the second.
const leastZeros = 2;
// The browser shares six connections among all requests to the robot.
const mostZerosUnderway = 2;

export class Sender {
  readonly #transport: Transport;
  readonly #clock: Clock;
  readonly #events: SenderEvents;
  #phase: "silent" | "driving" | "stopping" = "silent";
  #underway = new Set<AbortController>();
  #isDue = false;
  #movedAt = 0;
  #zeros = 0;
  #stopSince = 0;
  #cancelTick = () => {};
  #cancelPatience = () => {};

  constructor(transport: Transport, clock: Clock, events: SenderEvents) {
    this.#transport = transport;
    this.#clock = clock;
    this.#events = events;
  }

  get isSilent(): boolean {
    return this.#phase === "silent";
  }

  start(): void {
    if (this.#phase !== "silent") {
      return;
    }
    this.#phase = "driving";
    this.#beginPatience();
    this.#tick();
  }

  stop(): void {
    if (this.#phase === "stopping") {
      return;
    }
    this.#cancelTimers();
    this.#phase = "stopping";
    this.#zeros = 0;
    this.#stopSince = this.#clock.now();
    const waitMs = this.#movedAt + overtakingMs - this.#stopSince;
    if (this.#underway.size > 0 && waitMs > 0) {
      this.#cancelTick = this.#clock.after(waitMs, () => this.#beginZeros());
    } else {
      this.#beginZeros();
    }
  }

  #tick(): void {
    this.#cancelTick = this.#clock.after(periodMs, () => this.#tick());
    if (this.#underway.size > 0) {
      this.#isDue = true;
    } else {
      this.#sendMove();
    }
  }

  #sendMove(): void {
    this.#isDue = false;
    this.#movedAt = this.#clock.now();
    this.#send(this.#events.velocity(), (answer) => {
      if (this.#phase === "stopping") {
        this.#beginZeros();
        return;
      }
      if (answer === "refused") {
        this.#events.trouble("refused");
        return;
      }
      if (answer === "accepted") {
        this.#beginPatience();
        this.#events.roundTrip(this.#clock.now() - this.#movedAt);
        if (this.#isDue && this.#phase === "driving") {
          this.#sendMove();
        }
      }
    });
  }

  #beginPatience(): void {
    this.#cancelPatience();
    this.#cancelPatience = this.#clock.after(patienceMs, () => this.#events.trouble("slow"));
  }

  #beginZeros(): void {
    this.#dropAll();
    this.#sendZero();
  }

  #sendZero(): void {
    if (this.#clock.now() - this.#stopSince >= stopPatienceMs) {
      this.#endStop(false);
      return;
    }
    this.#cancelTick = this.#clock.after(periodMs, () => this.#sendZero());
    if (this.#underway.size >= mostZerosUnderway) {
      return;
    }
    this.#zeros += 1;
    const number = this.#zeros;
    this.#send(standstill, (answer) => {
      if (number >= leastZeros && answer === "accepted") {
        this.#endStop(true);
      }
    });
  }

  #endStop(isConfirmed: boolean): void {
    this.#dropAll();
    this.#phase = "silent";
    this.#events.stopped(isConfirmed);
  }

  // Answers to what was called off in the meantime tell nothing any more.
  #send(velocity: Velocity, answered: (answer: Answer) => void): void {
    const controller = new AbortController();
    this.#underway.add(controller);
    const settle = (answer: Answer) => {
      if (this.#underway.delete(controller)) {
        answered(answer);
      }
    };
    this.#transport(velocity, controller.signal).then(settle, () => settle("unreachable"));
  }

  #cancelTimers(): void {
    this.#cancelTick();
    this.#cancelPatience();
  }

  #dropAll(): void {
    this.#cancelTimers();
    const dropped = [...this.#underway];
    this.#underway.clear();
    for (const controller of dropped) {
      controller.abort();
    }
  }
}
