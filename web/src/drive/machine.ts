// The dead-man switch: the robot moves only in "driving", which only a held control keeps up.
export type DriveState = "locked" | "armed" | "driving" | "stopping";

export type LockReason =
  | "start"
  | "switch"
  | "stop"
  | "hidden"
  | "blur"
  | "leaving"
  | "offline"
  | "slow"
  | "role"
  | "limits"
  | "gamepad"
  | "otherTab"
  | "notNeutral"
  | "unconfirmed";

export interface DriveModel {
  readonly state: DriveState;
  // Why the drive is locked or, while it is stopping, why it will be.
  readonly reason: LockReason | undefined;
  // Somebody holds a control that makes the robot move.
  readonly isHeld: boolean;
  // Every control rests in its middle, held or not.
  readonly isNeutral: boolean;
}

export type DriveEvent =
  | { readonly kind: "inputs"; readonly isHeld: boolean; readonly isNeutral: boolean }
  | { readonly kind: "unlock" }
  | { readonly kind: "lock"; readonly reason: LockReason }
  | { readonly kind: "stop" }
  | { readonly kind: "stopped"; readonly isConfirmed: boolean };

export const lockedAtStart: DriveModel = {
  state: "locked",
  reason: "start",
  isHeld: false,
  isNeutral: true,
};

export function next(model: DriveModel, event: DriveEvent): DriveModel {
  switch (event.kind) {
    case "inputs":
      return model.isHeld === event.isHeld && model.isNeutral === event.isNeutral
        ? model
        : afterInputs({ ...model, isHeld: event.isHeld, isNeutral: event.isNeutral });
    case "unlock":
      return afterUnlock(model);
    case "lock":
      return afterLock(model, event.reason);
    case "stop":
      return { ...model, state: "stopping", reason: "stop" };
    case "stopped":
      return afterStopped(model, event.isConfirmed);
  }
}

function afterInputs(model: DriveModel): DriveModel {
  if (model.state === "armed" && model.isHeld) {
    return { ...model, state: "driving" };
  }
  if (model.state === "driving" && !model.isHeld) {
    return { ...model, state: "stopping" };
  }
  return model;
}

// A control that is already held must be let go of first, or the robot would start by itself.
function afterUnlock(model: DriveModel): DriveModel {
  if (model.state !== "locked") {
    return model;
  }
  return model.isNeutral && !model.isHeld
    ? { ...model, state: "armed", reason: undefined }
    : { ...model, reason: "notNeutral" };
}

function afterLock(model: DriveModel, reason: LockReason): DriveModel {
  switch (model.state) {
    case "locked":
      return model;
    case "armed":
      return { ...model, state: "locked", reason };
    case "driving":
      return { ...model, state: "stopping", reason };
    case "stopping":
      return { ...model, reason: model.reason ?? reason };
  }
}

function afterStopped(model: DriveModel, isConfirmed: boolean): DriveModel {
  if (model.state !== "stopping") {
    return model;
  }
  const reason = model.reason ?? (isConfirmed ? undefined : "unconfirmed");
  if (reason !== undefined) {
    return { ...model, state: "locked", reason };
  }
  // A control taken again while the robot was being stopped is a new hold.
  return { ...model, state: model.isHeld ? "driving" : "armed" };
}
