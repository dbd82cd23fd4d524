// The robot's own frame: x ahead and y to the left in metres, angles in radians to the left of ahead.
export interface Point {
  readonly x: number;
  readonly y: number;
}

// Where something is as seen from the middle of the robot.
export interface Echo {
  readonly angle: number;
  readonly distance: number;
}

export function pointOf(echo: Echo): Point {
  return { x: echo.distance * Math.cos(echo.angle), y: echo.distance * Math.sin(echo.angle) };
}

export function radians(degrees: number): number {
  return (degrees * Math.PI) / 180;
}

// The same direction in (-180, 180].
export function degreesWithinTurn(angle: number): number {
  const degrees = ((angle * 180) / Math.PI) % 360;
  if (degrees > 180) {
    return degrees - 360;
  }
  return degrees <= -180 ? degrees + 360 : degrees;
}
