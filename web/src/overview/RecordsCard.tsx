import { controllerInfo, festoolCharger } from "../data/resources";
import { useResource } from "../data/useResource";
import { Age } from "../kit/Age";
import { Card } from "../kit/Card";
import * as texts from "../texts/overview";
import { Readings } from "./Readings";

/** Records whose shape only the robot knows: shown as they come. */
export function RecordsCard() {
  useResource(controllerInfo);
  useResource(festoolCharger);
  const records = [
    [texts.controllerInfo, controllerInfo],
    [texts.festoolCharger, festoolCharger],
  ] as const;
  return (
    <Card title={texts.records}>
      {records.map(([title, record]) => (
        <div key={title}>
          <h3>
            {title} <Age resource={record} />
          </h3>
          {record.value.value && (
            <Readings rows={record.value.value} stale={record.freshness.value !== "fresh"} />
          )}
        </div>
      ))}
    </Card>
  );
}
