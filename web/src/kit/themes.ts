import { computed, type ReadonlySignal, signal } from "@preact/signals";
import { theme } from "../settings/general";

/** The colours that canvases paint with, as CSS texts, from the style sheet's properties. */
export interface CanvasTheme {
  readonly text: string;
  readonly muted: string;
  readonly line: string;
  readonly surface: string;
  readonly accent: string;
  readonly ok: string;
  readonly warn: string;
  readonly bad: string;
}

const query = globalThis.matchMedia?.("(prefers-color-scheme: dark)");
const systemIsDark = signal(query?.matches ?? false);
query?.addEventListener("change", (event) => {
  systemIsDark.value = event.matches;
});

export const shownTheme: ReadonlySignal<"light" | "dark"> = computed(() => {
  if (theme.value !== "auto") {
    return theme.value;
  }
  return systemIsDark.value ? "dark" : "light";
});

/** The colours of now: reading them follows the theme. */
export const canvasTheme: ReadonlySignal<CanvasTheme> = computed(() => {
  document.documentElement.dataset.theme = shownTheme.value;
  const style = getComputedStyle(document.documentElement);
  const colour = (name: string) => style.getPropertyValue(`--${name}`).trim();
  return {
    text: colour("text"),
    muted: colour("muted"),
    line: colour("line"),
    surface: colour("surface"),
    accent: colour("accent"),
    ok: colour("ok"),
    warn: colour("warn"),
    bad: colour("bad"),
  };
});
