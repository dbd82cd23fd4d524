import { useComputed } from "@preact/signals";
import { now } from "../data/clock";
import * as kit from "../texts/kit";
import { Canvas } from "./Canvas";
import { formatNumber } from "./format";
import { paintChart } from "./paintChart";
import type { SampleRing } from "./SampleRing";

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
  const labels = series.map(({ label }) => label);
  return (
    <figure class="chart">
      <Canvas
        label={kit.chart(labels.join(", "))}
        height={height}
        redrawOn={[points.version, now]}
        paint={(context, width, tall, theme) => {
          const columns = points.columns();
          const [times] = columns;
          // Stale or not, the right edge is now.
          const end = Math.max(now.peek() / 1000, times.at(-1) ?? 0);
          const begin = seconds === undefined ? Math.min(times[0] ?? end, end - 1) : end - seconds;
          paintChart(context, width, tall, theme, { columns, begin, end });
        }}
      />
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
  const text = useComputed(() => {
    points.version.value;
    return `${formatNumber(points.latest(index))} ${unit}`;
  });
  return <b>{text}</b>;
}
