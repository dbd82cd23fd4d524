import { useSignal } from "@preact/signals";
import { Button } from "../kit/Button";
import * as texts from "../texts/editing";

export interface EditBarProps {
  count: number;
  isValid: boolean;
  enabled: boolean;
  action: string;
  onDiscard: () => void;
  onSave: () => Promise<void>;
}

/** Stays in sight as long as something is not saved. */
export function EditBar({ count, isValid, enabled, action, onDiscard, onSave }: EditBarProps) {
  const busy = useSignal(false);
  if (count === 0) {
    return null;
  }
  const onClick = async () => {
    busy.value = true;
    await onSave();
    busy.value = false;
  };
  return (
    <div class="edit-bar">
      <p role="status">
        {texts.unsaved(count)} {!isValid && <span class="error">{texts.invalid}</span>}
      </p>
      <Button onClick={onDiscard}>{texts.discard}</Button>
      <Button kind="primary" busy={busy.value} disabled={!enabled || !isValid} onClick={onClick}>
        {action}
      </Button>
    </div>
  );
}
