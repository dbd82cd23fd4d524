import { Card } from "../kit/Card";
import * as texts from "../texts/configuration";
import { ConfigField } from "./ConfigField";
import { type ConfigFile, fileNameOf } from "./tree";

export function ConfigFileCard({ file }: { file: ConfigFile }) {
  return (
    <Card title={fileNameOf(file.path)} aside={<span class="hint">{file.path}</span>}>
      {file.groups.map((group) => (
        <fieldset key={group.name}>
          <legend>{group.name === "" ? texts.general : group.name}</legend>
          <div class="fields">
            {group.leaves.map((leaf) => (
              <ConfigField key={leaf.key} leaf={leaf} />
            ))}
          </div>
        </fieldset>
      ))}
    </Card>
  );
}
