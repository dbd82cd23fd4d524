import { linkState } from "../data/link";
import { pollingPaused } from "../data/scheduler";
import { Button } from "../kit/Button";
import { Chip, type Tone } from "../kit/Chip";
import type { IconName } from "../kit/Icon";
import { Toggle } from "../kit/Toggle";
import * as texts from "../texts/drive";
import { drive, lockOtherTabs } from "./drive";
import type { DriveState } from "./machine";
import { SpeedChoice } from "./SpeedChoice";

const looks: Record<DriveState, readonly [Tone, IconName]> = {
  locked: ["neutral", "lock"],
  armed: ["ok", "unlock"],
  driving: ["warn", "drive"],
  stopping: ["warn", "square"],
};

/** The switch, the state and the speed. */
export function DriveBar({ onUnlocked }: { onUnlocked: () => void }) {
  const model = drive.model.value;
  const [tone, icon] = looks[model.state];
  const change = (isWanted: boolean) => {
    if (!isWanted) {
      drive.lock("switch");
      return;
    }
    drive.unlock();
    if (drive.model.peek().state === "armed") {
      onUnlocked();
    }
  };
  const takeOver = () => {
    lockOtherTabs();
    change(true);
  };
  const isOtherTab = pollingPaused.value !== undefined;
  return (
    <div class="bar">
      <div class="switch">
        <Toggle
          label={texts.unlock}
          checked={model.state !== "locked"}
          disabled={linkState.value === "lost" || isOtherTab}
          onChange={change}
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
      {isOtherTab && (
        <p class="row">
          {texts.otherTab}
          <Button onClick={takeOver}>{texts.takeOver}</Button>
        </p>
      )}
    </div>
  );
}
