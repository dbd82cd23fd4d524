// Waiting with deadlines, which stretch where a sanitizer slows the programs down.

const stretch = { "": 2, address: 6, thread: 15 }[process.env.TESSARAD_SANITIZER ?? ""] ?? 2;

/** The time in ms that something may take, at the very most, which takes ms on an idle machine. */
export const deadline = (ms) => ms * stretch;

/** The condition's first true value, asked every 20 ms; an Error that names what was waited for, else. */
export async function waitFor(what, condition, ms = 5000) {
  const end = Date.now() + deadline(ms);
  for (;;) {
    const value = await condition();
    if (value) return value;
    if (Date.now() > end) throw new Error(`waited ${deadline(ms) / 1000} s in vain for ${what}`);
    await new Promise((resolve) => setTimeout(resolve, 20));
  }
}
