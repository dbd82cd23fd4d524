import { linkState } from "../data/link";
import { Button } from "../kit/Button";
import { Chip, type Tone } from "../kit/Chip";
import type { IconName } from "../kit/Icon";
import { Toggle } from "../kit/Toggle";
import { driveTexts as texts } from "../texts/drive";
import { drive, driveLease, unlockDriving } from "./drive";
import type { DriveModel, DriveState } from "./machine";
import { SpeedChoice } from "./SpeedChoice";

const looks: Record<DriveState, readonly [Tone, IconName]> = {
  locked: ["neutral", "lock"],
  armed: ["ok", "unlock"],
  driving: ["warn", "drive"],
  stopping: ["warn", "square"],
};

function explanation({ state, reason }: DriveModel): string {
  switch (state) {
    case "stopping":
      return texts.stopping;
    case "armed":
      return texts.armedHint;
    case "driving":
      return texts.drivingHint;
    case "locked": {
      const why = texts.reasons[reason ?? "start"];
      const isUnconfirmed = drive.stopOutcome.value === "unconfirmed";
      return isUnconfirmed && reason !== "unconfirmed" ? `${texts.unconfirmed} ${why}` : why;
    }
  }
}

/** The switch, the state in words and the speed. */
export function DriveBar({ onUnlocked }: { onUnlocked: () => void }) {
  const model = drive.model.value;
  const [tone, icon] = looks[model.state];
  const change = (isWanted: boolean, takeOver = false) => {
    if (!isWanted) {
      drive.lock("switch");
    } else if (unlockDriving(takeOver) && drive.model.peek().state === "armed") {
      onUnlocked();
    }
  };
  const isOtherTab = driveLease.holder.value === "other";
  return (
    <div class="bar">
      <div class="switch">
        <Toggle
          label={texts.unlock}
          checked={model.state !== "locked"}
          disabled={linkState.value === "lost" || isOtherTab}
          onChange={(isWanted) => change(isWanted)}
        />
        <Chip tone={tone} icon={icon}>
          {texts.states[model.state]}
        </Chip>
        {drive.isLinkSlow.value && (
          <Chip tone="warn" icon="link">
            {texts.slowLink}
          </Chip>
        )}
      </div>
      <SpeedChoice />
      <p class="reason" role="status">
        {explanation(model)}
      </p>
      {isOtherTab && (
        <p class="row">
          {texts.otherTab}
          <Button onClick={() => change(true, true)}>{texts.takeOver}</Button>
        </p>
      )}
    </div>
  );
}
