import { useSignal } from "@preact/signals";
import { useEffect } from "preact/hooks";
import { linkState } from "../data/link";
import { canAdminister } from "../data/session";
import { Button } from "../kit/Button";
import { Empty } from "../kit/Empty";
import { SearchInput } from "../kit/SearchInput";
import { Toggle } from "../kit/Toggle";
import * as texts from "../texts/configuration";
import { ConfigFileCard } from "./ConfigFileCard";
import { isChanged } from "./changes";
import { EditBar } from "./EditBar";
import { NotLoaded } from "./NotLoaded";
import "./configuration.css";
import { reviewAndSave } from "./review";
import { SaveReportCard } from "./SaveReportCard";
import type { SaveReport } from "./save";
import { filtered } from "./search";
import { changes, discard, edits, files, forget, hasFailed, isValid, load } from "./store";
import type { ConfigLeaf } from "./tree";
import { useUnsavedGuard } from "./useUnsavedGuard";

const countUnsaved = () => changes.peek().length;

export function ConfigurationPage() {
  const search = useSignal("");
  const changedOnly = useSignal(false);
  const report = useSignal<SaveReport | undefined>(undefined);
  const connected = linkState.value === "connected";
  const enabled = connected && canAdminister.value;

  useUnsavedGuard(countUnsaved);
  useEffect(() => forget, []);
  useEffect(() => {
    if (enabled) {
      void load();
    }
  }, [enabled]);

  const all = files.value;
  if (all === undefined) {
    return <NotLoaded hasFailed={hasFailed.value} load={load} />;
  }
  const isWanted = (leaf: ConfigLeaf) => !changedOnly.value || isChanged(edits.value, leaf);
  const shown = filtered(all, search.value, isWanted);

  return (
    <div class="editing stack">
      <div class="row">
        <SearchInput
          label={texts.search}
          value={search.value}
          onInput={(value) => {
            search.value = value;
          }}
        />
        <Toggle
          label={texts.changedOnly}
          checked={changedOnly.value}
          onChange={(checked) => {
            changedOnly.value = checked;
          }}
        />
        <Button icon="refresh" disabled={!enabled} onClick={() => void load()}>
          {texts.reload}
        </Button>
      </div>
      {report.value && (
        <SaveReportCard
          report={report.value}
          onClose={() => {
            report.value = undefined;
          }}
        />
      )}
      {shown.length === 0 && (
        <Empty icon="search">{all.length === 0 ? texts.none : texts.noMatch}</Empty>
      )}
      {shown.map((file) => (
        <ConfigFileCard key={file.path} file={file} />
      ))}
      <EditBar
        count={changes.value.length}
        isValid={isValid.value}
        enabled={enabled}
        action={texts.review}
        onDiscard={discard}
        onSave={async () => {
          report.value = await reviewAndSave();
        }}
      />
    </div>
  );
}
