import type { ComponentChildren } from "preact";

/** Names and values in two columns. */
export function Readings({
  rows,
  stale = false,
}: {
  rows: readonly (readonly [name: string, value: ComponentChildren])[];
  stale?: boolean;
}) {
  return (
    <dl class={stale ? "readings stale" : "readings"}>
      {rows.map(([name, value], index) => (
        // Records of the robot may name a thing twice.
        <div key={`${index} ${name}`}>
          <dt>{name}</dt>
          <dd>{value}</dd>
        </div>
      ))}
    </dl>
  );
}
