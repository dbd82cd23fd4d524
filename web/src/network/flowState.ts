import { notTaken } from "./diff";
import { outcomeOf } from "./outcome";
import type { Network, NetworkTree, Values } from "./tree";

export interface FlowPlan {
  readonly network: Network;
  readonly tree: NetworkTree;
  readonly sent: Values;
  /** The result text before the write: the daemon shows it until the script has ended. */
  readonly oldMessage: string | undefined;
  /** Where the page will be found, if that changes and is known. */
  readonly newOrigin: string | undefined;
}

export type Stage = "sending" | "waiting" | "trial" | "expiring" | "ended";

export type End =
  | "notAccepted"
  | "kept"
  | "unchanged"
  | "refused"
  | "restored"
  | "failed"
  | "noRollback"
  | "reverted"
  | "expired"
  | "unclear"
  | "silent";

export type Reach = "unknown" | "old" | "new" | "both" | "nowhere";
export type Wish = "keep" | "revert";
export type Written = "accepted" | "refused" | "unreachable";

export interface FlowState {
  readonly stage: Stage;
  readonly end: End | undefined;
  readonly startedAt: number;
  /** When the robot was last heard without a new text: a trial has begun after it. */
  readonly silentAt: number;
  /** When the countdown is over. */
  readonly deadline: number;
  /** How the daemon took the last write. */
  readonly written: Written | undefined;
  readonly message: string | undefined;
  /** The text from before the last write. */
  readonly oldMessage: string | undefined;
  readonly reach: Reach;
  /** What the robot's files hold; undefined until they were read. */
  readonly shown: Values | undefined;
  readonly wish: Wish | undefined;
}

export interface Observation {
  readonly now: number;
  readonly message: string | undefined;
  readonly shown: Values | undefined;
  readonly reachesOld: boolean;
  readonly reachesNew: boolean;
}

export const patienceMs = 90_000;
/** A script may print what it printed before: then only the files tell that it ran. */
const sameTextAfterMs = 10_000;
/** Timers of the controller may be late, and the links take their time to come up. */
const expiryPatienceMs = 30_000;

export function beginFlow(plan: FlowPlan, now: number): FlowState {
  return {
    stage: "sending",
    end: undefined,
    startedAt: now,
    silentAt: now,
    deadline: now + patienceMs,
    written: undefined,
    message: plan.oldMessage,
    oldMessage: plan.oldMessage,
    reach: "unknown",
    shown: undefined,
    wish: undefined,
  };
}

/** What another page has sent, and maybe seen on trial until a deadline. */
export function resumeFlow(plan: FlowPlan, now: number, deadline: number | undefined): FlowState {
  const state: FlowState = { ...beginFlow(plan, now), written: "accepted" };
  return deadline === undefined
    ? { ...state, stage: "waiting" }
    : { ...state, stage: "trial", deadline, oldMessage: undefined };
}

export function afterWrite(state: FlowState, written: Written, now: number): FlowState {
  if (state.wish !== undefined) {
    return written === "accepted" ? { ...state, written } : { ...state, written, wish: undefined };
  }
  return written === "refused"
    ? { ...state, written, stage: "ended", end: "notAccepted" }
    : {
        ...state,
        written,
        stage: "waiting",
        startedAt: now,
        silentAt: now,
        deadline: now + patienceMs,
      };
}

export function afterWish(state: FlowState, wish: Wish): FlowState {
  return { ...state, wish, oldMessage: state.message };
}

export function hasNewText(state: FlowState): boolean {
  return state.message !== undefined && state.message !== state.oldMessage;
}

/** Undefined where the robot's files could not be read. */
function matchesSent(plan: FlowPlan, { shown }: FlowState): boolean | undefined {
  return shown && notTaken(plan.tree, plan.sent, shown).length === 0;
}

function ended(state: FlowState, end: End): FlowState {
  return { ...state, stage: "ended", end };
}

function trialUntil(state: FlowState, deadline: number): FlowState {
  return { ...state, stage: "trial", deadline, wish: undefined, oldMessage: state.message };
}

/** Somebody else's script may end a trial in words of its own: the files tell what it did. */
function withoutOutcome(plan: FlowPlan, state: FlowState): End {
  const matches = matchesSent(plan, state);
  if (state.wish === "keep" && matches) {
    return "kept";
  }
  return state.wish === "revert" && matches === false ? "reverted" : "noRollback";
}

function afterOutcome(plan: FlowPlan, state: FlowState, now: number): FlowState {
  const outcome = outcomeOf(state.message ?? "");
  if (outcome === undefined) {
    return ended(state, withoutOutcome(plan, state));
  }
  if (outcome.kind === "trial") {
    // A page that took a trial over knows better than the text how long it still is.
    const isResumed = state.stage === "trial" && state.oldMessage === undefined;
    const until = isResumed ? state.deadline : state.silentAt + outcome.seconds * 1000;
    const trial = trialUntil(state, until);
    return now < until ? trial : afterExpiry(plan, trial, now);
  }
  if (outcome.kind === "refused" && state.stage !== "waiting") {
    // A refused confirmation leaves the trial as it is.
    return { ...state, wish: undefined, oldMessage: state.message };
  }
  if (outcome.kind === "confirmed") {
    const isBack = state.wish === "revert" || matchesSent(plan, state) === false;
    return ended(state, isBack ? "reverted" : "kept");
  }
  return ended(state, outcome.kind);
}

function afterWaiting(plan: FlowPlan, state: FlowState, now: number): FlowState {
  const waited = now - state.startedAt;
  const outcome = outcomeOf(state.message ?? "");
  if (outcome?.kind === "trial" && waited > sameTextAfterMs && matchesSent(plan, state)) {
    return trialUntil(state, state.startedAt + outcome.seconds * 1000);
  }
  const isOver = now >= state.deadline && state.reach !== "nowhere";
  return isOver ? ended(state, "silent") : state;
}

function afterExpiry(plan: FlowPlan, state: FlowState, now: number): FlowState {
  const isNew = matchesSent(plan, state);
  if (isNew === false) {
    return ended(state, "expired");
  }
  return isNew && now >= state.deadline + expiryPatienceMs
    ? ended(state, "unclear")
    : { ...state, stage: "expiring" };
}

function reachOf({ reachesOld, reachesNew }: Observation): Reach {
  if (reachesOld) {
    return reachesNew ? "both" : "old";
  }
  return reachesNew ? "new" : "nowhere";
}

export function afterObservation(plan: FlowPlan, before: FlowState, seen: Observation): FlowState {
  const heard: FlowState = {
    ...before,
    message: seen.message ?? before.message,
    shown: seen.shown,
    reach: reachOf(seen),
  };
  const isSilent = seen.message !== undefined && !hasNewText(heard);
  const state = isSilent ? { ...heard, silentAt: seen.now } : heard;
  if (state.stage === "ended" || state.stage === "sending") {
    return state;
  }
  if (hasNewText(state)) {
    return afterOutcome(plan, state, seen.now);
  }
  if (state.stage === "waiting") {
    return afterWaiting(plan, state, seen.now);
  }
  return seen.now >= state.deadline ? afterExpiry(plan, state, seen.now) : state;
}

/** Whether the page should go on at the new address: it answers, and the change wasn't undone. */
export function shouldMove(plan: FlowPlan, state: FlowState): boolean {
  if (plan.newOrigin === undefined || (state.reach !== "new" && state.reach !== "both")) {
    return false;
  }
  const inForce = state.end === "kept" || state.end === "noRollback" || state.end === "silent";
  return state.stage === "trial" || inForce || (state.stage === "waiting" && state.reach === "new");
}
