import { linkState, roundTripMs } from "../data/link";
import { bumper, power } from "../data/resources";
import { defaultRole } from "../data/session";
import { useResource } from "../data/useResource";
import { Chip, type Tone } from "../kit/Chip";
import { formatNumber } from "../kit/format";
import * as texts from "../texts/frame";

// A glance at the top bar needs no more; the pages that show it large ask more often.
const glanceMs = 1000;

export function linkTone(isLost: boolean, milliseconds: number | undefined): Tone {
  if (isLost || (milliseconds !== undefined && milliseconds >= 300)) {
    return "bad";
  }
  if (milliseconds === undefined) {
    return "neutral";
  }
  return milliseconds < 150 ? "ok" : "warn";
}

export function LinkChip() {
  const isLost = linkState.value === "lost";
  const milliseconds = roundTripMs.value;
  const text = milliseconds === undefined ? texts.linkUnknown : texts.linkMs(milliseconds);
  return (
    <Chip
      tone={linkTone(isLost, milliseconds)}
      icon={isLost ? "unlink" : "link"}
      title={texts.linkTitle}
    >
      <span class="unseen">{texts.linkLabel("")}</span>
      {isLost ? texts.linkLost : text}
    </Chip>
  );
}

export function BatteryChip() {
  useResource(power);
  const state = power.value.value;
  const isOld = power.freshness.value !== "fresh";
  const icon = state?.extPower ? "charging" : "battery";
  // Without the robot the daemon tells zeros.
  if (state === undefined || state.voltage === 0) {
    return (
      <Chip tone="neutral" icon="battery">
        <span class="unseen">{texts.batteryLabel("")}</span>
        {texts.batteryUnknown}
      </Chip>
    );
  }
  const tone = state.batteryLow ? "bad" : "ok";
  return (
    <Chip tone={isOld ? "neutral" : tone} icon={state.batteryLow ? "warning" : icon}>
      <span class="unseen">{texts.batteryLabel("")}</span>
      {texts.volts(formatNumber(state.voltage, 1))}
      {state.batteryLow && ` ${texts.batteryLow}`}
      {isOld && ` ${texts.batteryOld}`}
    </Chip>
  );
}

export function BumperChip() {
  useResource(bumper, glanceMs);
  const state = bumper.freshness.value === "fresh" ? bumper.value.value : undefined;
  const text = state ? texts.touching : texts.clear;
  return (
    <Chip tone={state === undefined ? "neutral" : state ? "bad" : "ok"} icon="bumper">
      <span class="unseen">{texts.bumperLabel("")}</span>
      {state === undefined ? texts.bumperUnknown : text}
    </Chip>
  );
}

export function EveryoneIsAdminChip() {
  return defaultRole.value === "admin" ? (
    <Chip tone="warn" icon="warning" title={texts.everyoneIsAdminHint}>
      {texts.everyoneIsAdmin}
    </Chip>
  ) : null;
}
