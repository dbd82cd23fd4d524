import { useEffect } from "preact/hooks";
import type { Resource } from "./Resource";

/** Polls the resource while the component is mounted. */
export function useResource<T>(resource: Resource<T>): Resource<T> {
  useEffect(() => resource.hold(), [resource]);
  return resource;
}
