import { useState } from "preact/hooks";
import { Button } from "../kit/Button";
import { Card } from "../kit/Card";
import { Chip } from "../kit/Chip";
import { formatTime } from "../kit/format";
import * as texts from "../texts/io";
import type { OutputMemory } from "./outputMemory";
import { SetAllDialog } from "./SetAllDialog";
import { Switches } from "./Switches";
import { switchOutputs } from "./switchOutputs";

export interface SwitchCardProps {
  title: string;
  path: string;
  count: number;
  nameOf: (index: number) => string;
  memory: OutputMemory;
  enabled: boolean;
}

function whenText(time: number): string {
  const at = new Date(time);
  const isToday = at.toDateString() === new Date().toDateString();
  return isToday ? formatTime(time) : `${at.toLocaleDateString()} ${formatTime(time)}`;
}

export function SwitchCard({ title, path, count, nameOf, memory, enabled }: SwitchCardProps) {
  const [asking, setAsking] = useState(false);
  const [busy, setBusy] = useState(false);
  const state = memory.state.value;
  const names = Array.from({ length: count }, (_, index) => nameOf(index));
  const apply = async (values: readonly boolean[]) => {
    if (!busy) {
      setBusy(true);
      await switchOutputs(path, memory, values);
      setBusy(false);
    }
  };
  return (
    <Card title={title}>
      {state === undefined ? (
        <ul class="channels loose">
          {names.map((name) => (
            <li key={name}>
              {name} <Chip tone="neutral">{texts.unknown}</Chip>
            </li>
          ))}
        </ul>
      ) : (
        <Switches
          names={names}
          values={state.values}
          disabled={!enabled || busy}
          onChange={(values) => void apply(values)}
        />
      )}
      <p class="hint">
        {texts.cannotAsk}{" "}
        {state === undefined ? texts.unknownHint(count) : texts.lastSet(whenText(state.setAt))}
      </p>
      <div class="row">
        <Button
          kind={state === undefined ? "primary" : "plain"}
          disabled={!enabled}
          busy={busy}
          onClick={() => setAsking(true)}
        >
          {texts.setAll(count)}
        </Button>
        {state !== undefined && (
          <Button title={texts.forgetTitle} onClick={() => memory.forget()}>
            {texts.forget}
          </Button>
        )}
      </div>
      {asking && (
        <SetAllDialog
          title={texts.setAllTitle(title)}
          names={names}
          initial={state?.values}
          enabled={enabled}
          onClose={() => setAsking(false)}
          onApply={(values) => {
            setAsking(false);
            void apply(values);
          }}
        />
      )}
    </Card>
  );
}
