import { ChangeTable } from "../configuration/ChangeTable";
import { now } from "../data/clock";
import { Button } from "../kit/Button";
import { Dialog } from "../kit/Dialog";
import * as editing from "../texts/editing";
import * as texts from "../texts/network";
import { type ActiveFlow, activeFlow, closeFlow } from "./activeFlow";
import { originAt } from "./carrier";
import { notTaken } from "./diff";
import { type End, hasNewText } from "./flowState";
import { rowOf } from "./reviewAndApply";

const goodEnds: ReadonlySet<End | undefined> = new Set(["kept", "unchanged", "reverted"]);
/** The ends after which the files should hold what was sent. */
const tellingEnds: ReadonlySet<End | undefined> = new Set([
  "kept",
  "unchanged",
  "noRollback",
  "silent",
]);

function Differences({ flow, state }: ActiveFlow) {
  if (state.shown === undefined || !tellingEnds.has(state.end)) {
    return null;
  }
  const missing = notTaken(flow.plan.tree, flow.plan.sent, state.shown);
  return missing.length === 0 ? (
    <p>{texts.matches}</p>
  ) : (
    <>
      <p class="error">{texts.differs}</p>
      <ChangeTable rows={missing.map(rowOf)} />
    </>
  );
}

/** What the script said; a text that stays the same may be that of the run before. */
function Output({ flow, state }: ActiveFlow) {
  const { message = "", stage, end } = state;
  const isWaiting = stage === "sending" || (stage === "waiting" && !hasNewText(state));
  if (isWaiting || end === "notAccepted") {
    return null;
  }
  if (message === flow.plan.oldMessage) {
    return <p>{texts.sameText}</p>;
  }
  return message === "" ? <p>{texts.noText}</p> : <pre>{message}</pre>;
}

function Link({ name, origin }: { name: string; origin: string | undefined }) {
  return origin ? (
    <p>
      {name} <a href={origin}>{origin}</a>
    </p>
  ) : null;
}

function Actions({ flow, state }: ActiveFlow) {
  const secondsLeft = (state.deadline - now.value) / 1000;
  const { stage, wish } = state;
  if (stage !== "trial") {
    return stage === "ended" || secondsLeft < 0 ? (
      <Button kind="primary" onClick={closeFlow}>
        {editing.close}
      </Button>
    ) : null;
  }
  const disabled = secondsLeft < 1 || state.reach === "nowhere" || wish !== undefined;
  return (
    <>
      {flow.bodies.revert === undefined ? (
        <p class="hint">{texts.waitForRevert}</p>
      ) : (
        <Button disabled={disabled} onClick={() => void flow.ask("revert")}>
          {texts.revert}
        </Button>
      )}
      <Button kind="primary" disabled={disabled} onClick={() => void flow.ask("keep")}>
        {texts.keep}
      </Button>
    </>
  );
}

/** Follows a change from the sending to its end, in front of everything else. */
export function ApplyPanel() {
  const active = activeFlow.value;
  if (active === undefined) {
    return null;
  }
  const { form, flow, state, from } = active;
  // The time of the clock is up to a second old, and there must never be less left than is told.
  const secondsLeft = Math.max(0, Math.floor((state.deadline - now.value) / 1000));
  const isEnded = state.stage === "ended";
  const isBad = isEnded && !goodEnds.has(state.end);
  return (
    <Dialog
      title={texts.panel[form.network]}
      onClose={closeFlow}
      blocking={!isEnded}
      actions={<Actions {...active} />}
    >
      <div class="network panel stack">
        <p role="status" class={isBad ? "error stage" : "stage"}>
          {texts.stageOf(state)}
        </p>
        {!isEnded && <p class="countdown">{texts.countdown(secondsLeft)}</p>}
        <p>{texts.reaches[state.reach]}</p>
        <Link name={texts.newAddress} origin={flow.plan.newOrigin} />
        <Link name={texts.oldAddress} origin={from && originAt(from, location)} />
        <Output {...active} />
        <Differences {...active} />
      </div>
    </Dialog>
  );
}
