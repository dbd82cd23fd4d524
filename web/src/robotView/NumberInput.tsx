import { useState } from "preact/hooks";
import { Field } from "../kit/Field";
import { TextInput } from "../kit/TextInput";
import * as robotViewTexts from "../texts/robotView";
import { numberOf } from "./numberText";

export interface NumberInputProps {
  label: string;
  value: number;
  bounds: readonly [least: number, most: number];
  onChange: (value: number) => void;
}

/** Takes over each number that fits while it is typed, and says so where one doesn't. */
export function NumberInput({ label, value, bounds, onChange }: NumberInputProps) {
  const [text, setText] = useState(String(value));
  const typed = numberOf(text, ...bounds);
  // A value that changed elsewhere is shown, but nobody's "1." turns into "1" under their hands.
  const shown = typed === undefined || typed === value ? text : String(value);
  return (
    <Field
      label={label}
      error={typed === undefined ? robotViewTexts.geometry.outOfRange(...bounds) : undefined}
    >
      <TextInput
        value={shown}
        inputMode="decimal"
        onInput={(input) => {
          setText(input);
          const number = numberOf(input, ...bounds);
          if (number !== undefined) {
            onChange(number);
          }
        }}
      />
    </Field>
  );
}
