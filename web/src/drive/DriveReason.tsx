import * as texts from "../texts/drive";
import { drive } from "./drive";
import type { DriveModel } from "./machine";

function explanation({ state, reason }: DriveModel): string {
  switch (state) {
    case "stopping":
      return texts.stopping;
    case "armed":
      return texts.armedHint;
    case "driving":
      return "";
    case "locked": {
      const why = texts.reasons[reason ?? "start"];
      const isUnconfirmed = drive.stopOutcome.value === "unconfirmed";
      return isUnconfirmed && reason !== "unconfirmed" ? `${texts.unconfirmed} ${why}` : why;
    }
  }
}

/** What to do now, or why nothing can be done; whoever drives needs the whole picture instead. */
export function DriveReason() {
  return (
    <p class="reason" role="status">
      {explanation(drive.model.value)}
    </p>
  );
}
