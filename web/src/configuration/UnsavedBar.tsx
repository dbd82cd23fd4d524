import { Button } from "../kit/Button";
import { configurationTexts as texts } from "../texts/configuration";
import { changes, discard, isValid } from "./store";

export interface UnsavedBarProps {
  enabled: boolean;
  saving: boolean;
  onSave: () => void;
}

/** Stays in sight as long as something is not saved. */
export function UnsavedBar({ enabled, saving, onSave }: UnsavedBarProps) {
  const count = changes.value.length;
  if (count === 0) {
    return null;
  }
  return (
    <div class="unsaved">
      <p role="status">
        {texts.unsaved(count)} {!isValid.value && <span class="error">{texts.invalid}</span>}
      </p>
      <Button onClick={discard}>{texts.discard}</Button>
      <Button kind="primary" busy={saving} disabled={!enabled || !isValid.value} onClick={onSave}>
        {texts.save}
      </Button>
    </div>
  );
}
