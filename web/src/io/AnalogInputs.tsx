import { untracked, useSignalEffect } from "@preact/signals";
import { useMemo } from "preact/hooks";
import { analogInputs } from "../data/resources";
import { Age } from "../kit/Age";
import { Card } from "../kit/Card";
import { Chart } from "../kit/Chart";
import { Empty } from "../kit/Empty";
import { SampleRing } from "../kit/SampleRing";
import * as texts from "../texts/io";

const seconds = 60;
// Enough for the quickest refresh that can be set, and for a row at each gap.
const rows = seconds * 5;
const gapAfterMs = 3000;

export function AnalogInputs() {
  const count = analogInputs.value.value?.length ?? 0;
  const rings = useMemo(
    () => Array.from({ length: count }, () => new SampleRing(rows, 1, gapAfterMs)),
    [count],
  );
  return (
    <Card title={texts.analogInputs} aside={<Age resource={analogInputs} />}>
      {analogInputs.value.value?.length === 0 && <Empty>{texts.noInputs}</Empty>}
      <div class="charts">
        {rings.map((ring, index) => (
          <AnalogChannel key={index} index={index} ring={ring} />
        ))}
      </div>
    </Card>
  );
}

function AnalogChannel({ index, ring }: { index: number; ring: SampleRing }) {
  useSignalEffect(() => {
    const arrivedAt = analogInputs.arrivedAt.value;
    if (arrivedAt !== undefined) {
      // A push reads the ring's version, which this effect must not wait for.
      untracked(() => ring.push(arrivedAt, analogInputs.value.peek()?.[index]));
    }
  });
  const isStale = analogInputs.freshness.value === "stale";
  return (
    <div class={isStale ? "stale" : undefined}>
      <Chart
        series={[{ label: texts.input(index) }]}
        points={ring}
        unit="V"
        seconds={seconds}
        height={110}
      />
    </div>
  );
}
