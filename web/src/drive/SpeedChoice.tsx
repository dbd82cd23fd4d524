import * as texts from "../texts/drive";
import { speedScale } from "./driveSettings";
import { speedScales } from "./speedLimits";

export function SpeedChoice() {
  return (
    <fieldset class="speed">
      <legend>{texts.speed}</legend>
      {speedScales.map((scale) => (
        <label key={scale}>
          <input
            type="radio"
            name="speed"
            checked={speedScale.value === scale}
            onChange={() => {
              speedScale.value = scale;
            }}
          />
          <span>{texts.scale(scale)}</span>
        </label>
      ))}
    </fieldset>
  );
}
