import type uPlot from "uplot";
import type { CanvasTheme } from "./themes";

interface Wish {
  labels: readonly string[];
  width: number;
  height: number;
  theme: CanvasTheme;
}

// Besides their colours the lines differ in their dashes.
const dashes = [[], [6, 4], [2, 3], [10, 3, 2, 3]] as const;

export function chartOptions({ labels, width, height, theme }: Wish): uPlot.Options {
  const colours = [theme.accent, theme.warn, theme.ok, theme.bad];
  const axis: uPlot.Axis = {
    stroke: theme.muted,
    grid: { stroke: theme.line, width: 1 },
    ticks: { stroke: theme.line, width: 1, size: 4 },
    font: "12px system-ui, sans-serif",
  };
  return {
    width,
    height,
    padding: [8, 8, 0, 0],
    cursor: { show: false },
    legend: { show: false },
    scales: { x: { time: true, auto: false }, y: { range: paddedRange } },
    axes: [
      { ...axis, space: 70, size: 24 },
      { ...axis, size: 44 },
    ],
    series: [
      {},
      ...labels.map((label, index) => ({
        label,
        stroke: colours[index % colours.length] ?? theme.text,
        dash: [...(dashes[index % dashes.length] ?? [])],
        width: 2,
        spanGaps: false,
        points: { show: false },
      })),
    ],
  };
}

/** A value that stands still is a line across the middle, not along an edge. */
function paddedRange(_: uPlot, least: number | null, most: number | null): [number, number] {
  if (least === null || most === null) {
    return [0, 1];
  }
  const room = Math.max((most - least) * 0.1, 0.05);
  return [least - room, most + room];
}
