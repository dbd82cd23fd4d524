import type { Signal } from "@preact/signals";
import { Card } from "../kit/Card";
import { Disclosure } from "../kit/Disclosure";
import { Field } from "../kit/Field";
import { Select } from "../kit/Select";
import { GeometrySettings } from "../robotView/GeometrySettings";
import * as texts from "../texts/about";
import { angleUnit, refreshFactor, theme } from "./general";
import { SettingsFile } from "./SettingsFile";
import "./settings.css";

function ChoiceField<T extends string>(props: {
  label: string;
  hint?: string;
  setting: Signal<T>;
  choices: Readonly<Record<T, string>>;
}) {
  const { label, hint, setting, choices } = props;
  const options = (Object.keys(choices) as T[]).map((value) => ({ value, label: choices[value] }));
  return (
    <Field label={label} hint={hint}>
      <Select
        value={setting.value}
        options={options}
        onChange={(value) => {
          setting.value = value;
        }}
      />
    </Field>
  );
}

export function SettingsCard() {
  return (
    <Card title={texts.settings} class="settings">
      <p class="hint">{texts.settingsHint}</p>
      <div class="fields">
        <ChoiceField label={texts.theme} setting={theme} choices={texts.themes} />
        <ChoiceField label={texts.angles} setting={angleUnit} choices={texts.angleUnits} />
        <Field label={texts.refresh} hint={texts.refreshHint}>
          <Select
            value={String(refreshFactor.value)}
            options={Object.entries(texts.refreshRates).map(([value, label]) => ({ value, label }))}
            onChange={(value) => {
              refreshFactor.value = Number(value);
            }}
          />
        </Field>
      </div>
      <p class="hint">{texts.driveHint}</p>
      <Disclosure title={texts.geometry}>
        <div class="fields">
          <GeometrySettings />
        </div>
      </Disclosure>
      <SettingsFile />
    </Card>
  );
}
