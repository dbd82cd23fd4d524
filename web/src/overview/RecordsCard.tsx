import { controllerInfo, festoolCharger } from "../data/resources";
import { useResource } from "../data/useResource";
import { Card } from "../kit/Card";
import * as texts from "../texts/overview";
import { Readings } from "./Readings";

/** Records whose shape only the robot knows: shown as they come. */
export function RecordsCard() {
  useResource(controllerInfo);
  useResource(festoolCharger);
  const records = [
    [texts.controllerInfo, controllerInfo.value.value],
    [texts.festoolCharger, festoolCharger.value.value],
  ] as const;
  return (
    <Card title={texts.records}>
      {records.map(([title, rows]) => (
        <div key={title}>
          <h3>{title}</h3>
          {rows === undefined ? <p class="hint">{texts.noRecord}</p> : <Readings rows={rows} />}
        </div>
      ))}
    </Card>
  );
}
