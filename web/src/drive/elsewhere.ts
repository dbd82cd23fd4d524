const movingMPerS = 0.05;
const movingRadPerS = 0.1;
// The robot rolls out and its readings take their time.
const patienceMs = 1000;

/** Notices that the robot moves although this page doesn't drive it. */
export class ElsewhereWatch {
  #drivenUntil = Number.NEGATIVE_INFINITY;

  moves(
    velocity: { readonly vx: number; readonly vy: number; readonly omega: number } | undefined,
    isDrivenHere: boolean,
    now: number,
  ): boolean {
    if (isDrivenHere) {
      this.#drivenUntil = now + patienceMs;
    }
    return (
      velocity !== undefined &&
      now > this.#drivenUntil &&
      (Math.hypot(velocity.vx, velocity.vy) > movingMPerS ||
        Math.abs(velocity.omega) > movingRadPerS)
    );
  }
}
