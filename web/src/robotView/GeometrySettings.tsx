import { Button } from "../kit/Button";
import { Field } from "../kit/Field";
import { Select } from "../kit/Select";
import * as robotViewTexts from "../texts/robotView";
import { NumberInput } from "./NumberInput";
import {
  boundedKeys,
  defaultSensorGeometry,
  geometryBounds,
  type SensorGeometry,
} from "./sensorGeometry";
import { sensorGeometry } from "./viewSettings";

const texts = robotViewTexts.geometry;

function change(part: Partial<SensorGeometry>): void {
  sensorGeometry.value = { ...sensorGeometry.peek(), ...part };
}

/** Where the sensors sit on this robot. */
export function GeometrySettings() {
  const geometry = sensorGeometry.value;
  return (
    <div class="geometry-settings">
      <p>{texts.intro}</p>
      {boundedKeys.map((key) => (
        <NumberInput
          key={key}
          label={texts[key]}
          value={geometry[key]}
          bounds={geometryBounds[key]}
          onChange={(value) => change({ [key]: value })}
        />
      ))}
      <Field label={texts.direction}>
        <Select
          value={geometry.direction}
          options={[
            { value: "left", label: texts.left },
            { value: "right", label: texts.right },
          ]}
          onChange={(direction) => change({ direction })}
        />
      </Field>
      <Field label={texts.unit}>
        <Select
          value={String(geometry.metresPerUnit)}
          options={[
            { value: "1", label: texts.metres },
            { value: "0.01", label: texts.centimetres },
            { value: "0.001", label: texts.millimetres },
          ]}
          onChange={(unit) => change({ metresPerUnit: Number(unit) })}
        />
      </Field>
      <Button
        onClick={() => {
          sensorGeometry.value = defaultSensorGeometry;
        }}
      >
        {texts.reset}
      </Button>
    </div>
  );
}
