import { type ReadonlySignal, signal } from "@preact/signals";
import { asString, field } from "../data/decode";
import { read, write } from "../data/requests";
import { ApplyFlow, type FlowWorld } from "./applyFlow";
import { type Effect, originAt } from "./carrier";
import { type FlowPlan, type FlowState, shouldMove } from "./flowState";
import { addressAfterMove, fingerprint, type HandedFlow } from "./handOver";
import type { NetworkForm } from "./NetworkForm";
import { probe } from "./probe";
import { settledValues } from "./tagRules";
import { type Values, valuesOf } from "./tree";

export interface ActiveFlow {
  readonly form: NetworkForm;
  readonly flow: ApplyFlow;
  readonly state: FlowState;
  /** The host from where another page began the flow. */
  readonly from: string | undefined;
}

const active = signal<ActiveFlow | undefined>(undefined);

/** The change that is under way, or whose end is still to be read. */
export const activeFlow: ReadonlySignal<ActiveFlow | undefined> = active;

async function readMessage(form: NetworkForm): Promise<string | undefined> {
  const outcome = await read(`${form.path}result`);
  return outcome.state === "answer" ? asString(field(outcome.value, "message")) : undefined;
}

function wait(milliseconds: number): Promise<void> {
  return new Promise((resolve) => setTimeout(resolve, milliseconds));
}

function worldOf(form: NetworkForm): FlowWorld {
  return {
    now: Date.now,
    wait,
    write: async (body) => (await write(form.path, body)).state,
    readMessage: () => readMessage(form),
    readValues: async () => {
      const tree = await form.read();
      return tree && valuesOf(tree);
    },
    reaches: probe,
  };
}

function follow(form: NetworkForm, plan: FlowPlan, bodies: ApplyFlow["bodies"], from?: string) {
  const flow = new ApplyFlow(plan, bodies, worldOf(form), (state) => {
    active.value = { form, flow, state, from };
    if (shouldMove(plan, state)) {
      flow.stop();
      location.assign(addressAfterMove(plan.newOrigin ?? "", handed(plan, state)));
    } else if (state.end !== undefined) {
      void settle(form, state);
    }
  });
  return flow;
}

/** Also what has ended goes along, with its end still to be read; but not what never showed one. */
function handed(plan: FlowPlan, { stage, end, deadline }: FlowState): HandedFlow | undefined {
  return end === "silent"
    ? undefined
    : {
        network: plan.network,
        until: stage === "trial" ? deadline : 0,
        from: location.hostname,
        oldText: fingerprint(plan.oldMessage ?? ""),
        dns: plan.sent["wlan0/dns"] ?? "",
      };
}

/** What the robot shows now is what is edited next. */
async function settle(form: NetworkForm, { end }: FlowState): Promise<void> {
  await form.load();
  if (end === "kept" || end === "unchanged" || end === "noRollback") {
    form.discard();
  }
}

function planOf(
  form: NetworkForm,
  sent: Values,
  oldMessage: string | undefined,
  newOrigin?: string,
): FlowPlan {
  return { network: form.network, tree: form.tree.peek() ?? [], sent, oldMessage, newOrigin };
}

/** The values in force, as they would be sent. */
function inForce(form: NetworkForm, edits: Values = {}): Values {
  return settledValues(form.tree.peek() ?? [], form.base.peek(), edits);
}

/** Sends the form's values and follows what becomes of them. */
export async function apply(form: NetworkForm, effect: Effect): Promise<void> {
  const sent = form.sent.peek();
  const newOrigin = effect.kind === "moves" ? originAt(effect.address, location) : undefined;
  const plan = planOf(form, sent, await readMessage(form), newOrigin);
  await follow(form, plan, { keep: form.body(sent), revert: form.revertBody() }).start();
}

/** The settings in force once more: on trial they are kept, and else nothing happens. */
export async function keepLast(form: NetworkForm): Promise<void> {
  const sent = inForce(form);
  const plan = planOf(form, sent, await readMessage(form));
  await follow(form, plan, { keep: form.body(sent), revert: undefined }).start();
}

/** Goes on with what the page at the old address began. */
export async function resume(form: NetworkForm, { until, from, oldText, dns }: HandedFlow) {
  let message: string | undefined;
  // The network has only just come up: the first questions may get lost.
  for (let tries = 0; message === undefined && tries < 10; tries += 1) {
    await wait(tries === 0 ? 0 : 1000);
    message = await readMessage(form);
  }
  await form.load();
  const sent = inForce(form, dns === "" ? {} : { "wlan0/dns": dns });
  const isOldText = fingerprint(message ?? "") === oldText;
  const plan = planOf(form, sent, isOldText ? message : undefined);
  const bodies = { keep: form.body(sent), revert: undefined };
  await follow(form, plan, bodies, from).resume(until === 0 ? undefined : until);
}

export function closeFlow(): void {
  active.value?.flow.stop();
  active.value = undefined;
}
