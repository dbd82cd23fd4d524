import { useEffect, useRef } from "preact/hooks";
import { Button } from "../kit/Button";
import { Card } from "../kit/Card";
import { Icon } from "../kit/Icon";
import * as texts from "../texts/configuration";
import * as editing from "../texts/editing";
import { guardedLabel, placeOf } from "./labels";
import type { NotTaken } from "./readBack";
import type { SaveReport } from "./save";

function lineOf({ leaf, value, found }: NotTaken): string {
  return found === undefined
    ? texts.gone(placeOf(leaf), leaf.file)
    : texts.notTakenItem(placeOf(leaf), guardedLabel(leaf, value), guardedLabel(leaf, found));
}

export function SaveReportCard({ report, onClose }: { report: SaveReport; onClose: () => void }) {
  const taken = report.count - report.notTaken.length;
  const outcome = useRef<HTMLDivElement>(null);
  // Who saved may be far below, and the button that had the focus is gone.
  useEffect(() => outcome.current?.focus(), [report]);
  return (
    <Card
      title={texts.report}
      aside={<Button icon="close" class="bare" aria-label={editing.close} onClick={onClose} />}
    >
      <div ref={outcome} class="stack" role="status" tabIndex={-1}>
        {report.state !== "checked" && <p class="error">{texts.failures[report.state]}</p>}
        {report.state === "checked" && taken > 0 && (
          <p class="row">
            <Icon name="check" /> {texts.saved(taken)}
          </p>
        )}
        {report.notTaken.length > 0 && (
          <div>
            <p class="error">{texts.notTaken}</p>
            <ul>
              {report.notTaken.map((each) => (
                <li key={each.leaf.key}>{lineOf(each)}</li>
              ))}
            </ul>
          </div>
        )}
        {report.daemons.length > 0 && (
          <p>
            {texts.restart} <strong>{report.daemons.join(", ")}</strong>{" "}
            <a href="#/services">{texts.toServices}</a>
          </p>
        )}
      </div>
    </Card>
  );
}
