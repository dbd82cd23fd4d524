import { useState } from "preact/hooks";
import { Button } from "../kit/Button";
import { Dialog } from "../kit/Dialog";
import * as texts from "../texts/io";
import { Switches } from "./Switches";

interface SetAllProps {
  title: string;
  names: readonly string[];
  initial: readonly boolean[] | undefined;
  enabled: boolean;
  onClose: () => void;
  onApply: (values: readonly boolean[]) => void;
}

export function SetAllDialog({ title, names, initial, enabled, onClose, onApply }: SetAllProps) {
  const [values, setValues] = useState<readonly boolean[]>(() =>
    names.map((_, index) => initial?.[index] ?? false),
  );
  return (
    <Dialog
      title={title}
      onClose={onClose}
      actions={
        <>
          <Button onClick={onClose}>{texts.cancel}</Button>
          <Button kind="primary" disabled={!enabled} onClick={() => onApply(values)}>
            {texts.apply(names.length)}
          </Button>
        </>
      }
    >
      <p>{texts.setAllBody}</p>
      <Switches names={names} values={values} onChange={setValues} />
    </Dialog>
  );
}
