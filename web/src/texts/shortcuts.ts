export interface Shortcut {
  readonly keys: readonly string[];
  readonly does: string;
}

/** All keys that do something, in groups. */
export const shortcutGroups: readonly { title: string; shortcuts: readonly Shortcut[] }[] = [
  {
    title: "Everywhere",
    shortcuts: [
      { keys: ["Esc"], does: "Stop the drive, also from within a dialog" },
      { keys: ["Space"], does: "Stop the drive, unless a button or field has the focus" },
      { keys: ["?"], does: "Show this list" },
      { keys: ["Alt", "1 … 8"], does: "Go to the page of this number" },
    ],
  },
  {
    title: "Drive, unlocked",
    shortcuts: [
      { keys: ["Shift", "W A S D"], does: "Hold to move ahead, left, back, right" },
      { keys: ["Shift", "Q E"], does: "Hold to turn left, right" },
      { keys: ["Shift", "arrows , ."], does: "The same with the other key map of the settings" },
    ],
  },
];
