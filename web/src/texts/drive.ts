import type { DriveScene, KeyMapName } from "../drive/driveSettings";
import type { FrameProblem } from "../drive/framePace";
import type { DriveState, LockReason } from "../drive/machine";
import type { Velocity } from "../drive/velocity";
import { formatNumber } from "../kit/format";

export const unconfirmed = "Stop not confirmed - robot stops by itself within 0.5 s.";

export const states: Record<DriveState, string> = {
  locked: "Locked",
  armed: "Armed",
  driving: "Driving",
  stopping: "Stopping",
};

export const reasons: Record<LockReason, string> = {
  start: "Unlock to drive. The robot moves only while you hold a control.",
  switch: "You locked the drive.",
  stop: "The stop button stopped the robot. Unlock to drive on.",
  hidden: "Locked: the page was hidden.",
  blur: "Locked: another window came to the front.",
  leaving: "Locked: the page was left.",
  offline: "Locked: the connection was lost.",
  slow: "Locked: link too slow.",
  role: "Locked: the login changed.",
  limits: "Locked: the robot refused the command.",
  gamepad: "Locked: the gamepad is gone.",
  otherTab: "Another tab of this browser took over or stopped the robot.",
  notNeutral: "Let go of all sticks and keys first, then unlock.",
  unconfirmed,
};

export const scenes: Record<DriveScene, string> = {
  sideBySide: "Camera and scan, side by side",
  overlay: "Scan over the camera",
  camera: "Camera",
  scan: "Scan",
};

export const frameProblems: Record<FrameProblem, string> = {
  waiting: "Waiting for the camera: it is starting or has no new picture.",
  noJpeg: "The camera's picture can't be shown: it is no JPEG or too large.",
  unreachable: "No answer from the camera.",
  other: "The robot gives no camera picture.",
};

export const keyMapNames: Record<KeyMapName, string> = {
  letters: "W A S D, turn with Q E",
  arrows: "Arrow keys, turn with , .",
};

export const stopping = "Stopping …";
export const unlock = "Unlock driving";
export const armedHint = "Hold a stick, or Shift and a key, to drive.";
export const slowLink = "Slow link: half speed";
export const velocity = ([vx, vy, omega]: Velocity) =>
  `${formatNumber(vx)} m/s ahead, ${formatNumber(vy)} m/s left, ${formatNumber(omega)} rad/s`;
export const commanded = "Command";
export const measured = "Robot";
export const halved =
  "That was outside the robot's speed limits. The highest speed of this page is halved.";
export const loginAgain = "Driving needs an operator's login.";
export const movesElsewhere =
  "The robot moves without this page: a program or somebody else drives it.";
export const otherTab = "Another tab of this browser drives the robot.";
export const takeOver = "Take over";
export const speed = "Speed";
export const scale = (scale: number) => `${Math.round(scale * 100)} %`;
export const stick = "Stick for ahead and sideways: drag and hold";
export const turnStick = "Stick for turning: drag and hold";
export const ahead = "ahead";
export const back = "back";
export const left = "left";
export const right = "right";
export const turn = "turn";
export const stage = "Camera and surroundings. With the keyboard: hold Shift and a direction key.";
export const cameraPicture = "What the robot's camera sees";
export const frameAge = (seconds: number) => `${seconds.toFixed(1)} s old`;
export const cameraShared =
  "Each picture is sent once: two viewers share the pictures of the camera.";
export const steps = {
  title: "Steps",
  intro: "One press moves the robot slowly for 0.3 s.",
  unlockFirst: "Unlock driving first.",
  ahead: "Step ahead",
  back: "Step back",
  left: "Step left",
  right: "Step right",
  turnLeft: "Turn left a little",
  turnRight: "Turn right a little",
};
export const inputs = {
  title: "Keyboard and gamepad",
  keys: "Keys, held with Shift",
  keysHint: "They count while no field and no button has the focus.",
  gamepad: "Gamepad",
  unsupported:
    "This browser offers gamepads only to pages with https. Chromium offers them here too.",
  none: "No gamepad found. Connect one and press a button of it.",
  unknownLayout: (id: string) => `"${id}" has an unknown layout and can't be used.`,
  choose: "Choose a gamepad",
  ready: "Hold a shoulder button; the left stick drives, the right one turns.",
};
export const options = {
  title: "View and speed",
  scene: "Show",
  stickSide: "Driving stick on the",
  maxSpeed: "Highest speed ahead, in m/s",
  maxSideways: "Highest speed sideways, in m/s",
  maxTurn: "Highest turning speed, in rad/s",
  takeLimits: "Take the robot's own limits",
  noLimits: "The configuration shows no limits of the drive.",
  limitsTaken: (vx: number, vy: number, omega: number) =>
    `Taken: ${vx} m/s ahead, ${vy} m/s sideways, ${omega} rad/s`,
  sensors: "Where the sensors sit",
};
