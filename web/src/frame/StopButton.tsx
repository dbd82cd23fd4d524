import { canOperate, openLogin, role } from "../data/session";
import { driveStop } from "../drive/stop";
import { Icon } from "../kit/Icon";
import * as texts from "../texts/frame";
import { programToStop, stopAll } from "./stopAll";

export function StopButton() {
  const state = driveStop.value;
  if (role.value === "guest") {
    return (
      <button
        type="button"
        class="button stop-login"
        onClick={() => openLogin(texts.stopLoginReason)}
      >
        {texts.stopLogin}
      </button>
    );
  }
  return (
    <div class="stop">
      <button
        type="button"
        title={texts.stopHint}
        disabled={!canOperate.value}
        // The press itself stops, a click would only come with the release.
        onPointerDown={stopAll}
        onClick={(event) => {
          if (event.detail === 0) {
            stopAll();
          }
        }}
      >
        <Icon name="stop" />
        <span>
          {texts.stop}
          <small aria-hidden="true">{texts.stopStates[state]}</small>
        </span>
      </button>
      <span class="unseen" role="status">
        {texts.stopStates[state]}
      </span>
      <StopProgram />
    </div>
  );
}

/** In a dialog the button is there for those whom it serves. */
export function DialogStopButton() {
  return canOperate.value ? <StopButton /> : null;
}

/** A program that runs may drive on: it has a stop of its own. */
function StopProgram() {
  const program = programToStop.value;
  if (program === undefined) {
    return null;
  }
  return (
    <button type="button" class="button danger stop-program" onClick={program.stop}>
      {texts.stopProgram(program.name)}
    </button>
  );
}
