import type { Resource } from "../data/Resource";
import type { Charger } from "../data/resources";
import { charger0, charger1, power } from "../data/resources";
import { useResource } from "../data/useResource";
import { Age } from "../kit/Age";
import { Card } from "../kit/Card";
import * as texts from "../texts/overview";
import { Readings } from "./Readings";

function OneCharger({ resource, number }: { resource: Resource<Charger>; number: number }) {
  useResource(resource);
  const charger = resource.value.value;
  return (
    <div>
      <h3>
        {texts.charger(number)} <Age resource={resource} />
      </h3>
      {charger && (
        <Readings
          stale={resource.freshness.value !== "fresh"}
          rows={[
            [texts.state, charger.state || String(charger.stateNumber)],
            [texts.voltage, texts.volts(charger.batteryVoltage)],
            [texts.current, texts.amperes(charger.chargingCurrent)],
            [
              texts.temperatures,
              `${texts.celsius(charger.temperature1)}, ${texts.celsius(charger.temperature2)}`,
            ],
            [texts.firmware, charger.version],
          ]}
        />
      )}
    </div>
  );
}

/** The paths of both chargers always answer: only the count tells which of them exist. */
export function ChargerCard() {
  const known = power.value.value;
  const count = known?.numChargers ?? 0;
  return (
    <Card title={texts.chargers}>
      {known && count < 1 && <p class="hint">{texts.noCharger}</p>}
      {count > 0 && <OneCharger resource={charger0} number={0} />}
      {count > 1 && <OneCharger resource={charger1} number={1} />}
    </Card>
  );
}
