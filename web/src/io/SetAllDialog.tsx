import { useState } from "preact/hooks";
import { Button } from "../kit/Button";
import { Dialog } from "../kit/Dialog";
import { Toggle } from "../kit/Toggle";
import { ioTexts as texts } from "../texts/io";

interface SetAllProps {
  title: string;
  names: readonly string[];
  initial: readonly boolean[] | undefined;
  onClose: () => void;
  onApply: (values: readonly boolean[]) => void;
}

export function SetAllDialog({ title, names, initial, onClose, onApply }: SetAllProps) {
  const [values, setValues] = useState(() => names.map((_, index) => initial?.[index] ?? false));
  return (
    <Dialog
      title={title}
      onClose={onClose}
      actions={
        <>
          <Button onClick={onClose}>{texts.cancel}</Button>
          <Button kind="primary" onClick={() => onApply(values)}>
            {texts.apply(names.length)}
          </Button>
        </>
      }
    >
      <p>{texts.setAllBody}</p>
      <ul class="channels">
        {names.map((name, index) => (
          <li key={name}>
            <Toggle
              label={
                <>
                  {name} <b>{values[index] ? texts.on : texts.off}</b>
                </>
              }
              ariaLabel={name}
              checked={values[index] ?? false}
              onChange={(on) =>
                setValues(values.map((value, other) => (other === index ? on : value)))
              }
            />
          </li>
        ))}
      </ul>
    </Dialog>
  );
}
