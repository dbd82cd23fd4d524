const deadZone = 0.08;

// Starts from nothing at the dead zone's edge.
function beyondDeadZone(size: number): number {
  return size <= deadZone ? 0 : (Math.min(1, size) - deadZone) / (1 - deadZone);
}

/** Of a finger right of and below the middle, in pixels; the stick's way ends at the radius. */
export function stickDeflection(
  right: number,
  below: number,
  radius: number,
): { readonly ahead: number; readonly left: number } {
  const length = Math.hypot(right, below);
  const size = radius > 0 ? beyondDeadZone(length / radius) : 0;
  if (size === 0) {
    return { ahead: 0, left: 0 };
  }
  return { ahead: (-below / length) * size, left: (-right / length) * size };
}

/** Where the knob is drawn, in pixels from the middle. */
export function knobPlace(
  right: number,
  below: number,
  radius: number,
): { readonly right: number; readonly below: number } {
  const length = Math.hypot(right, below);
  const share = length > radius ? radius / length : 1;
  return { right: right * share, below: below * share };
}
