import { parseAddress } from "./ipv4";
import { counts } from "./tagRules";
import { keyOf, type NetworkTree, type Values, valueAt } from "./tree";

/** What a change does to the connection of the page that makes it. */
export type Effect =
  /** The page's host is none of the addresses: a name, a tunnel, or an address from DHCP. */
  | { readonly kind: "unknown" }
  /** Another interface is changed. */
  | { readonly kind: "untouched" }
  /** The address stays, but the interface comes up anew. */
  | { readonly kind: "interrupted"; readonly device: string }
  | { readonly kind: "moves"; readonly device: string; readonly address: string }
  /** The address goes, and which one comes is not known here. */
  | { readonly kind: "leaves"; readonly device: string };

export interface PageAddress {
  readonly protocol: string;
  readonly hostname: string;
  readonly port: string;
}

/** The interface whose address is in the page's own. */
export function carrierOf(tree: NetworkTree, values: Values, hostname: string): string | undefined {
  return parseAddress(hostname) === undefined
    ? undefined
    : tree.find(({ name }) => valueAt(values, name, "address") === hostname)?.name;
}

const joining = ["type", "ssid", "psk", "cipher"];

export function effectOf(
  tree: NetworkTree,
  before: Values,
  after: Values,
  hostname: string,
): Effect {
  const device = carrierOf(tree, before, hostname);
  const node = tree.find(({ name }) => name === device);
  if (device === undefined || node === undefined) {
    return { kind: "unknown" };
  }
  const changed = node.leaves.filter(({ name }) => {
    const key = keyOf(device, name);
    return before[key] !== after[key];
  });
  if (changed.length === 0) {
    return { kind: "untouched" };
  }
  const address = node.leaves.find(({ name }) => name === "address");
  const next = valueAt(after, device, "address");
  if (address === undefined || !counts(device, address, after) || next === "") {
    const stays = next === hostname && !changed.some(({ name }) => joining.includes(name));
    return { kind: stays ? "interrupted" : "leaves", device };
  }
  const isOld = carrierOf(tree, after, hostname) !== undefined;
  return isOld ? { kind: "interrupted", device } : { kind: "moves", device, address: next };
}

/** The robot's origin at another address; it listens at the same port on all of them. */
export function originAt(address: string, page: PageAddress): string {
  return `${page.protocol}//${address}${page.port === "" ? "" : `:${page.port}`}`;
}
