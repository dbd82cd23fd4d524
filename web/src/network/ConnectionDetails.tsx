import { useResource } from "../data/useResource";
import { Age } from "../kit/Age";
import { Disclosure } from "../kit/Disclosure";
import * as texts from "../texts/network";
import { infos } from "./resources";
import type { Network } from "./tree";

export function ConnectionDetails({ network }: { network: Network }) {
  const resource = useResource(infos[network]);
  const info = resource.value.value;
  const lines = info?.lines ?? [];
  return (
    <Disclosure title={texts.info(info?.connection ?? texts.title[network])}>
      <Age resource={resource} />
      {info && lines.length === 0 && <p class="hint">{texts.noInfo}</p>}
      {lines.length > 0 && <pre>{lines.join("\n")}</pre>}
    </Disclosure>
  );
}
