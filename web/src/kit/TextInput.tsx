import type { InputHTMLAttributes } from "preact";
import { useFieldAttributes } from "./Field";

export interface TextInputProps
  extends Omit<InputHTMLAttributes, "onInput" | "onChange" | "value" | "role"> {
  value: string;
  onInput: (value: string) => void;
}

export function TextInput({ value, onInput, ...rest }: TextInputProps) {
  return (
    <input
      type="text"
      class="input"
      autocomplete="off"
      autocapitalize="off"
      spellcheck={false}
      {...useFieldAttributes()}
      {...(rest as InputHTMLAttributes)}
      value={value}
      onInput={(event) => onInput(event.currentTarget.value)}
    />
  );
}
