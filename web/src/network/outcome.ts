/**
 * What a network script says at the end of its output: a line that begins with one word or, from a
 * script of somebody else, one that asks to confirm the settings.
 */
export type Outcome =
  | { readonly kind: "trial"; readonly seconds: number }
  | { readonly kind: "confirmed" | "unchanged" | "refused" | "restored" | "failed" };

const lines =
  /^(?:ROLLBACK ([0-9]+) s: |(CONFIRMED|UNCHANGED|REFUSED|RESTORED|FAILED): |.*\b[Cc]onfirm within ([0-9]+) s\b)/gm;

/** The outcome of the run that has printed the text; undefined where a script has none of the lines. */
export function outcomeOf(text: string): Outcome | undefined {
  const [, ours, word, theirs] = [...text.matchAll(lines)].pop() ?? [];
  const seconds = ours ?? theirs;
  if (seconds !== undefined) {
    return { kind: "trial", seconds: Number(seconds) };
  }
  return word === undefined ? undefined : ({ kind: word.toLowerCase() } as Outcome);
}
