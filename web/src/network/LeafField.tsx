import { SecretInput } from "../configuration/SecretInput";
import { Field } from "../kit/Field";
import { Select } from "../kit/Select";
import { TextInput } from "../kit/TextInput";
import * as texts from "../texts/network";
import { labelOf } from "./labels";
import type { NetworkForm } from "./NetworkForm";
import { counts, shownValue } from "./tagRules";
import { type InterfaceNode, keyOf, type Leaf, valueAt, wirelessName } from "./tree";

function hintOf(node: InterfaceNode, leaf: Leaf, isMaster: boolean): string | undefined {
  if (leaf.name === "psk" && !isMaster) {
    return texts.openNetwork;
  }
  const isWireless = node.name === wirelessName;
  return leaf.name === "dns" && isWireless ? texts.wirelessServers : texts.hints[leaf.name];
}

/** Without the length 0, which no interface can have; a present value always stays. */
function optionsOf(leaf: Leaf, value: string) {
  const choices = (leaf.choices ?? []).filter(
    (choice) => choice === value || !(leaf.name === "netmask" && choice === "0"),
  );
  const all = choices.includes(value) ? choices : [value, ...choices];
  return all.map((choice) => ({ value: choice, label: labelOf(leaf.name, choice) }));
}

export interface LeafFieldProps {
  form: NetworkForm;
  node: InterfaceNode;
  leaf: Leaf;
  enabled: boolean;
}

export function LeafField({ form, node, leaf, enabled }: LeafFieldProps) {
  const key = keyOf(node.name, leaf.name);
  const base = form.base.value;
  const current = { ...base, ...form.edits.value };
  const value = shownValue(node, leaf, base, form.edits.value);
  const isCounting = counts(node.name, leaf, current);
  const disabled = !enabled || !isCounting;
  const { errors, warnings } = form.findings.value;
  const found = [...errors, ...warnings].find((finding) => finding.key === key);
  const isMaster = valueAt(current, node.name, "type") === "master";
  const onChange = (next: string) => form.edit(key, next);
  const label = texts.leaf(leaf.name);
  return (
    <Field
      label={label}
      hint={isCounting && hintOf(node, leaf, isMaster)}
      error={found && texts.problems[found.problem]}
    >
      {leaf.choices !== undefined ? (
        <Select
          value={value}
          options={optionsOf(leaf, value)}
          disabled={disabled}
          onChange={onChange}
        />
      ) : (
        <div class="control">
          {leaf.name === "psk" ? (
            <SecretInput name={label} value={value} disabled={disabled} onInput={onChange} />
          ) : (
            <TextInput value={value} disabled={disabled} onInput={onChange} />
          )}
        </div>
      )}
    </Field>
  );
}
