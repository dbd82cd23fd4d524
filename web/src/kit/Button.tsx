import type { ButtonHTMLAttributes, ComponentChildren } from "preact";
import { Icon, type IconName } from "./Icon";

export interface ButtonProps extends Omit<ButtonHTMLAttributes, "icon"> {
  kind?: "primary" | "plain" | "danger";
  /** Under way: the button stays where it is, but does nothing more. */
  busy?: boolean;
  icon?: IconName;
  children?: ComponentChildren;
}

export function Button({
  kind = "plain",
  busy = false,
  icon,
  children,
  class: extra = "",
  disabled,
  onClick,
  ...rest
}: ButtonProps) {
  return (
    <button
      type="button"
      {...rest}
      class={`button ${kind} ${extra}`}
      disabled={disabled ?? false}
      // A disabled button would lose the focus of whoever just pressed it.
      aria-disabled={busy || undefined}
      aria-busy={busy || undefined}
      onClick={busy ? undefined : onClick}
    >
      {busy ? <span class="spinner" aria-hidden="true" /> : icon && <Icon name={icon} />}
      {children}
    </button>
  );
}
