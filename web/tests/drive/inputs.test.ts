import assert from "node:assert/strict";
import { test } from "node:test";
import { choosePad, type Pad, padReading } from "../../src/drive/gamepads";
import { HeldKeys, type KeyChange, keyMaps } from "../../src/drive/keys";
import { knobPlace, stickDeflection } from "../../src/drive/stickMath";

const { letters } = keyMaps;

function down(code: string, isShiftDown = true): KeyChange {
  return { code, isDown: true, isShiftDown, isCommand: false };
}

function up(code: string, isShiftDown = true): KeyChange {
  return { ...down(code, isShiftDown), isDown: false };
}

function after(...changes: KeyChange[]) {
  const keys = new HeldKeys();
  for (const change of changes) {
    keys.note(change, letters);
  }
  const { isHeld, deflection } = keys.reading;
  return [isHeld, ...deflection.map((part) => Math.round(part * 100) / 100 + 0)];
}

test("a direction key moves only with Shift", () => {
  assert.deepEqual(after(down("KeyW", false)), [false, 1, 0, 0]);
  assert.deepEqual(after(down("KeyW", false), down("ShiftLeft")), [true, 1, 0, 0]);
  assert.deepEqual(after(down("ShiftLeft")), [false, 0, 0, 0]);
});

test("letting go of Shift or of all keys is letting go", () => {
  assert.deepEqual(after(down("KeyW"), up("ShiftLeft", false)), [false, 1, 0, 0]);
  assert.deepEqual(after(down("KeyW"), up("KeyW")), [false, 0, 0, 0]);
});

test("keys add up in their direction, opposite ones cancel", () => {
  assert.deepEqual(after(down("KeyW"), down("KeyD"), down("KeyQ")), [true, 0.71, -0.71, 1]);
  assert.deepEqual(after(down("KeyW"), down("KeyS")), [true, 0, 0, 0]);
});

test("other keys and shortcuts don't move", () => {
  assert.deepEqual(after(down("KeyX")), [false, 0, 0, 0]);
  assert.deepEqual(after(down("toString")), [false, 0, 0, 0]);
  assert.deepEqual(after(down("KeyW"), { ...down("KeyT"), isCommand: true }), [false, 0, 0, 0]);
});

function pad(part: Partial<Pad>): Pad {
  const buttons = Array.from({ length: 17 }, () => ({ pressed: false }));
  const axes = [0, 0, 0, 0];
  return { index: 0, id: "pad", connected: true, mapping: "standard", axes, buttons, ...part };
}

function shoulder(button: number) {
  return Array.from({ length: 17 }, (_, index) => ({ pressed: index === button }));
}

test("a gamepad is held by a shoulder button", () => {
  assert.equal(padReading(pad({ axes: [0, -1, 0, 0] })).isHeld, false);
  for (const button of [4, 5]) {
    assert.equal(padReading(pad({ buttons: shoulder(button) })).isHeld, true);
  }
  assert.equal(padReading(pad({ buttons: shoulder(0) })).isHeld, false);
});

test("its sticks have a dead zone and then start from nothing", () => {
  const read = (...axes: number[]) =>
    padReading(pad({ axes })).deflection.map((part) => Math.round(part * 1000) / 1000 + 0);
  assert.deepEqual(read(0.1, -0.1, 0.1, 0), [0, 0, 0]);
  assert.deepEqual(read(0, -0.19, 0, 0), [0.1, 0, 0]);
  assert.deepEqual(read(1, 0, 1, 0), [0, -1, -1]);
  assert.deepEqual(read(), [0, 0, 0]);
});

test("one gamepad is taken, of several none before a choice", () => {
  const two = [pad({ index: 0 }), null, pad({ index: 2 })];
  assert.equal(choosePad(undefined, undefined).kind, "unsupported");
  assert.equal(choosePad([null, pad({ connected: false })], undefined).kind, "none");
  assert.equal(choosePad([pad({ mapping: "" })], undefined).kind, "unknownLayout");
  assert.equal(choosePad([pad({})], undefined).kind, "ready");
  assert.equal(choosePad(two, undefined).kind, "choose");
  const chosen = choosePad(two, 2);
  assert.equal(chosen.kind === "ready" ? chosen.pad.index : undefined, 2);
  assert.equal(choosePad(two, 1).kind, "choose");
});

test("up on the stick is ahead, left on the stick is left", () => {
  const rounded = (right: number, below: number) => {
    const { ahead, left } = stickDeflection(right, below, 100);
    return [Math.round(ahead * 100) / 100 + 0, Math.round(left * 100) / 100 + 0];
  };
  assert.deepEqual(rounded(0, -100), [1, 0]);
  assert.deepEqual(rounded(-100, 0), [0, 1]);
  assert.deepEqual(rounded(0, 300), [-1, 0]);
  assert.deepEqual(rounded(5, 5), [0, 0]);
  assert.deepEqual(rounded(0, -54), [0.5, 0]);
  assert.deepEqual(stickDeflection(1, 1, 0), { ahead: 0, left: 0 });
});

test("the knob stays within the stick", () => {
  assert.deepEqual(knobPlace(30, -40, 100), { right: 30, below: -40 });
  assert.deepEqual(knobPlace(300, -400, 100), { right: 60, below: -80 });
});
