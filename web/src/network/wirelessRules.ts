import type { Problem } from "./validate";

const longestName = 32;

// biome-ignore lint/suspicious/noControlCharactersInRegex: these are what it looks for.
const unprintable = /[\u0000-\u001f\u007f-\u009f\ud800-\udfff]/u;

/** The limit of a network's name is one of bytes, not of letters. */
export function problemOfName(text: string): Problem | undefined {
  const length = new TextEncoder().encode(text).length;
  if (length === 0 || length > longestName || unprintable.test(text)) {
    return "name";
  }
  // The daemon takes its keyword out of the line that it reads, wherever that stands.
  return text.includes("ssid=") ? "keyword" : undefined;
}

export function problemOfKey(text: string, isAccessPoint: boolean): Problem | undefined {
  const isOpenOrRaw = !isAccessPoint && /^([0-9a-f]{64})?$/i.test(text);
  if (!isOpenOrRaw && !/^[ -~]{8,63}$/.test(text)) {
    return "key";
  }
  return text.includes(isAccessPoint ? "wpa_passphrase=" : "psk=") ? "keyword" : undefined;
}
