/** Listens for all of these until the returned function is called. */
export function listen<E extends Event>(
  handler: (event: E) => void,
  ...places: readonly (readonly [target: EventTarget, ...names: string[]])[]
): () => void {
  const end = new AbortController();
  for (const [target, ...names] of places) {
    for (const name of names) {
      target.addEventListener(name, handler as (event: Event) => void, { signal: end.signal });
    }
  }
  return () => end.abort();
}
