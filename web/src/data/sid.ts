const storageKey = "tessarad.sid";
const handedOver = /[#?&;]sid=([0-9a-f]{32})/;

/** Hexadecimal digits only: the daemon does not decode what stands in a query. */
export function newSid(): string {
  const bytes = crypto.getRandomValues(new Uint8Array(16));
  return Array.from(bytes, (byte) => byte.toString(16).padStart(2, "0")).join("");
}

/** Splits a location's hash into the route and the session that another address handed over. */
export function splitHash(hash: string): { route: string; sid: string | undefined } {
  const match = handedOver.exec(hash);
  return match === null
    ? { route: hash, sid: undefined }
    : { route: hash.replace(match[0], match[0].startsWith("#") ? "#" : ""), sid: match[1] };
}

/** The route at another address with this tab's session, which its storage could not follow. */
export function hashWithSession(route: string): string {
  return `#${route};sid=${currentSid()}`;
}

let sid: string | undefined;

function initialSid(): string {
  if (typeof location !== "undefined") {
    const { route, sid: handed } = splitHash(location.hash);
    if (handed !== undefined) {
      // The address bar and the history must not keep what identifies the session.
      history.replaceState(null, "", route === "" ? "#/" : route);
      return handed;
    }
  }
  try {
    return globalThis.sessionStorage?.getItem(storageKey) ?? newSid();
  } catch {
    return newSid();
  }
}

export function currentSid(): string {
  if (sid === undefined) {
    adoptSid(initialSid());
  }
  return sid ?? "";
}

export function adoptSid(next: string): void {
  sid = next;
  try {
    globalThis.sessionStorage?.setItem(storageKey, next);
  } catch {
    // Where the browser stores nothing, the session lasts until the page is loaded again.
  }
}
