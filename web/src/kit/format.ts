import * as kit from "../texts/kit";

/** A number with fixed digits, a dash for what is no number, and no minus before a rounded zero. */
export function formatNumber(value: number | null | undefined, digits = 2): string {
  if (value === null || value === undefined || Number.isNaN(value)) {
    return "–";
  }
  if (!Number.isFinite(value)) {
    return value > 0 ? "∞" : "−∞";
  }
  const text = Math.abs(value).toFixed(digits);
  return value < 0 && Number(text) !== 0 ? `−${text}` : text;
}

/** "12 s", "3 min", "2 h": as exact as an age needs to be. */
export function formatAge(milliseconds: number): string {
  const seconds = Math.max(0, Math.round(milliseconds / 1000));
  if (seconds < 100) {
    return kit.seconds(seconds);
  }
  return seconds < 6000
    ? kit.minutes(Math.round(seconds / 60))
    : kit.hours(Math.round(seconds / 3600));
}

export function formatTime(time: number): string {
  const at = new Date(time);
  return [at.getHours(), at.getMinutes(), at.getSeconds()]
    .map((part) => String(part).padStart(2, "0"))
    .join(":");
}

export function formatBytes(bytes: number): string {
  if (bytes < 1000) {
    return `${bytes} B`;
  }
  return bytes < 1_000_000
    ? `${formatNumber(bytes / 1000, 1)} kB`
    : `${formatNumber(bytes / 1_000_000, 1)} MB`;
}
