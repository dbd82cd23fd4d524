import { useLayoutEffect, useRef, useState } from "preact/hooks";
import { Button } from "../kit/Button";
import { Field } from "../kit/Field";
import { TextInput } from "../kit/TextInput";
import * as texts from "../texts/programs";
import { problemOfRename } from "./changeFile";
import { busyFile, rename } from "./programActions";
import { fileNameOf, type Program } from "./programList";

interface RenameProps {
  program: Program;
  all: readonly Program[];
  enabled: boolean;
  onEnd: () => void;
}

export function RenameForm({ program, all, enabled, onEnd }: RenameProps) {
  const form = useRef<HTMLFormElement>(null);
  const [name, setName] = useState(program.name);
  const problem = problemOfRename(program, name, all);
  useLayoutEffect(() => form.current?.querySelector("input")?.select(), []);
  const save = async () => {
    const isSame = name.trim() === program.name;
    if (problem === undefined && (isSame || (await rename(program, name)) === "done")) {
      onEnd();
    }
  };
  return (
    <form
      ref={form}
      class="rename"
      onSubmit={(event) => {
        event.preventDefault();
        void save();
      }}
      onKeyDown={(event) => {
        if (event.key === "Escape") {
          onEnd();
        }
      }}
    >
      <Field
        label={<span class="unseen">{texts.newName(fileNameOf(program))}</span>}
        hint={`.${program.suffix}`}
        error={problem && texts.nameProblems[problem]}
      >
        <TextInput value={name} onInput={setName} maxLength={200} />
      </Field>
      <div class="row">
        <Button
          type="submit"
          kind="primary"
          busy={busyFile.value === fileNameOf(program)}
          disabled={!enabled || problem !== undefined}
        >
          {texts.save}
        </Button>
        <Button onClick={onEnd}>{texts.cancel}</Button>
      </div>
    </form>
  );
}
