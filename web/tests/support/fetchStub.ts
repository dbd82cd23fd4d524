export interface Exchange {
  readonly url: string;
  readonly init: RequestInit;
  reply(text: string, status?: number): void;
  fail(): void;
}

/** Takes the place of `fetch`: tests answer each request when they like. */
export function stubFetch(): { readonly open: Exchange[]; readonly all: Exchange[] } {
  const open: Exchange[] = [];
  const all: Exchange[] = [];
  globalThis.fetch = ((url: string, init: RequestInit = {}) =>
    new Promise<Response>((resolve, reject) => {
      const done = () => open.splice(open.indexOf(exchange), 1);
      const exchange: Exchange = {
        url,
        init,
        reply: (text, status = 200) => {
          done();
          resolve(new Response(text, { status }));
        },
        fail: () => {
          done();
          reject(new TypeError("failed"));
        },
      };
      init.signal?.addEventListener("abort", () => {
        done();
        reject(new DOMException("aborted", "AbortError"));
      });
      open.push(exchange);
      all.push(exchange);
    })) as typeof fetch;
  return { open, all };
}

/** Lets everything happen that waits for nothing but its turn. */
export async function settle(): Promise<void> {
  for (let turn = 0; turn < 20; turn += 1) {
    await Promise.resolve();
  }
  await new Promise((resolve) => setImmediate(resolve));
}
