import { iconPaths } from "./iconPaths";

export type IconName = keyof typeof iconPaths;

/** Goes with words that say the same: for itself it is not read aloud. */
export function Icon({ name }: { name: IconName }) {
  return (
    <svg class="icon" viewBox="0 0 24 24" aria-hidden="true" focusable="false">
      <path d={iconPaths[name]} />
    </svg>
  );
}
