import { useState } from "preact/hooks";
import { Button } from "../kit/Button";
import { Chip } from "../kit/Chip";
import { Field } from "../kit/Field";
import { Select } from "../kit/Select";
import { TextInput } from "../kit/TextInput";
import { configurationTexts as texts } from "../texts/configuration";
import { isChanged, problemOfValue, valueIn } from "./changes";
import { guardedLabel, labelOf } from "./labels";
import { edit, edits } from "./store";
import { type ConfigLeaf, isSecret, optionsOf } from "./tree";

function Choice({ leaf, value }: { leaf: ConfigLeaf; value: string }) {
  const known = new Set(leaf.choices);
  const options = optionsOf(leaf).map((option) => ({
    value: option,
    label: known.has(option) || option === "" ? labelOf(option) : texts.present(option),
  }));
  return <Select value={value} options={options} onChange={(next) => edit(leaf, next)} />;
}

function FreeText({ leaf, value }: { leaf: ConfigLeaf; value: string }) {
  const [shown, setShown] = useState(false);
  const onInput = (next: string) => edit(leaf, next);
  if (!isSecret(leaf)) {
    return <TextInput value={value} onInput={onInput} />;
  }
  return (
    <>
      <TextInput
        type={shown ? "text" : "password"}
        autocomplete="new-password"
        value={value}
        onInput={onInput}
      />
      <Button
        aria-pressed={shown}
        aria-label={texts.showOf(leaf.name)}
        icon="eye"
        onClick={() => setShown(!shown)}
      />
    </>
  );
}

export function ConfigField({ leaf }: { leaf: ConfigLeaf }) {
  const value = valueIn(edits.value, leaf);
  const changed = isChanged(edits.value, leaf);
  const problem = changed ? problemOfValue(value) : undefined;
  const was = changed && texts.was(guardedLabel(leaf, leaf.value));
  return (
    <Field
      class={changed ? "changed" : ""}
      label={
        <>
          {leaf.name} {changed && <Chip tone="warn">{texts.changed}</Chip>}
        </>
      }
      hint={was || (leaf.choices?.length === 0 && texts.noChoices)}
      error={problem && texts.problemOf(problem)}
    >
      <div class="control">
        {leaf.choices === undefined ? (
          <FreeText leaf={leaf} value={value} />
        ) : (
          <Choice leaf={leaf} value={value} />
        )}
        {changed && (
          <Button
            icon="undo"
            title={texts.reset}
            aria-label={texts.resetOf(leaf.name)}
            onClick={() => edit(leaf, leaf.value)}
          />
        )}
      </div>
    </Field>
  );
}
