import { computed, signal } from "@preact/signals";
import { read } from "../data/requests";
import { changesBetween } from "./diff";
import { settledValues } from "./tagRules";
import { bodyOf, decodeTree, type Network, type NetworkTree, type Values, valuesOf } from "./tree";
import { findingsIn } from "./validate";

/** The settings of one network, as read and as edited. */
export class NetworkForm {
  readonly network: Network;
  readonly tree = signal<NetworkTree | undefined>(undefined);
  readonly hasFailed = signal(false);
  readonly edits = signal<Values>({});
  readonly base = computed(() => valuesOf(this.tree.value ?? []));
  /** The values as they would be sent. */
  readonly sent = computed(() =>
    settledValues(this.tree.value ?? [], this.base.value, this.edits.value),
  );
  readonly changes = computed(() =>
    changesBetween(this.tree.value ?? [], this.base.value, this.sent.value),
  );
  readonly findings = computed(() => findingsIn(this.tree.value ?? [], this.sent.value));

  constructor(network: Network) {
    this.network = network;
  }

  get path(): string {
    return `/data/${this.network}config`;
  }

  async read(): Promise<NetworkTree | undefined> {
    const outcome = await read(this.path);
    return outcome.state === "answer" ? decodeTree(this.network, outcome.value) : undefined;
  }

  /** Reads anew; what somebody has edited stays. */
  async load(): Promise<void> {
    const tree = await this.read();
    this.hasFailed.value = tree === undefined;
    this.tree.value = tree ?? this.tree.value;
  }

  edit(key: string, value: string): void {
    this.edits.value = { ...this.edits.value, [key]: value };
  }

  discard(): void {
    this.edits.value = {};
  }

  forget(): void {
    this.discard();
    this.tree.value = undefined;
    this.hasFailed.value = false;
  }

  body(values: Values): unknown {
    return bodyOf(this.network, this.tree.value ?? [], values);
  }

  /** What brings the present settings back; undefined where a part of them is never shown. */
  revertBody(): unknown {
    const values = settledValues(this.tree.value ?? [], this.base.value, {});
    const isHidden = this.network === "wlan" && values["wlan0/method"] !== "auto";
    return isHidden && values["wlan0/type"] !== "master" ? undefined : this.body(values);
  }
}

export const forms = { eth: new NetworkForm("eth"), wlan: new NetworkForm("wlan") };
