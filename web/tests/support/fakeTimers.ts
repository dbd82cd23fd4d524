interface Timer {
  at: number;
  readonly every: number | undefined;
  readonly run: () => void;
}

/** Timers that run by `tick` alone, until `restore`. */
export function fakeTimers(): { tick(milliseconds: number): void; restore(): void } {
  const { setTimeout, clearTimeout, setInterval, clearInterval } = globalThis;
  const timers = new Map<number, Timer>();
  let now = 0;
  let count = 0;
  const add = (run: () => void, delay: number, every: number | undefined) => {
    count += 1;
    timers.set(count, { at: now + delay, every, run });
    return count;
  };
  const remove = (id: number | undefined) => timers.delete(id ?? 0);
  Object.assign(globalThis, {
    setTimeout: (run: () => void, delay = 0) => add(run, delay, undefined),
    setInterval: (run: () => void, delay = 0) => add(run, delay, delay),
    clearTimeout: remove,
    clearInterval: remove,
  });
  const runNext = (until: number): boolean => {
    const [next] = [...timers].sort(([, a], [, b]) => a.at - b.at);
    if (next === undefined || next[1].at > until) {
      return false;
    }
    const [id, timer] = next;
    now = timer.at;
    if (timer.every === undefined) {
      timers.delete(id);
    } else {
      timer.at += timer.every;
    }
    timer.run();
    return true;
  };
  return {
    tick: (milliseconds) => {
      const until = now + milliseconds;
      while (runNext(until)) {
        // Each turn runs one timer, which may set others.
      }
      now = until;
    },
    restore: () =>
      Object.assign(globalThis, { setTimeout, clearTimeout, setInterval, clearInterval }),
  };
}
