import { useState } from "preact/hooks";
import { Age } from "../kit/Age";
import { Button } from "../kit/Button";
import { Card } from "../kit/Card";
import { Chip } from "../kit/Chip";
import { Empty } from "../kit/Empty";
import { SearchInput } from "../kit/SearchInput";
import { Toggle } from "../kit/Toggle";
import * as texts from "../texts/programs";
import { OutputLines } from "./OutputLines";
import { outputLog } from "./outputLog";
import { blocksOf, entryCount, filteredEntries, outputFileName, outputText } from "./outputView";
import { output } from "./resources";
import type { Scrollback } from "./ringMerge";
import { saveText } from "./saveText";

export function OutputCard() {
  const [frozen, setFrozen] = useState<Scrollback | undefined>(undefined);
  const [filter, setFilter] = useState("");
  const [follow, setFollow] = useState(true);
  const shown = frozen ?? outputLog.value;
  const entries = filteredEntries(shown.entries, filter);
  const isFiltered = filter.trim() !== "";
  const missed = frozen && entryCount(outputLog.value) - entryCount(frozen);
  return (
    <Card
      title={texts.output}
      aside={
        <>
          <Age resource={output} />
          {missed !== undefined && (
            <Chip tone="warn" icon="pause">
              {texts.paused(missed)}
            </Chip>
          )}
        </>
      }
    >
      <div class="row">
        <SearchInput label={texts.filter} value={filter} onInput={setFilter} />
        <Toggle label={texts.follow} checked={follow} onChange={setFollow} />
        <Button
          icon={frozen ? "play" : "pause"}
          onClick={() => setFrozen(frozen ? undefined : outputLog.peek())}
        >
          {frozen ? texts.resume : texts.pause}
        </Button>
        <Button
          class="bare"
          icon="download"
          title={texts.saveOutput}
          aria-label={texts.saveOutput}
          disabled={entries.length === 0}
          onClick={() =>
            saveText(
              outputFileName(new Date()),
              outputText(entries, { gap: texts.gap, start: texts.restart }),
            )
          }
        />
      </div>
      {entries.length === 0 ? (
        <Empty icon="programs">{isFiltered ? texts.noMatch : texts.noOutput}</Empty>
      ) : (
        <OutputLines
          blocks={blocksOf(entries, isFiltered ? 0 : shown.dropped)}
          follow={follow}
          onFollow={setFollow}
        />
      )}
      <p class="hint">{texts.lines(entries.length)}</p>
    </Card>
  );
}
