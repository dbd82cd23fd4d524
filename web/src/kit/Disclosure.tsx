import type { ComponentChildren } from "preact";

export interface DisclosureProps {
  title: ComponentChildren;
  open?: boolean;
  onToggle?: (open: boolean) => void;
  children: ComponentChildren;
}

export function Disclosure({ title, open = false, onToggle, children }: DisclosureProps) {
  return (
    <details
      class="disclosure"
      open={open}
      onToggle={(event) => onToggle?.(event.currentTarget.open)}
    >
      <summary>{title}</summary>
      <div>{children}</div>
    </details>
  );
}
