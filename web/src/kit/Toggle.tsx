import type { ComponentChildren } from "preact";

export interface ToggleProps {
  label: ComponentChildren;
  checked: boolean;
  onChange: (checked: boolean) => void;
  disabled?: boolean;
  /** What a screen reader says where the visible label alone does not tell enough. */
  ariaLabel?: string;
}

export function Toggle({ label, checked, onChange, disabled = false, ariaLabel }: ToggleProps) {
  return (
    <label class="toggle">
      <input
        type="checkbox"
        role="switch"
        checked={checked}
        aria-checked={checked}
        aria-label={ariaLabel}
        disabled={disabled}
        onChange={(event) => {
          const wanted = event.currentTarget.checked;
          // The owner of the value decides what is shown: it may refuse.
          event.currentTarget.checked = checked;
          onChange(wanted);
        }}
      />
      <span>{label}</span>
    </label>
  );
}
