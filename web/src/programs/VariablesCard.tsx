import { useState } from "preact/hooks";
import { Age } from "../kit/Age";
import { Card } from "../kit/Card";
import { DataTable } from "../kit/DataTable";
import { Empty } from "../kit/Empty";
import { Toggle } from "../kit/Toggle";
import * as texts from "../texts/programs";
import { variables } from "./resources";
import { VariableChart } from "./VariableChart";
import { variableLog } from "./variableLog";
import { numericValue, type ShownVariable } from "./variables";

export function VariablesCard() {
  const [charted, setCharted] = useState<readonly string[]>([]);
  const list = variableLog.value;
  const columns = [
    { title: texts.name, cell: ({ name }: ShownVariable) => <span class="name">{name}</span> },
    {
      title: texts.value,
      align: "end" as const,
      cell: ({ value, changes }: ShownVariable) => (
        // The key makes it another element, whose animation begins anew.
        <span key={changes} class={changes > 0 ? "value flash" : "value"}>
          {value}
        </span>
      ),
    },
    {
      title: texts.chart,
      align: "end" as const,
      cell: ({ name, value }: ShownVariable) =>
        (numericValue(value) !== undefined || charted.includes(name)) && (
          <Toggle
            label={<span class="unseen">{texts.chartOf(name)}</span>}
            checked={charted.includes(name)}
            onChange={(on) =>
              setCharted(on ? [...charted, name] : charted.filter((other) => other !== name))
            }
          />
        ),
    },
  ];
  return (
    <Card title={texts.variables} aside={<Age resource={variables} />}>
      {list.length === 0 ? (
        <Empty icon="chart">{texts.noVariables}</Empty>
      ) : (
        <DataTable
          caption={texts.variables}
          columns={columns}
          rows={list}
          keyOf={({ name }) => name}
        />
      )}
      {charted.map((name) => (
        <VariableChart key={name} name={name} />
      ))}
    </Card>
  );
}
