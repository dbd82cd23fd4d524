import type { CanvasTheme } from "../kit/themes";
import * as robotViewTexts from "../texts/robotView";
import { boundsOf, floorPlan, type Plan, scaleLength } from "./plan";
import type { TracePoint } from "./trace";

export function paintTrace(
  context: CanvasRenderingContext2D,
  width: number,
  height: number,
  theme: CanvasTheme,
  lines: readonly (readonly TracePoint[])[],
): void {
  const bounds = boundsOf(lines.flat());
  const newest = lines.at(-1)?.at(-1);
  if (bounds === undefined || newest === undefined) {
    return;
  }
  const plan = floorPlan(width, height, bounds);
  paintScale(context, height, theme, plan);
  context.lineWidth = 2;
  context.lineJoin = "round";
  context.strokeStyle = theme.accent;
  for (const line of lines) {
    context.beginPath();
    for (const point of line) {
      const { left, top } = plan.toPixels(point);
      context.lineTo(left, top);
    }
    context.stroke();
  }
  paintArrow(context, theme, plan, newest);
}

function paintScale(
  context: CanvasRenderingContext2D,
  height: number,
  theme: CanvasTheme,
  plan: Plan,
): void {
  const metres = scaleLength(plan.pixelsPerMetre, 120);
  const pixels = metres * plan.pixelsPerMetre;
  context.strokeStyle = theme.muted;
  context.fillStyle = theme.muted;
  context.lineWidth = 1;
  context.font = "12px system-ui, sans-serif";
  context.beginPath();
  context.moveTo(8, height - 12);
  context.lineTo(8, height - 8);
  context.lineTo(8 + pixels, height - 8);
  context.lineTo(8 + pixels, height - 12);
  context.stroke();
  context.fillText(robotViewTexts.scaleLabel(metres), 8 + pixels + 6, height - 6);
}

function paintArrow(
  context: CanvasRenderingContext2D,
  theme: CanvasTheme,
  plan: Plan,
  { x, y, phi }: TracePoint,
): void {
  const { left, top } = plan.toPixels({ x, y });
  context.save();
  context.translate(left, top);
  context.rotate(-phi);
  context.beginPath();
  context.moveTo(12, 0);
  context.lineTo(-8, 8);
  context.lineTo(-4, 0);
  context.lineTo(-8, -8);
  context.closePath();
  context.fillStyle = theme.text;
  context.fill();
  context.restore();
}
