// Ahead in m/s, to the left in m/s, turning left in rad/s: as the robot takes it.
export type Velocity = readonly [vx: number, vy: number, omega: number];

export const standstill: Velocity = [0, 0, 0];

// The largest amount of each part.
export type Maxima = { readonly vx: number; readonly vy: number; readonly omega: number };

// The daemon stops the robot at a part beyond its limit instead of cutting it, and it compares in
// single precision.
const margin = 0.001;

function within(value: number, most: number): number {
  if (!Number.isFinite(value)) {
    return 0;
  }
  const limit = Math.max(0, most - margin);
  const kept = Math.min(limit, Math.max(-limit, value));
  // Adding 0 turns -0 into 0.
  return Math.trunc(kept * 1000) / 1000 + 0;
}

export function clamped(velocity: Velocity, maxima: Maxima): Velocity {
  return [
    within(velocity[0], maxima.vx),
    within(velocity[1], maxima.vy),
    within(velocity[2], maxima.omega),
  ];
}

export function isStandstill(velocity: Velocity): boolean {
  return velocity.every((part) => part === 0);
}

// Where the hands are: each part from -1 to 1, in the order of a velocity.
export type Deflection = readonly [ahead: number, left: number, turn: number];

export const neutral: Deflection = [0, 0, 0];

export function scaled(deflection: Deflection, maxima: Maxima, factor: number): Velocity {
  return [
    deflection[0] * maxima.vx * factor,
    deflection[1] * maxima.vy * factor,
    deflection[2] * maxima.omega * factor,
  ];
}

// Hands on several controls add up, but never to more than one hand can ask for. Ahead and
// sideways are kept in proportion, so that the direction stays.
export function sumOf(deflections: readonly Deflection[]): Deflection {
  let [ahead, left, turn] = neutral;
  for (const deflection of deflections) {
    ahead += deflection[0];
    left += deflection[1];
    turn += deflection[2];
  }
  const length = Math.max(1, Math.hypot(ahead, left));
  return [ahead / length, left / length, Math.min(1, Math.max(-1, turn))];
}
