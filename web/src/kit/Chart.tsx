import { effect } from "@preact/signals";
import { useEffect, useRef } from "preact/hooks";
import uPlot from "uplot";
import "uplot/dist/uPlot.min.css";
import { now } from "../data/clock";
import { chartOptions } from "./chartOptions";
import { formatNumber } from "./format";
import type { SampleRing } from "./SampleRing";
import { canvasTheme } from "./themes";

export interface ChartProps {
  series: readonly { readonly label: string }[];
  points: SampleRing;
  unit?: string;
  height?: number;
  /** How far back the chart reaches; else as far as there are points. */
  seconds?: number;
}

/** Values over time. Where values are missing there is a gap, also up to now. */
export function Chart({ series, points, unit = "", height = 160, seconds }: ChartProps) {
  const element = useRef<HTMLDivElement>(null);
  const labels = series.map(({ label }) => label);

  useEffect(() => {
    const parent = element.current;
    if (parent === null) {
      return undefined;
    }
    let plot: uPlot | undefined;
    let frame = 0;
    const draw = () => {
      frame = 0;
      const columns = points.columns();
      // Stale or not, the right edge is now.
      const end = Math.max(now.peek() / 1000, columns[0].at(-1) ?? 0);
      const begin = seconds === undefined ? (columns[0][0] ?? end - 1) : end - seconds;
      plot?.batch(() => {
        plot?.setData(columns, false);
        plot?.setScale("x", { min: begin, max: end });
      });
    };
    const observer = new ResizeObserver(() => plot?.setSize({ width: parent.clientWidth, height }));
    const stopTheming = effect(() => {
      plot?.destroy();
      const width = parent.clientWidth || 300;
      plot = new uPlot(
        chartOptions({ labels, width, height, theme: canvasTheme.value }),
        points.columns(),
        parent,
      );
      draw();
    });
    const stopDrawing = effect(() => {
      points.version.value;
      now.value;
      frame ||= requestAnimationFrame(draw);
    });
    observer.observe(parent);
    return () => {
      stopTheming();
      stopDrawing();
      observer.disconnect();
      cancelAnimationFrame(frame);
      plot?.destroy();
    };
  }, [points, labels.join("\n"), unit, height, seconds]);

  return (
    <figure class="chart">
      <div ref={element} aria-hidden="true" style={{ minHeight: `${height}px` }} />
      <figcaption>
        {labels.map((label, index) => (
          <span key={label} class={`key-${index % 4}`}>
            {label} <Latest points={points} index={index} unit={unit} />
          </span>
        ))}
      </figcaption>
    </figure>
  );
}

function Latest({ points, index, unit }: { points: SampleRing; index: number; unit: string }) {
  points.version.value;
  return (
    <b>
      {formatNumber(points.latest(index))} {unit}
    </b>
  );
}
