import type { CanvasTheme } from "../kit/themes";
import * as robotViewTexts from "../texts/robotView";
import type { Point } from "./geometry";
import { type Plan, ringSpacing, robotPlan } from "./plan";
import type { SensorReading } from "./sensorEchoes";
import type { SensorGeometry } from "./sensorGeometry";
import type { Surroundings } from "./surroundings";

export interface RobotPicture {
  readonly surroundings: Surroundings;
  readonly geometry: SensorGeometry;
  readonly reach: number;
  readonly isTouching: boolean;
  readonly isScanOld: boolean;
  readonly areDistancesOld: boolean;
}

const halfCone = Math.PI / 18;
const fullTurn = 2 * Math.PI;

export function paintRobot(
  context: CanvasRenderingContext2D,
  width: number,
  height: number,
  theme: CanvasTheme,
  picture: RobotPicture,
): void {
  const plan = robotPlan(width, height, picture.reach);
  paintRings(context, plan, theme, picture.reach);
  context.globalAlpha = picture.areDistancesOld ? 0.35 : 1;
  for (const sensor of picture.surroundings.sensors) {
    paintSensor(context, plan, theme, sensor, picture.geometry);
  }
  context.globalAlpha = picture.isScanOld ? 0.35 : 1;
  paintPoints(context, plan, theme.text, picture.surroundings.scanPoints);
  context.globalAlpha = 1;
  paintHull(context, plan, theme, picture);
}

function paintRings(
  context: CanvasRenderingContext2D,
  plan: Plan,
  theme: CanvasTheme,
  reach: number,
): void {
  const { left, top } = plan.toPixels({ x: 0, y: 0 });
  const spacing = ringSpacing(plan.pixelsPerMetre);
  context.lineWidth = 1;
  context.strokeStyle = theme.line;
  context.fillStyle = theme.muted;
  context.font = "12px system-ui, sans-serif";
  context.textBaseline = "bottom";
  context.textAlign = "center";
  for (let radius = spacing; radius <= reach * 1.5; radius += spacing) {
    const pixels = radius * plan.pixelsPerMetre;
    context.beginPath();
    context.arc(left, top, pixels, 0, fullTurn);
    context.stroke();
    context.fillText(robotViewTexts.scaleLabel(Number(radius.toFixed(2))), left, top - pixels - 1);
  }
}

// A sensor sees a cone: its near edge is where something is, its whole length where nothing is.
function paintSensor(
  context: CanvasRenderingContext2D,
  plan: Plan,
  theme: CanvasTheme,
  { angle, distance }: SensorReading,
  { robotRadius, sensorRange }: SensorGeometry,
): void {
  const { left, top } = plan.toPixels({ x: 0, y: 0 });
  const inner = robotRadius * plan.pixelsPerMetre;
  const outer = (robotRadius + (distance ?? sensorRange)) * plan.pixelsPerMetre;
  const middle = -Math.PI / 2 - angle;
  context.beginPath();
  context.arc(left, top, outer, middle - halfCone, middle + halfCone);
  if (distance !== undefined) {
    context.lineWidth = 4;
    context.strokeStyle = distance < sensorRange / 2 ? theme.bad : theme.warn;
    context.stroke();
  }
  context.arc(left, top, inner, middle + halfCone, middle - halfCone, true);
  context.closePath();
  const before = context.globalAlpha;
  context.globalAlpha = before * 0.2;
  context.fillStyle = distance === undefined ? theme.muted : theme.warn;
  context.fill();
  context.globalAlpha = before;
}

function paintPoints(
  context: CanvasRenderingContext2D,
  plan: Plan,
  colour: string,
  points: readonly Point[],
): void {
  const size = plan.pixelsPerMetre < 30 ? 2 : 3;
  context.fillStyle = colour;
  for (const point of points) {
    const { left, top } = plan.toPixels(point);
    context.fillRect(left - size / 2, top - size / 2, size, size);
  }
}

function paintHull(
  context: CanvasRenderingContext2D,
  plan: Plan,
  theme: CanvasTheme,
  { geometry, isTouching }: RobotPicture,
): void {
  const { left, top } = plan.toPixels({ x: 0, y: 0 });
  const radius = geometry.robotRadius * plan.pixelsPerMetre;
  context.beginPath();
  context.arc(left, top, radius, 0, fullTurn);
  context.fillStyle = theme.surface;
  context.fill();
  context.lineWidth = isTouching ? 5 : 2;
  context.strokeStyle = isTouching ? theme.bad : theme.accent;
  context.stroke();
  context.beginPath();
  context.moveTo(left, top - radius * 0.75);
  context.lineTo(left + radius * 0.45, top + radius * 0.35);
  context.lineTo(left - radius * 0.45, top + radius * 0.35);
  context.closePath();
  context.fillStyle = isTouching ? theme.bad : theme.accent;
  context.fill();
}
