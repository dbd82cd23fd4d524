import { Button } from "../kit/Button";
import { Chip } from "../kit/Chip";
import { Field } from "../kit/Field";
import { Select } from "../kit/Select";
import { TextInput } from "../kit/TextInput";
import * as texts from "../texts/configuration";
import { isChanged, problemOfValue, valueIn } from "./changes";
import { guardedLabel, labelOf } from "./labels";
import { SecretInput } from "./SecretInput";
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

export function ConfigField({ leaf }: { leaf: ConfigLeaf }) {
  const value = valueIn(edits.value, leaf);
  const changed = isChanged(edits.value, leaf);
  const problem = changed ? problemOfValue(value) : undefined;
  const onInput = (next: string) => edit(leaf, next);
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
      error={problem && texts.problems[problem]}
    >
      <div class="control">
        {leaf.choices !== undefined ? (
          <Choice leaf={leaf} value={value} />
        ) : isSecret(leaf) ? (
          <SecretInput name={leaf.name} value={value} onInput={onInput} />
        ) : (
          <TextInput value={value} onInput={onInput} />
        )}
        {changed && (
          <Button
            icon="undo"
            aria-label={texts.reset(leaf.name)}
            onClick={() => edit(leaf, leaf.value)}
          />
        )}
      </div>
    </Field>
  );
}
