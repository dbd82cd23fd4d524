import * as kit from "../texts/kit";
import { rangeOf, secondStep, tickStep, ticksWithin } from "./chartScale";
import { formatAge, formatNumber } from "./format";
import type { Sample } from "./SampleRing";
import type { CanvasTheme } from "./themes";

const left = 48;
const right = 8;
const top = 8;
const bottom = 22;

// Besides their colours the lines differ in their dashes.
const dashes = [[], [6, 4], [2, 3], [10, 3, 2, 3]];

export interface ChartView {
  /** Times in seconds, then the values of each series. */
  readonly columns: readonly [readonly number[], ...(readonly Sample[])[]];
  readonly begin: number;
  readonly end: number;
}

export function paintChart(
  context: CanvasRenderingContext2D,
  width: number,
  height: number,
  theme: CanvasTheme,
  { columns: [times, ...series], begin, end }: ChartView,
): void {
  const [least, most] = rangeOf(series);
  const wide = Math.max(width - left - right, 1);
  const tall = Math.max(height - top - bottom, 1);
  const toX = (time: number) => left + ((time - begin) / (end - begin || 1)) * wide;
  const toY = (value: number) => top + ((most - value) / (most - least)) * tall;

  context.font = "12px system-ui, sans-serif";
  context.fillStyle = theme.muted;
  context.strokeStyle = theme.line;
  context.lineWidth = 1;
  context.beginPath();
  const { step, digits } = tickStep(most - least, tall / 30);
  context.textAlign = "right";
  context.textBaseline = "middle";
  for (const value of ticksWithin(least, most, step)) {
    const y = Math.round(toY(value)) + 0.5;
    context.moveTo(left, y);
    context.lineTo(width - right, y);
    context.fillText(formatNumber(value, digits), left - 6, y);
  }
  const back = secondStep(end - begin, wide / 80);
  context.textAlign = "center";
  context.textBaseline = "alphabetic";
  for (const age of ticksWithin(0, end - begin, back)) {
    const x = Math.round(toX(end - age)) + 0.5;
    context.moveTo(x, top);
    context.lineTo(x, top + tall);
    context.textAlign = age === 0 ? "right" : "center";
    context.fillText(age === 0 ? kit.now : `−${formatAge(age * 1000)}`, x, height - 6);
  }
  context.stroke();

  context.save();
  context.beginPath();
  context.rect(left, 0, wide, height);
  context.clip();
  const colours = [theme.accent, theme.warn, theme.ok, theme.bad];
  series.forEach((values, index) => {
    context.strokeStyle = colours[index % colours.length] ?? theme.text;
    context.setLineDash(dashes[index % dashes.length] ?? []);
    context.lineWidth = 2;
    context.lineCap = "round";
    traceLine(context, values, (row) => toX(times[row] ?? 0), toY);
  });
  context.restore();
}

/** A line with a gap at each missing value; a value between two gaps is a dot. */
function traceLine(
  context: CanvasRenderingContext2D,
  values: readonly Sample[],
  toX: (row: number) => number,
  toY: (value: number) => number,
): void {
  context.beginPath();
  let isDown = false;
  values.forEach((value, row) => {
    if (value !== null) {
      const [x, y] = [toX(row), toY(value)];
      if (!isDown) {
        context.moveTo(x, y);
      }
      context.lineTo(x, y);
    }
    isDown = value !== null;
  });
  context.stroke();
}
