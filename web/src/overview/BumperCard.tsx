import { bumper } from "../data/resources";
import { useResource } from "../data/useResource";
import { Age } from "../kit/Age";
import { Card } from "../kit/Card";
import { Icon } from "../kit/Icon";
import * as texts from "../texts/overview";

export function BumperCard() {
  useResource(bumper);
  const touches = bumper.value.value;
  const state = touches ? "lamp bad" : "lamp ok";
  const isStale = bumper.freshness.value !== "fresh";
  return (
    <Card title={texts.bumper} aside={<Age resource={bumper} />}>
      {touches !== undefined && (
        <p class={isStale ? "lamp stale" : state}>
          <Icon name={touches ? "warning" : "check"} />
          {touches ? texts.touching : texts.clear}
        </p>
      )}
    </Card>
  );
}
