import type { ComponentChildren } from "preact";
import { useId } from "preact/hooks";

export interface CardProps {
  title: ComponentChildren;
  /** Stands beside the title: an age, a chip, a small button. */
  aside?: ComponentChildren;
  class?: string;
  children?: ComponentChildren;
}

export function Card({ title, aside, class: extra = "", children }: CardProps) {
  const id = useId();
  return (
    <section class={`card ${extra}`} aria-labelledby={id}>
      <header>
        <h2 id={id}>{title}</h2>
        {aside && <div class="aside">{aside}</div>}
      </header>
      {children}
    </section>
  );
}
