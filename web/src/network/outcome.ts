/** What a network script says at the end of its output, as a line that begins with one word. */
export type Outcome =
  | { readonly kind: "trial"; readonly seconds: number }
  | { readonly kind: "confirmed" }
  | { readonly kind: "unchanged" }
  | { readonly kind: "refused" }
  | { readonly kind: "restored" }
  | { readonly kind: "failed" };

const words: Readonly<Record<string, Exclude<Outcome["kind"], "trial">>> = {
  CONFIRMED: "confirmed",
  UNCHANGED: "unchanged",
  REFUSED: "refused",
  RESTORED: "restored",
  FAILED: "failed",
};

function outcomeOfLine(line: string): Outcome | undefined {
  const trial = /^ROLLBACK ([0-9]+) s: /.exec(line);
  if (trial !== null) {
    return { kind: "trial", seconds: Number(trial[1]) };
  }
  const kind = words[/^([A-Z]+): /.exec(line)?.[1] ?? ""];
  return kind === undefined ? undefined : { kind };
}

/** The outcome of the run that has printed the text; undefined where a script has none of the lines. */
export function outcomeOf(text: string): Outcome | undefined {
  return text
    .split(/\r?\n/)
    .map(outcomeOfLine)
    .reduce((last, outcome) => outcome ?? last, undefined);
}
