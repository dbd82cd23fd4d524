import { ApplyFlow, type FlowBodies, type FlowWorld } from "../../src/network/applyFlow";
import type { FlowPlan, FlowState, Written } from "../../src/network/flowState";
import { settledValues } from "../../src/network/tagRules";
import { bodyOf, type Values, valuesOf } from "../../src/network/tree";
import { wired } from "./samples";

export const trialText = (seconds: number) =>
  `eth0:1 is off.\nROLLBACK ${seconds} s: the settings are on trial.\n`;

/** A robot with a clock of its own: waiting moves it on, and what is due happens on the way. */
export class FakeRobot implements FlowWorld {
  time = 1_000_000;
  message = "";
  values: Values = valuesOf(wired);
  answersAtOld = true;
  answersAtNew = false;
  writes: string[] = [];
  onWrite: (count: number) => Written = () => "accepted";
  readonly #due: { at: number; act: () => void }[] = [];

  now(): number {
    return this.time;
  }

  after(milliseconds: number, act: () => void): void {
    this.#due.push({ at: this.time + milliseconds, act });
  }

  async wait(milliseconds: number): Promise<void> {
    this.time += milliseconds;
    for (const entry of this.#due.filter(({ at }) => at <= this.time)) {
      this.#due.splice(this.#due.indexOf(entry), 1);
      entry.act();
    }
  }

  async write(body: unknown): Promise<Written> {
    this.writes.push(JSON.stringify(body));
    return this.answersAtOld ? this.onWrite(this.writes.length) : "unreachable";
  }

  async readMessage(): Promise<string | undefined> {
    return this.answersAtOld ? this.message : undefined;
  }

  async readValues(): Promise<Values | undefined> {
    return this.answersAtOld ? this.values : undefined;
  }

  async reaches(): Promise<boolean> {
    return this.answersAtNew;
  }
}

export const before = valuesOf(wired);
export const sent = settledValues(wired, before, { "eth0:1/enable": "false" });

export interface Begun {
  readonly flow: ApplyFlow;
  readonly states: FlowState[];
}

/** A flow that turns the alias off. */
export function begin(robot: FakeRobot, wishes: Partial<FlowPlan> = {}): Begun {
  const plan: FlowPlan = {
    network: "eth",
    tree: wired,
    sent,
    oldMessage: robot.message,
    newOrigin: undefined,
    ...wishes,
  };
  const bodies: FlowBodies = {
    keep: bodyOf("eth", wired, sent),
    revert: bodyOf("eth", wired, before),
  };
  const states: FlowState[] = [];
  const flow = new ApplyFlow(plan, bodies, robot, (state) => {
    states.push(state);
    // A flow that never ends would keep its test from ending.
    if (robot.time > 2_000_000) {
      flow.stop();
    }
  });
  return { flow, states };
}
