import { power } from "../data/resources";
import { useResource } from "../data/useResource";
import { Age } from "../kit/Age";
import { Card } from "../kit/Card";
import { Chart } from "../kit/Chart";
import { Icon } from "../kit/Icon";
import * as texts from "../texts/overview";
import { voltageHistory } from "./histories";
import { Readings } from "./Readings";

const series = [{ label: texts.voltage }];

function State() {
  const state = power.value.value;
  if (state === undefined) {
    return null;
  }
  return (
    <>
      {state.batteryLow && (
        <p class="lamp bad">
          <Icon name="warning" />
          {state.shutdownCounter > 0 ? texts.shutdown(state.shutdownCounter) : texts.low}
        </p>
      )}
      <Readings
        stale={power.freshness.value !== "fresh"}
        rows={[
          [texts.voltage, texts.volts(state.voltage)],
          [texts.type, state.batteryType || "–"],
          [texts.supply, state.extPower ? texts.external : texts.fromBattery],
          [texts.chargers, state.numChargers],
        ]}
      />
    </>
  );
}

export function PowerCard() {
  useResource(power);
  return (
    <Card title={texts.power} aside={<Age resource={power} />}>
      <State />
      <Chart series={series} points={voltageHistory} unit="V" height={120} seconds={600} />
    </Card>
  );
}
