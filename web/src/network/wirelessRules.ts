import type { Problem } from "./validate";

export const longestName = 32;
const shortestKey = 8;
const longestKey = 63;

// biome-ignore lint/suspicious/noControlCharactersInRegex: these are what it looks for.
const unprintable = /[\u0000-\u001f\u007f-\u009f\ud800-\udfff]/u;

export function problemOfType(text: string): Problem | undefined {
  return text === "master" || text === "client" ? undefined : "type";
}

export function problemOfCipher(text: string): Problem | undefined {
  return text === "CCMP" || text === "TKIP" ? undefined : "cipher";
}

/** The limit of a network's name is one of bytes, not of letters. */
export function problemOfName(text: string): Problem | undefined {
  if (text === "") {
    return "ssidMissing";
  }
  if (unprintable.test(text)) {
    return "ssidCharacters";
  }
  if (new TextEncoder().encode(text).length > longestName) {
    return "ssidLong";
  }
  // The daemon takes its key out of the line that it reads, wherever that stands.
  return text.includes("ssid=") ? "ssidUnreadable" : undefined;
}

export function problemOfKey(text: string, isAccessPoint: boolean): Problem | undefined {
  if (text === "") {
    return isAccessPoint ? "keyMissing" : undefined;
  }
  if (!isAccessPoint && /^[0-9a-fA-F]{64}$/.test(text)) {
    return undefined;
  }
  if (!/^[ -~]*$/.test(text)) {
    return "keyCharacters";
  }
  if (text.length < shortestKey || text.length > longestKey) {
    return "keyLength";
  }
  const ownKey = isAccessPoint ? "wpa_passphrase=" : "psk=";
  return text.includes(ownKey) ? "keyUnreadable" : undefined;
}
