import type { ComponentChildren } from "preact";
import { Icon, type IconName } from "./Icon";

/** What stands where a list has nothing to show, with what to do about it. */
export function Empty({ icon, children }: { icon?: IconName; children: ComponentChildren }) {
  return (
    <div class="empty">
      {icon && <Icon name={icon} />}
      <p>{children}</p>
    </div>
  );
}
