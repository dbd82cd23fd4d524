import { useSignal } from "@preact/signals";
import { useEffect } from "preact/hooks";
import { linkState } from "../data/link";
import { canAdminister } from "../data/session";
import { Button } from "../kit/Button";
import { Empty } from "../kit/Empty";
import { TextInput } from "../kit/TextInput";
import { Toggle } from "../kit/Toggle";
import { configurationTexts as texts } from "../texts/configuration";
import { ConfigFileCard } from "./ConfigFileCard";
import { isChanged } from "./changes";
import "./configuration.css";
import { reviewAndSave } from "./review";
import { SaveReportCard } from "./SaveReportCard";
import type { SaveReport } from "./save";
import { filtered } from "./search";
import { changes, edits, files, forget, hasFailed, load } from "./store";
import type { ConfigLeaf } from "./tree";
import { UnsavedBar } from "./UnsavedBar";
import { useUnsavedGuard } from "./useUnsavedGuard";

const unsaved = {
  count: () => changes.peek().length,
  title: texts.leaveTitle,
  body: texts.leaveBody,
  action: texts.leaveAction,
};

function NotLoaded() {
  return hasFailed.value ? (
    <Empty icon="warning">
      {texts.failed} <Button onClick={() => void load()}>{texts.again}</Button>
    </Empty>
  ) : (
    <Empty>{texts.loading}</Empty>
  );
}

export function ConfigurationPage() {
  const search = useSignal("");
  const changedOnly = useSignal(false);
  const report = useSignal<SaveReport | undefined>(undefined);
  const saving = useSignal(false);
  const connected = linkState.value === "connected";
  const enabled = connected && canAdminister.value;

  useUnsavedGuard(unsaved);
  useEffect(() => forget, []);
  useEffect(() => {
    if (enabled) {
      void load();
    }
  }, [enabled]);

  const all = files.value;
  if (all === undefined) {
    return <NotLoaded />;
  }
  const isWanted = (leaf: ConfigLeaf) => !changedOnly.value || isChanged(edits.value, leaf);
  const shown = filtered(all, search.value, isWanted);

  const onSave = async () => {
    saving.value = true;
    report.value = await reviewAndSave();
    saving.value = false;
  };

  return (
    <div class="configuration stack">
      <div class="row">
        <TextInput
          type="search"
          placeholder={texts.search}
          aria-label={texts.search}
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
      <UnsavedBar enabled={enabled} saving={saving.value} onSave={onSave} />
    </div>
  );
}
