import { effect } from "@preact/signals";
import { now } from "../data/clock";
import { defaultRole, logout, role } from "../data/session";
import { toast } from "../kit/toasts";
import * as texts from "../texts/frame";

const idleMs = 15 * 60_000;

export function isIdleTooLong(time: number, lastInput: number): boolean {
  return time - lastInput >= idleMs;
}

/** An admin who has gone away must not leave the robot's settings to whoever comes by. */
export function startIdleLogout(): void {
  let lastInput = Date.now();
  for (const name of ["pointerdown", "keydown", "wheel", "touchstart"]) {
    addEventListener(
      name,
      () => {
        lastInput = Date.now();
      },
      { capture: true, passive: true },
    );
  }
  effect(() => {
    const isAdminByLogin = role.value === "admin" && defaultRole.value !== "admin";
    if (isAdminByLogin && isIdleTooLong(now.value, lastInput)) {
      lastInput = Date.now();
      void logout(false);
      // As an error it stays until the person is back.
      toast(texts.idleLogout, { kind: "error" });
    }
  });
}
