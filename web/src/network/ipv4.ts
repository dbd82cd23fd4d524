const addressPattern = /^(0|[1-9]\d{0,2})\.(0|[1-9]\d{0,2})\.(0|[1-9]\d{0,2})\.(0|[1-9]\d{0,2})$/;

export const longestPrefix = 32;

/** The 32 bits of a dotted address; numbers with leading zeros are none, as some read them octal. */
export function parseAddress(text: string): number | undefined {
  const match = addressPattern.exec(text);
  if (match === null) {
    return undefined;
  }
  const octets = match.slice(1).map(Number);
  return octets.some((octet) => octet > 255)
    ? undefined
    : octets.reduce((bits, octet) => bits * 256 + octet, 0);
}

export function parsePrefix(text: string): number | undefined {
  const prefix = /^[1-9]\d?$/.test(text) ? Number(text) : undefined;
  return prefix !== undefined && prefix <= longestPrefix ? prefix : undefined;
}

export function formatAddress(bits: number): string {
  return [24, 16, 8, 0].map((shift) => (bits >>> shift) & 255).join(".");
}

/** Shifts of 32 would do nothing, hence the powers. */
function hostCount(prefix: number): number {
  return 2 ** (longestPrefix - prefix);
}

export function dottedMask(prefix: number): string {
  return formatAddress(2 ** longestPrefix - hostCount(prefix));
}

export function networkOf(address: number, prefix: number): number {
  return Math.floor(address / hostCount(prefix));
}

export function overlaps(a: number, prefixA: number, b: number, prefixB: number): boolean {
  const prefix = Math.min(prefixA, prefixB);
  return networkOf(a, prefix) === networkOf(b, prefix);
}

/** Neither the network itself nor its broadcast address; networks of two or one have no such. */
export function isHost(address: number, prefix: number): boolean {
  const rest = address % hostCount(prefix);
  return prefix > 30 || (rest !== 0 && rest !== hostCount(prefix) - 1);
}

/** No multicast and nothing reserved; whether a loopback address will do is for the robot to say. */
export function isUnicast(address: number): boolean {
  const first = Math.floor(address / 2 ** 24);
  return first >= 1 && first <= 223;
}
