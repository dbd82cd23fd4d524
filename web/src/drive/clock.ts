// Time as the drive sees it, so that tests can turn the hands.
export interface Clock {
  // In ms, never going back.
  now(): number;
  // Calls once, later; what it returns calls that off.
  after(ms: number, action: () => void): () => void;
}

export const systemClock: Clock = {
  now: () => performance.now(),
  after(ms, action) {
    const timer = setTimeout(action, ms);
    return () => clearTimeout(timer);
  },
};
