import { useRef } from "preact/hooks";
import { Button } from "../kit/Button";
import { confirm } from "../kit/questions";
import { toast } from "../kit/toasts";
import { saveText } from "../programs/saveText";
import * as texts from "../texts/about";
import { exportSettings, importSettings, resetSettings } from "./settings";

function take(text: string): void {
  const result = importSettings(text);
  if (result === undefined) {
    toast(texts.unreadable, { kind: "error" });
    return;
  }
  toast(texts.loaded(result.taken.length), { kind: "success" });
  if (result.skipped.length > 0) {
    toast(texts.skipped(result.skipped.join(", ")), { kind: "error" });
  }
}

async function reset(): Promise<void> {
  const action = texts.reset;
  if (await confirm({ title: texts.resetTitle, body: texts.resetBody, action, danger: true })) {
    resetSettings();
  }
}

/** To carry the settings to another browser, or to another address of the same robot. */
export function SettingsFile() {
  const chooser = useRef<HTMLInputElement>(null);
  return (
    <div class="row">
      <Button
        icon="download"
        onClick={() => saveText(texts.fileName(location.hostname), exportSettings())}
      >
        {texts.save}
      </Button>
      <Button icon="upload" onClick={() => chooser.current?.click()}>
        {texts.load}
      </Button>
      <Button icon="undo" onClick={() => void reset()}>
        {texts.reset}
      </Button>
      <input
        ref={chooser}
        type="file"
        hidden
        accept=".json,application/json"
        aria-label={texts.load}
        onChange={async (event) => {
          const input = event.currentTarget;
          const file = input.files?.[0];
          if (file) {
            take(await file.text());
          }
          // The same file chosen again must count as a change.
          input.value = "";
        }}
      />
    </div>
  );
}
