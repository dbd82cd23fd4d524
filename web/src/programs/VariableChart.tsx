import { untracked, useSignalEffect } from "@preact/signals";
import { useMemo } from "preact/hooks";
import { Chart } from "../kit/Chart";
import { SampleRing } from "../kit/SampleRing";
import { variables } from "./resources";
import { numericValue } from "./variables";

const seconds = 120;
const readingsPerSecond = 2;
const gapAfterMs = 2000;

/** Begins with the moment in which it is asked for: the daemon keeps no history. */
export function VariableChart({ name }: { name: string }) {
  const points = useMemo(
    () => new SampleRing(seconds * readingsPerSecond * 2, 1, gapAfterMs),
    [name],
  );
  useSignalEffect(() => {
    const arrivedAt = variables.arrivedAt.value;
    const value = variables.value.peek()?.find((variable) => variable.name === name)?.value;
    if (arrivedAt !== undefined) {
      // A push reads the ring's version, which this effect must not wait for.
      untracked(() => points.push(arrivedAt, value === undefined ? null : numericValue(value)));
    }
  });
  return <Chart series={[{ label: name }]} points={points} seconds={seconds} height={120} />;
}
