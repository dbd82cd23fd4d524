import type { SelectHTMLAttributes } from "preact";
import { useFieldAttributes } from "./Field";

export interface SelectProps<T extends string>
  extends Omit<SelectHTMLAttributes, "onChange" | "onInput" | "value" | "role"> {
  value: T;
  options: readonly { readonly value: T; readonly label: string }[];
  onChange: (value: T) => void;
}

export function Select<T extends string>({ value, options, onChange, ...rest }: SelectProps<T>) {
  return (
    <select
      class="input"
      {...useFieldAttributes()}
      {...(rest as SelectHTMLAttributes)}
      value={value}
      onChange={(event) => {
        const wanted = event.currentTarget.value as T;
        // The owner of the value decides what is shown: it may refuse.
        event.currentTarget.value = value;
        onChange(wanted);
      }}
    >
      {options.map((option) => (
        <option key={option.value} value={option.value} selected={option.value === value}>
          {option.label}
        </option>
      ))}
    </select>
  );
}
