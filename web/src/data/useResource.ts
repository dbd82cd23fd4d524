import { useEffect } from "preact/hooks";
import type { Resource } from "./Resource";

/** Polls the resource while the component is mounted, where wanted more slowly than usual. */
export function useResource<T>(resource: Resource<T>, periodMs?: number): Resource<T> {
  useEffect(() => resource.hold(periodMs), [resource, periodMs]);
  return resource;
}
