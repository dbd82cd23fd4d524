import type { ComponentChildren } from "preact";
import { Icon, type IconName } from "./Icon";

export type Tone = "ok" | "warn" | "bad" | "neutral";

export interface ChipProps {
  tone: Tone;
  icon?: IconName;
  title?: string;
  children: ComponentChildren;
}

export function Chip({ tone, icon, title, children }: ChipProps) {
  return (
    <span class={`chip ${tone}`} title={title}>
      {icon && <Icon name={icon} />}
      {children}
    </span>
  );
}
