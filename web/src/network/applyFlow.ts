import {
  afterObservation,
  afterWish,
  afterWrite,
  beginFlow,
  type FlowPlan,
  type FlowState,
  type Observation,
  resumeFlow,
  shouldMove,
  type Wish,
  type Written,
} from "./flowState";
import type { Values } from "./tree";

/** What the flow needs of the world. */
export interface FlowWorld {
  now(): number;
  wait(milliseconds: number): Promise<void>;
  write(body: unknown): Promise<Written>;
  /** Undefined where the robot did not answer. */
  readMessage(): Promise<string | undefined>;
  readValues(): Promise<Values | undefined>;
  reaches(origin: string): Promise<boolean>;
}

export interface FlowBodies {
  readonly keep: unknown;
  /** Undefined where what was in force before can't be told exactly. */
  readonly revert: unknown;
}

const periodMs = 1000;
const lastingEnds = new Set(["kept", "noRollback", "silent"]);

/** Writes settings and then looks, again and again, at what has become of them. */
export class ApplyFlow {
  readonly plan: FlowPlan;
  readonly bodies: FlowBodies;
  readonly #world: FlowWorld;
  readonly #onChange: (state: FlowState) => void;
  #state: FlowState;
  #stopped = false;

  constructor(
    plan: FlowPlan,
    bodies: FlowBodies,
    world: FlowWorld,
    onChange: (state: FlowState) => void,
  ) {
    this.plan = plan;
    this.bodies = bodies;
    this.#world = world;
    this.#onChange = onChange;
    this.#state = beginFlow(plan, world.now());
  }

  get state(): FlowState {
    return this.#state;
  }

  async start(): Promise<void> {
    this.#become(this.#state);
    const written = await this.#world.write(this.bodies.keep);
    this.#become(afterWrite(this.#state, written, this.#world.now()));
    await this.#watch();
  }

  /** Goes on with what another page has sent; a deadline is that of the trial that it saw begin. */
  async resume(deadline: number | undefined): Promise<void> {
    this.#become(resumeFlow(this.plan, this.#world.now(), deadline));
    await this.#watch();
  }

  /** The same settings once more keep them; those from before take them back. */
  async ask(wish: Wish): Promise<void> {
    if (this.#state.stage !== "trial" || this.#state.wish !== undefined) {
      return;
    }
    this.#become(afterWish(this.#state, wish));
    const body = wish === "keep" ? this.bodies.keep : this.bodies.revert;
    const written = await this.#world.write(body);
    this.#become(afterWrite(this.#state, written, this.#world.now()));
  }

  stop(): void {
    this.#stopped = true;
  }

  #become(state: FlowState): void {
    this.#state = state;
    if (!this.#stopped) {
      this.#onChange(state);
    }
  }

  async #watch(): Promise<void> {
    while (!this.#stopped && this.#hasMoreToSee()) {
      const observation = await this.#observe();
      if (this.#stopped) {
        return;
      }
      this.#become(afterObservation(this.plan, this.#state, observation));
      if (shouldMove(this.plan, this.#state)) {
        return;
      }
      await this.#world.wait(periodMs);
    }
  }

  /** A page that is bound to move looks on until the new address answers. */
  #hasMoreToSee(): boolean {
    const { stage, end } = this.#state;
    const isMoving = this.plan.newOrigin !== undefined && lastingEnds.has(end ?? "");
    return stage !== "ended" || isMoving;
  }

  async #observe(): Promise<Observation> {
    const { newOrigin } = this.plan;
    const [message, shown, reachesNew] = await Promise.all([
      this.#world.readMessage(),
      this.#world.readValues(),
      newOrigin === undefined ? false : this.#world.reaches(newOrigin),
    ]);
    const reachesOld = message !== undefined || shown !== undefined;
    return { now: this.#world.now(), message, shown, reachesOld, reachesNew };
  }
}
