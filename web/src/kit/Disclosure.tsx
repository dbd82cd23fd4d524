import type { ComponentChildren } from "preact";

export interface DisclosureProps {
  title: ComponentChildren;
  children: ComponentChildren;
}

export function Disclosure({ title, children }: DisclosureProps) {
  return (
    <details class="disclosure">
      <summary>{title}</summary>
      <div>{children}</div>
    </details>
  );
}
