import type { Clock } from "../../src/drive/clock";
import type { Answer, Transport } from "../../src/drive/sender";
import type { Velocity } from "../../src/drive/velocity";

interface Appointment {
  readonly at: number;
  readonly action: () => void;
}

export class FakeClock implements Clock {
  #now = 0;
  #appointments: Appointment[] = [];

  now(): number {
    return this.#now;
  }

  after(ms: number, action: () => void): () => void {
    const appointment = { at: this.#now + ms, action };
    this.#appointments.push(appointment);
    return () => {
      this.#appointments = this.#appointments.filter((other) => other !== appointment);
    };
  }

  /** Promises that are settled on the way are heard before the next appointment. */
  async pass(ms: number): Promise<void> {
    const end = this.#now + ms;
    await settled();
    for (;;) {
      const due = this.#appointments
        .filter((appointment) => appointment.at <= end)
        .sort((one, other) => one.at - other.at)[0];
      if (due === undefined) {
        break;
      }
      this.#appointments = this.#appointments.filter((other) => other !== due);
      this.#now = due.at;
      due.action();
      await settled();
    }
    this.#now = end;
  }
}

export async function settled(): Promise<void> {
  await new Promise((resolve) => setImmediate(resolve));
}

export interface SentCommand {
  readonly at: number;
  readonly velocity: Velocity;
  isAborted: boolean;
}

/** A robot at the end of a link whose delay and answers the test chooses. */
export class FakeRobot {
  readonly #clock: FakeClock;
  readonly sent: SentCommand[] = [];
  delayMs = 5;
  answer: Answer = "accepted";
  /** Nothing comes back. */
  isDeaf = false;
  mostUnderway = 0;
  #underway = 0;

  constructor(clock: FakeClock) {
    this.#clock = clock;
  }

  readonly transport: Transport = (velocity, signal) => {
    const command = { at: this.#clock.now(), velocity, isAborted: false };
    this.sent.push(command);
    this.#underway += 1;
    this.mostUnderway = Math.max(this.mostUnderway, this.#underway);
    return new Promise((resolve) => {
      const end = (answer: Answer) => {
        this.#underway -= 1;
        resolve(answer);
      };
      const answer = this.answer;
      const cancel = this.isDeaf ? () => {} : this.#clock.after(this.delayMs, () => end(answer));
      signal.addEventListener("abort", () => {
        command.isAborted = true;
        cancel();
        end("unreachable");
      });
    });
  };

  get times(): number[] {
    return this.sent.map((command) => command.at);
  }

  get velocities(): Velocity[] {
    return this.sent.map((command) => command.velocity);
  }

  forget(): void {
    this.sent.length = 0;
  }
}
