import { Button } from "../kit/Button";
import { Empty } from "../kit/Empty";
import * as texts from "../texts/editing";

/** Stands where settings will be, or could not be had. */
export function NotLoaded({ hasFailed, load }: { hasFailed: boolean; load: () => unknown }) {
  return (
    <Empty>
      {hasFailed ? texts.failed : texts.loading}{" "}
      {hasFailed && <Button onClick={() => load()}>{texts.again}</Button>}
    </Empty>
  );
}
