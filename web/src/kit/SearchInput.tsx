import { TextInput } from "./TextInput";

export interface SearchInputProps {
  /** Stays in sight beside the words, and is the field's name for a screen reader. */
  label: string;
  value: string;
  onInput: (value: string) => void;
}

export function SearchInput({ label, value, onInput }: SearchInputProps) {
  return (
    <label class="search">
      {label}
      <TextInput type="search" value={value} onInput={onInput} />
    </label>
  );
}
