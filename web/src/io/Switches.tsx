import { Toggle } from "../kit/Toggle";
import * as texts from "../texts/io";

interface SwitchesProps {
  names: readonly string[];
  values: readonly boolean[];
  disabled?: boolean;
  /** Gets all values, of which one has changed. */
  onChange: (values: readonly boolean[]) => void;
}

export function Switches({ names, values, disabled = false, onChange }: SwitchesProps) {
  return (
    <ul class="channels">
      {names.map((name, index) => (
        <li key={name}>
          <Toggle
            label={
              <>
                {name} <b aria-hidden="true">{values[index] ? texts.on : texts.off}</b>
              </>
            }
            checked={values[index] ?? false}
            disabled={disabled}
            onChange={(on) =>
              onChange(values.map((value, other) => (other === index ? on : value)))
            }
          />
        </li>
      ))}
    </ul>
  );
}
