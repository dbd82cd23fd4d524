/** What somebody typed as a number; a comma is as good as a point. Undefined out of bounds. */
export function numberOf(text: string, least: number, most: number): number | undefined {
  const trimmed = text.trim().replace(",", ".");
  const value = trimmed === "" ? Number.NaN : Number(trimmed);
  return value >= least && value <= most ? value : undefined;
}
