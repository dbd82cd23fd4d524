import { arrayOf, asBoolean, asString, field } from "../data/decode";
import { Resource } from "../data/Resource";
import type { Network } from "./tree";

interface ConnectionInfo {
  readonly connection: string;
  readonly lines: readonly string[];
}

function decodeMessage(json: unknown): string | undefined {
  return asString(field(json, "message"));
}

function decodeInfo(json: unknown): ConnectionInfo | undefined {
  const connection = asString(field(json, "connection"));
  const lines = arrayOf(field(json, "message"), (line) => asString(field(line, "text")));
  return connection === undefined || lines === undefined ? undefined : { connection, lines };
}

function resultOf(network: Network): Resource<string> {
  return new Resource(`/data/${network}configresult`, { decode: decodeMessage, periodMs: 3000 });
}

function infoOf(network: Network): Resource<ConnectionInfo> {
  return new Resource(`/data/${network}info`, {
    decode: decodeInfo,
    periodMs: 10_000,
    timeoutMs: 5000,
  });
}

export const results = { eth: resultOf("eth"), wlan: resultOf("wlan") };
export const infos = { eth: infoOf("eth"), wlan: infoOf("wlan") };

export const wirelessHardware = new Resource("/data/wlanhwfound", {
  decode: (json) => asBoolean(field(json, "found")),
  periodMs: 10_000,
});
