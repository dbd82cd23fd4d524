import { digitalInputs } from "../data/resources";
import { Age } from "../kit/Age";
import { Card } from "../kit/Card";
import { Empty } from "../kit/Empty";
import * as texts from "../texts/io";

export function DigitalInputs() {
  const values = digitalInputs.value.value;
  const isStale = digitalInputs.freshness.value === "stale";
  return (
    <Card title={texts.digitalInputs} aside={<Age resource={digitalInputs} />}>
      {values?.length === 0 && <Empty>{texts.noInputs}</Empty>}
      <ul class={isStale ? "channels stale" : "channels"}>
        {values?.map((on, index) => (
          <li key={index}>
            <span class={on ? "lamp lit" : "lamp"} aria-hidden="true" />
            {texts.input(index)} <b>{on ? texts.on : texts.off}</b>
          </li>
        ))}
      </ul>
    </Card>
  );
}
